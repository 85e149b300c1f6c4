// The members and identifiers that users have built on: what has once been listed does not change.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <levelwidgets/frame/class_info.h>

namespace levelwidgets {

// A line per member: class, kind (property, method, event), number, name, type.
std::vector<std::string> MemberLines(std::span<const ClassInfo* const> classes);

// A list of members and what has become of it.
struct FrozenMembers {
  // The list with the members that it lacks, each behind the others of its class. Nothing else differs.
  std::string text;
  std::vector<std::string> added;
  // Lines of the list that the members no longer say: removed, renamed, or of another number or type.
  std::vector<std::string> broken;
};

// Compares a list with the members (and identifiers, a line each as well) that there are. Lines of the list
// that begin with "#" are remarks.
FrozenMembers GrowFrozenMembers(std::string_view list, const std::vector<std::string>& members);

}  // namespace levelwidgets
