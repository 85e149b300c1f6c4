#include <levelwidgets/activex/testing/component_module.h>

#include <levelwidgets/activex/identity/identifiers.h>
#include <levelwidgets/activex/object/native_guid.h>

namespace levelwidgets::activex {

namespace {

template <typename Function>
Function Entry(const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(::GetProcAddress(ComponentModule(), name)));
}

}  // namespace

std::wstring ComponentModulePath() {
  wchar_t path[MAX_PATH];
  ::GetModuleFileNameW(nullptr, path, MAX_PATH);
  std::wstring folder = path;
  folder.resize(folder.find_last_of(L"/\\") + 1);
  return folder + (sizeof(void*) == 8 ? L"levelwidgets_x64.dll" : L"levelwidgets_x86.dll");
}

HMODULE ComponentModule() {
  static const HMODULE module = ::LoadLibraryW(ComponentModulePath().c_str());
  return module;
}

HRESULT MakeComponent(std::string_view class_name, IUnknown* outer, REFIID iid, void** made) {
  using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
  const auto get = Entry<GetClassObject>("DllGetClassObject");
  const ClassIdentity* const identity = IdentityOf(class_name);
  const PageIdentity* const page = IdentityOfPage(class_name);
  if (!get || !(identity || page)) return CLASS_E_CLASSNOTAVAILABLE;
  ComPtr<IClassFactory> factory;
  const Guid& class_id = identity ? identity->class_id : page->class_id;
  const HRESULT found = get(Native(class_id), IID_IClassFactory, reinterpret_cast<void**>(factory.Receive()));
  return FAILED(found) ? found : factory->CreateInstance(outer, iid, made);
}

ComPtr<IUnknown> MakeComponent(std::string_view class_name, IUnknown* outer) {
  ComPtr<IUnknown> made;
  MakeComponent(class_name, outer, IID_IUnknown, reinterpret_cast<void**>(made.Receive()));
  return made;
}

HRESULT CanUnload() {
  const auto can = Entry<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow");
  return can ? can() : E_FAIL;
}

}  // namespace levelwidgets::activex
