#include <levelwidgets/activex/registration/system_registry.h>

#include <windows.h>

#include <levelwidgets/platform/win32/win32_text.h>

namespace levelwidgets {

namespace {

using win32::FromWide;
using win32::ToWide;

constexpr REGSAM kReadAndWrite = KEY_READ | KEY_WRITE;

void Demand(LSTATUS status, const char* doing, const std::string& key) {
  if (status != ERROR_SUCCESS) throw RegistryError(status, std::string(doing) + " the registry key " + key);
}

class OpenKey {
 public:
  // None where there is no such key.
  OpenKey(void* classes, const std::string& path, REGSAM access) {
    const LSTATUS status =
        ::RegOpenKeyExW(static_cast<HKEY>(classes), ToWide(path).c_str(), 0, access, &key_);
    if (status == ERROR_FILE_NOT_FOUND) return;
    Demand(status, "Opening", path);
  }
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;
  ~OpenKey() {
    if (key_) ::RegCloseKey(key_);
  }
  HKEY Get() const { return key_; }
  explicit operator bool() const { return key_ != nullptr; }

 private:
  HKEY key_ = nullptr;
};

std::optional<RegistryText> TextOf(const OpenKey& open, const std::string& key, const std::string& name) {
  if (!open) return std::nullopt;
  DWORD type = 0;
  DWORD bytes = 0;
  const std::wstring wide_name = ToWide(name);
  LSTATUS status = ::RegQueryValueExW(open.Get(), wide_name.c_str(), nullptr, &type, nullptr, &bytes);
  if (status == ERROR_FILE_NOT_FOUND || (type != REG_SZ && type != REG_EXPAND_SZ)) return std::nullopt;
  Demand(status, "Reading", key);
  std::wstring text(bytes / sizeof(wchar_t) + 1, L'\0');
  status = ::RegQueryValueExW(open.Get(), wide_name.c_str(), nullptr, &type,
                              reinterpret_cast<BYTE*>(text.data()), &bytes);
  Demand(status, "Reading", key);
  text.resize(text.find(L'\0'));
  return RegistryText{FromWide(text), type == REG_EXPAND_SZ};
}

// A 32-bit system has no part that programs of another bitness see.
bool SystemHasBothBitnesses() {
  if (sizeof(void*) == 8) return true;
  BOOL is_guest = FALSE;
  return ::IsWow64Process(::GetCurrentProcess(), &is_guest) && is_guest;
}

}  // namespace

SystemRegistry::SystemRegistry(RegistrationScope scope)
    : root_(scope == RegistrationScope::kMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER) {
  HKEY classes = nullptr;
  Demand(::RegCreateKeyExW(static_cast<HKEY>(root_), L"Software\\Classes", 0, nullptr, 0, kReadAndWrite,
                           nullptr, &classes, nullptr),
         "Opening", "Software\\Classes");
  classes_ = classes;
}

SystemRegistry::~SystemRegistry() { ::RegCloseKey(static_cast<HKEY>(classes_)); }

bool SystemRegistry::HasKey(const std::string& key) { return bool{OpenKey(classes_, key, KEY_READ)}; }

void SystemRegistry::CreateKey(const std::string& key) {
  HKEY created = nullptr;
  Demand(::RegCreateKeyExW(static_cast<HKEY>(classes_), ToWide(key).c_str(), 0, nullptr, 0, kReadAndWrite,
                           nullptr, &created, nullptr),
         "Creating", key);
  ::RegCloseKey(created);
}

bool SystemRegistry::IsEmpty(const std::string& key) {
  const OpenKey open(classes_, key, KEY_READ);
  if (!open) return true;
  DWORD keys = 0;
  DWORD values = 0;
  Demand(::RegQueryInfoKeyW(open.Get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                            nullptr, nullptr, nullptr),
         "Reading", key);
  return keys == 0 && values == 0;
}

void SystemRegistry::RemoveKey(const std::string& key) {
  const LSTATUS status = ::RegDeleteTreeW(static_cast<HKEY>(classes_), ToWide(key).c_str());
  if (status != ERROR_FILE_NOT_FOUND) Demand(status, "Removing", key);
}

std::optional<RegistryText> SystemRegistry::Text(const std::string& key, const std::string& name) {
  return TextOf(OpenKey(classes_, key, KEY_READ), key, name);
}

void SystemRegistry::SetText(const std::string& key, const std::string& name, const RegistryText& text) {
  const OpenKey open(classes_, key, kReadAndWrite);
  const std::wstring wide = ToWide(text.text);
  Demand(::RegSetValueExW(open.Get(), ToWide(name).c_str(), 0, text.expands ? REG_EXPAND_SZ : REG_SZ,
                          reinterpret_cast<const BYTE*>(wide.c_str()),
                          static_cast<DWORD>((wide.size() + 1) * sizeof(wchar_t))),
         "Writing", key);
}

void SystemRegistry::RemoveText(const std::string& key, const std::string& name) {
  const OpenKey open(classes_, key, kReadAndWrite);
  if (!open) return;
  const LSTATUS status = ::RegDeleteValueW(open.Get(), ToWide(name).c_str());
  if (status != ERROR_FILE_NOT_FOUND) Demand(status, "Writing", key);
}

std::optional<RegistryText> SystemRegistry::TextForOtherBitness(const std::string& key,
                                                                const std::string& name) {
  if (!SystemHasBothBitnesses()) return std::nullopt;
  const REGSAM other = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
  // From the root on: a key that is open already is one of this bitness.
  return TextOf(OpenKey(root_, "Software\\Classes\\" + key, KEY_READ | other), key, name);
}

}  // namespace levelwidgets
