// The library's own description, which lies in the module.
#include <levelwidgets/activex/identity/identifiers.h>
#include <levelwidgets/activex/object/dispatch.h>
#include <levelwidgets/activex/object/native_guid.h>
#include <levelwidgets/platform/win32/window_class.h>

namespace levelwidgets::activex {

namespace {

HRESULT InTypeLibrary(const Guid& id, ITypeInfo** found) {
  *found = nullptr;
  ComPtr<ITypeLib> library;
  const HRESULT result = LoadOwnTypeLibrary(library);
  return FAILED(result) ? result : library->GetTypeInfoOfGuid(Native(id), found);
}

}  // namespace

HRESULT LoadOwnTypeLibrary(ComPtr<ITypeLib>& library) {
  wchar_t path[MAX_PATH];
  const DWORD length = ::GetModuleFileNameW(static_cast<HMODULE>(win32::ModuleInstance()), path, MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return TYPE_E_CANTLOADLIBRARY;
  return ::LoadTypeLibEx(path, REGKIND_NONE, library.Receive());
}

HRESULT MembersInTypeLibrary(std::string_view class_name, ITypeInfo** found) {
  const ClassIdentity* const identity = IdentityOf(class_name);
  if (!identity) *found = nullptr;
  return identity ? InTypeLibrary(identity->interface_id, found) : TYPE_E_ELEMENTNOTFOUND;
}

HRESULT ClassInTypeLibrary(std::string_view class_name, ITypeInfo** found) {
  const ClassIdentity* const identity = IdentityOf(class_name);
  if (!identity) *found = nullptr;
  return identity ? InTypeLibrary(identity->class_id, found) : TYPE_E_ELEMENTNOTFOUND;
}

}  // namespace levelwidgets::activex
