// Objects of the library as component objects.
#pragma once

#include <levelwidgets/activex/com/com_ptr.h>
#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/activex/object/runtime.h>
#include <levelwidgets/frame/object.h>
#include <levelwidgets/frame/variant.h>

namespace levelwidgets::activex {

// What objects of ours are recognised by when they come back.

struct OwnObject : public IUnknown {
 public:
  virtual ObjectRef Inner() = 0;
};

// The component object of `object`, always the same one while somebody holds it; null for none.
ComPtr<IDispatch> DispatchFor(Runtime& runtime, const ObjectRef& object);

// Loads the type library of this module. Returns the system's error when the module has none.
HRESULT LoadOwnTypeLibrary(ComPtr<ITypeLib>& library);
// What the type library says about `class_name`: how its members are called, or the class as a whole.
HRESULT MembersInTypeLibrary(std::string_view class_name, ITypeInfo** found);
HRESULT ClassInTypeLibrary(std::string_view class_name, ITypeInfo** found);

}  // namespace levelwidgets::activex

__CRT_UUID_DECL(levelwidgets::activex::OwnObject, 0x6B5CBE5C, 0x7D3C, 0x4B60, 0x9D, 0x3E, 0x0E, 0x2F, 0x5C,
                0x8B, 0x7A, 0x11)
