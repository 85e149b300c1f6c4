// The library of components as others load it.
#pragma once

#include <string_view>

#include <levelwidgets/activex/com/component_interface.h>

#include <levelwidgets/activex/com/com_ptr.h>

namespace levelwidgets::activex {

// Loaded from beside the test program, without registration.
HMODULE ComponentModule();
std::wstring ComponentModulePath();
// A new object of the class ("FlatButton", "ppFlatButton"); null when it cannot be made.
ComPtr<IUnknown> MakeComponent(std::string_view class_name, IUnknown* outer = nullptr);
HRESULT MakeComponent(std::string_view class_name, IUnknown* outer, REFIID iid, void** made);
// S_OK when nobody holds anything of the library.
HRESULT CanUnload();

}  // namespace levelwidgets::activex
