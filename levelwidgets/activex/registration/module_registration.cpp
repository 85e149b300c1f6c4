#include <levelwidgets/activex/registration/module_registration.h>

#include <windows.h>

#include <new>

#include <levelwidgets/activex/registration/registration.h>
#include <levelwidgets/platform/win32/win32_text.h>
#include <levelwidgets/platform/win32/window_class.h>

namespace levelwidgets {

namespace {

std::string ModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  while (true) {
    const DWORD room = static_cast<DWORD>(path.size());
    const DWORD length =
        ::GetModuleFileNameW(static_cast<HMODULE>(win32::ModuleInstance()), path.data(), room);
    if (length == 0) throw RegistryError(static_cast<long>(::GetLastError()), "Finding the library's file");
    if (length < room) return win32::FromWide(path.substr(0, length));
    path.resize(2 * path.size());
  }
}

LibraryFile ModuleFile() { return {ModulePath(), static_cast<int>(8 * sizeof(void*))}; }

template <typename Step>
long ResultOfRegistering(Step step) {
  try {
    step();
    return S_OK;
  } catch (const RegistryError& error) {
    return HRESULT_FROM_WIN32(static_cast<DWORD>(error.Code()));
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace

long RegisterModule(RegistrationScope scope) {
  return ResultOfRegistering([&] {
    SystemRegistry registry(scope);
    RegisterLibrary(registry, ModuleFile());
  });
}

long UnregisterModule(RegistrationScope scope) {
  return ResultOfRegistering([&] {
    SystemRegistry registry(scope);
    UnregisterLibrary(registry, ModuleFile().bits);
  });
}

long InstallModule(bool install, const wchar_t* command_line) {
  const std::wstring words = command_line ? command_line : L"";
  RegistrationScope scope = RegistrationScope::kMachine;
  if (::lstrcmpiW(words.c_str(), L"user") == 0) {
    scope = RegistrationScope::kUser;
  } else if (!words.empty() && ::lstrcmpiW(words.c_str(), L"machine") != 0) {
    return E_INVALIDARG;
  }
  return install ? RegisterModule(scope) : UnregisterModule(scope);
}

}  // namespace levelwidgets
