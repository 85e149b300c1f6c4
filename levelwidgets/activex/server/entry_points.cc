// What the system calls in the library.
#include <levelwidgets/activex/com/module_life.h>
#include <levelwidgets/activex/registration/module_registration.h>
#include <levelwidgets/activex/server/class_factory.h>

extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID class_id, REFIID iid, LPVOID* found) {
  return levelwidgets::activex::FindClassFactory(class_id, iid, found);
}

extern "C" HRESULT STDAPICALLTYPE DllCanUnloadNow() {
  return levelwidgets::activex::ModuleLock::Count() == 0 ? S_OK : S_FALSE;
}

extern "C" HRESULT STDAPICALLTYPE DllRegisterServer() {
  return levelwidgets::RegisterModule(levelwidgets::RegistrationScope::kMachine);
}

extern "C" HRESULT STDAPICALLTYPE DllUnregisterServer() {
  return levelwidgets::UnregisterModule(levelwidgets::RegistrationScope::kMachine);
}

extern "C" HRESULT STDAPICALLTYPE DllInstall(BOOL install, LPCWSTR command_line) {
  return levelwidgets::InstallModule(install != FALSE, command_line);
}
