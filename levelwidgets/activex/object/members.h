// The members of a class as late binding finds them: by numbers, and by names in any case of letters.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/frame/class_info.h>

namespace levelwidgets::activex {

// One of the two, or none.
struct Member {
  const PropertyInfo* property = nullptr;
  const MethodInfo* method = nullptr;

  explicit operator bool() const { return property || method; }
  std::string_view Name() const { return property ? property->name : method->name; }
  const ArgumentList& Arguments() const { return property ? property->indices : method->arguments; }
};

class MemberTable {
 public:
  // Made once for each class.
  static const MemberTable& Of(const ClassInfo& info);
  explicit MemberTable(const ClassInfo& info);

  const ClassInfo& Class() const { return info_; }
  // DISPID_UNKNOWN when there is no such member.
  DISPID IdOf(std::string_view name) const;
  // Of the argument of a member; a number that counts from 0.
  DISPID ArgumentIdOf(DISPID member, std::string_view argument) const;
  // By its number. DISPID_VALUE is the default member, DISPID_NEWENUM the one that enumerates, and the
  // numbers that containers know members of every control by (DISPID_ENABLED) stand for those that have the
  // names.
  Member Find(DISPID id) const;

 private:
  Member Named(std::string_view name) const;

  const ClassInfo& info_;
  std::vector<Member> members_;                  // by number
  std::unordered_map<std::string, DISPID> ids_;  // by the name in small letters
};

// Letters of ASCII, as in all names of members.
std::string InSmallLetters(std::string_view name);

// The name by which the container's numbers for what every control has are known ("Enabled" of
// DISPID_ENABLED); "" for any other number.
std::string_view StockName(DISPID id);

}  // namespace levelwidgets::activex
