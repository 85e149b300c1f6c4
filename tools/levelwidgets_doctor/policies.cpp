#include <tools/levelwidgets_doctor/policies.h>

#include <algorithm>
#include <cctype>

#include <tools/levelwidgets_doctor/registry_view.h>

namespace levelwidgets::doctor {

namespace {

constexpr char kRestrictions[] = "SOFTWARE\\Policies\\Microsoft\\Windows\\Safer\\CodeIdentifiers";
constexpr char kLibraryRules[] = "SOFTWARE\\Policies\\Microsoft\\Windows\\SrpV2\\Dll";
constexpr DWORD kProgramsAndLibraries = 2;
constexpr DWORD kDisallowed = 0;
constexpr DWORD kEnforced = 1;

constexpr int kNativeBits = 64;  // policies are the same for both

// The first rule of the level for a folder or file that covers the library; "" for none.
std::string CoveringRule(const RegistryRoot& root, const std::string& level, const std::string& library) {
  const RegistryView registry(kNativeBits);
  const std::string rules = std::string(kRestrictions) + "\\" + level + "\\Paths";
  for (const std::string& rule : registry.Keys(root, rules)) {
    const std::string key = rules + "\\" + rule;
    const auto pattern = registry.Text(root, key, "ItemData");
    if (pattern && IsCovered(library, *pattern))
      return std::string(root.name) + "\\" + key + " (" + *pattern + ")";
  }
  return "";
}

void AddRestrictions(const RegistryRoot& root, const std::vector<std::string>& libraries,
                     std::vector<PolicyFacts>& policies) {
  const RegistryView registry(kNativeBits);
  if (registry.Number(root, kRestrictions, "TransparentEnabled") != kProgramsAndLibraries) return;
  const bool only_what_is_allowed = registry.Number(root, kRestrictions, "DefaultLevel") == kDisallowed;
  for (const std::string& library : libraries) {
    const std::string forbidding = CoveringRule(root, "0", library);
    if (!forbidding.empty()) {
      policies.push_back({forbidding, library});
    } else if (only_what_is_allowed && CoveringRule(root, "262144", library).empty()) {
      policies.push_back(
          {std::string(root.name) + "\\" + kRestrictions + " (DefaultLevel 0: only what is allowed)",
           library});
    }
  }
}

}  // namespace

bool IsCovered(const std::string& path, const std::string& pattern) {
  const auto same = [](char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
  };
  // Where the last "*" stands in the pattern, and up to where it has taken the path.
  std::size_t star = std::string::npos;
  std::size_t taken = 0;
  std::size_t at = 0;
  std::size_t in_pattern = 0;
  while (at < path.size()) {
    // A pattern that ends at a folder covers what is in it.
    if (in_pattern == pattern.size() && in_pattern > 0 && (path[at] == '\\' || pattern.back() == '\\'))
      return true;
    if (in_pattern < pattern.size() && pattern[in_pattern] == '*') {
      star = in_pattern++;
      taken = at;
    } else if (in_pattern < pattern.size() &&
               (pattern[in_pattern] == '?' || same(pattern[in_pattern], path[at]))) {
      ++in_pattern;
      ++at;
    } else if (star != std::string::npos) {
      in_pattern = star + 1;
      at = ++taken;
    } else {
      return false;
    }
  }
  while (in_pattern < pattern.size() && pattern[in_pattern] == '*') ++in_pattern;
  return in_pattern == pattern.size();
}

std::vector<PolicyFacts> FactsOfPolicies(const std::vector<std::string>& libraries) {
  std::vector<PolicyFacts> policies;
  AddRestrictions(kMachineRoot, libraries, policies);
  AddRestrictions(kUserRoot, libraries, policies);
  const RegistryView registry(kNativeBits);
  if (registry.Number(kMachineRoot, kLibraryRules, "EnforcementMode") == kEnforced &&
      !registry.Keys(kMachineRoot, kLibraryRules).empty()) {
    policies.push_back({std::string(kMachineRoot.name) + "\\" + kLibraryRules, ""});
  }
  return policies;
}

}  // namespace levelwidgets::doctor
