// A registry of a test's own, which this process sees instead of the machine's and the user's.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include <levelwidgets/platform/win32/win32_text.h>

namespace levelwidgets {

// Everything below `key`: "path", "path [name] = text"; values of other kinds than texts by their kind.
inline void AddRegistryLines(HKEY key, const std::string& path, std::vector<std::string>& lines) {
  wchar_t name[512];
  DWORD length = 0;
  for (DWORD i = 0;; ++i) {
    wchar_t text[1024] = {};
    DWORD type = 0;
    DWORD bytes = sizeof text - sizeof(wchar_t);
    length = 512;
    if (::RegEnumValueW(key, i, name, &length, nullptr, &type, reinterpret_cast<BYTE*>(text), &bytes)) break;
    lines.push_back(path + " [" + win32::FromWide(std::wstring_view(name, length)) +
                    "] = " + (type == REG_SZ ? win32::FromWide(text) : "kind " + std::to_string(type)));
  }
  for (DWORD i = 0;; ++i) {
    length = 512;
    if (::RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr)) break;
    const std::string inner =
        path + (path.empty() ? "" : "\\") + win32::FromWide(std::wstring_view(name, length));
    lines.push_back(inner);
    HKEY opened = nullptr;
    if (::RegOpenKeyExW(key, name, 0, KEY_READ, &opened)) continue;
    AddRegistryLines(opened, inner, lines);
    ::RegCloseKey(opened);
  }
}

class OverriddenRegistry {
 public:
  OverriddenRegistry() {
    const std::wstring name = L"Software\\LevelWidgetsTests" + std::to_wstring(::GetCurrentProcessId());
    ::RegCreateKeyW(HKEY_CURRENT_USER, name.c_str(), &key_);
    ::RegCreateKeyW(key_, L"machine", &machine_);
    ::RegCreateKeyW(key_, L"user", &user_);
    ::RegCreateKeyW(key_, L"classes", &classes_);
    ::RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine_);
    ::RegOverridePredefKey(HKEY_CLASSES_ROOT, classes_);
    ::RegOverridePredefKey(HKEY_CURRENT_USER, user_);
  }
  OverriddenRegistry(const OverriddenRegistry&) = delete;
  OverriddenRegistry& operator=(const OverriddenRegistry&) = delete;
  ~OverriddenRegistry() {
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_CLASSES_ROOT, HKEY_LOCAL_MACHINE}) {
      ::RegOverridePredefKey(root, nullptr);
    }
    ::RegDeleteTreeW(key_, nullptr);
    for (const HKEY key : {machine_, user_, classes_, key_}) ::RegCloseKey(key);
    const std::wstring name = L"Software\\LevelWidgetsTests" + std::to_wstring(::GetCurrentProcessId());
    ::RegDeleteKeyW(HKEY_CURRENT_USER, name.c_str());
  }

  HKEY Machine() const { return machine_; }
  HKEY User() const { return user_; }
  // What the system itself takes for the classes of all.
  HKEY Classes() const { return classes_; }

  static std::vector<std::string> LinesOf(HKEY key) {
    std::vector<std::string> lines;
    AddRegistryLines(key, "", lines);
    return lines;
  }

 private:
  HKEY key_ = nullptr;
  HKEY machine_ = nullptr;
  HKEY user_ = nullptr;
  HKEY classes_ = nullptr;
};

}  // namespace levelwidgets
