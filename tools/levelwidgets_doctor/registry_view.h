// The registry as programs of one bitness see it, for reading.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace levelwidgets::doctor {

// A key of the system's that all find by a name.
struct RegistryRoot {
  HKEY key;
  const char* name;  // "HKEY_LOCAL_MACHINE"
};
inline const RegistryRoot kUserRoot{HKEY_CURRENT_USER, "HKEY_CURRENT_USER"};
inline const RegistryRoot kMachineRoot{HKEY_LOCAL_MACHINE, "HKEY_LOCAL_MACHINE"};
inline const RegistryRoot kUsersRoot{HKEY_USERS, "HKEY_USERS"};

class RegistryView {
 public:
  explicit RegistryView(int bits) : flag_(bits == 64 ? KEY_WOW64_64KEY : KEY_WOW64_32KEY) {}

  // None where there is no such text. Names of environment variables are replaced.
  std::optional<std::string> Text(const RegistryRoot& root, const std::string& key,
                                  const std::string& name) const;
  std::optional<DWORD> Number(const RegistryRoot& root, const std::string& key,
                              const std::string& name) const;
  // The keys right below it; none where it is not there.
  std::vector<std::string> Keys(const RegistryRoot& root, const std::string& key) const;

 private:
  REGSAM flag_;
};

}  // namespace levelwidgets::doctor
