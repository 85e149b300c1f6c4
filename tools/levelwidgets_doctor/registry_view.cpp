#include <tools/levelwidgets_doctor/registry_view.h>

#include <levelwidgets/platform/win32/win32_text.h>

namespace levelwidgets::doctor {

namespace {

using win32::FromWide;
using win32::ToWide;

class KeyToRead {
 public:
  KeyToRead(const RegistryRoot& root, const std::string& key, REGSAM flag) {
    if (::RegOpenKeyExW(root.key, ToWide(key).c_str(), 0, KEY_READ | flag, &key_)) key_ = nullptr;
  }
  KeyToRead(const KeyToRead&) = delete;
  KeyToRead& operator=(const KeyToRead&) = delete;
  ~KeyToRead() {
    if (key_) ::RegCloseKey(key_);
  }
  HKEY Get() const { return key_; }

 private:
  HKEY key_ = nullptr;
};

}  // namespace

std::optional<std::string> RegistryView::Text(const RegistryRoot& root, const std::string& key,
                                              const std::string& name) const {
  const KeyToRead open(root, key, flag_);
  if (!open.Get()) return std::nullopt;
  const std::wstring wide_name = ToWide(name);
  DWORD bytes = 0;
  constexpr DWORD kTexts = RRF_RT_REG_SZ;  // also those with variables, which it replaces
  if (::RegGetValueW(open.Get(), nullptr, wide_name.c_str(), kTexts, nullptr, nullptr, &bytes))
    return std::nullopt;
  std::wstring text(bytes / sizeof(wchar_t) + 1, L'\0');
  bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
  if (::RegGetValueW(open.Get(), nullptr, wide_name.c_str(), kTexts, nullptr, text.data(), &bytes)) {
    return std::nullopt;
  }
  text.resize(std::min(text.find(L'\0'), text.size()));
  return FromWide(text);
}

std::optional<DWORD> RegistryView::Number(const RegistryRoot& root, const std::string& key,
                                          const std::string& name) const {
  const KeyToRead open(root, key, flag_);
  DWORD number = 0;
  DWORD bytes = sizeof number;
  if (!open.Get() ||
      ::RegGetValueW(open.Get(), nullptr, ToWide(name).c_str(), RRF_RT_REG_DWORD, nullptr, &number, &bytes)) {
    return std::nullopt;
  }
  return number;
}

std::vector<std::string> RegistryView::Keys(const RegistryRoot& root, const std::string& key) const {
  std::vector<std::string> keys;
  const KeyToRead open(root, key, flag_);
  if (!open.Get()) return keys;
  for (DWORD i = 0;; ++i) {
    wchar_t name[256];
    DWORD length = 256;
    if (::RegEnumKeyExW(open.Get(), i, name, &length, nullptr, nullptr, nullptr, nullptr)) return keys;
    keys.push_back(FromWide(std::wstring_view(name, length)));
  }
}

}  // namespace levelwidgets::doctor
