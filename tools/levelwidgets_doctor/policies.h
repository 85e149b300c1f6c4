// Rules of administrators about which libraries may be loaded.
#pragma once

#include <string>
#include <vector>

#include <tools/levelwidgets_doctor/facts.h>

namespace levelwidgets::doctor {

// Those that forbid one of the libraries, and those that cannot be read from here.
std::vector<PolicyFacts> FactsOfPolicies(const std::vector<std::string>& libraries);

// Whether a rule for `pattern`, a folder or a file with "*" and "?" in it, covers the file at `path`.
bool IsCovered(const std::string& path, const std::string& pattern);

}  // namespace levelwidgets::doctor
