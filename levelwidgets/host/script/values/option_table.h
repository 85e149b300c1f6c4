// Reading the tables of named options that scripts pass.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/host/script/lua/realm.h>

namespace levelwidgets {

// The options in the table at a place of the stack, or none where there is nothing. Values are read by name;
// each raises 13 or 6, naming the option, when it does not convert.
class OptionTable {
 public:
  // Raises 438, with `owner` in the message, for a key that is not among `names`.
  OptionTable(lua_State* L, int index, std::string_view owner, std::vector<std::string_view> names,
              TextConversions texts = {});

  bool Has(std::string_view name) const;
  std::string Text(std::string_view name, std::string otherwise) const;
  std::int32_t Whole(std::string_view name, std::int32_t otherwise) const;
  Twips Length(std::string_view name, Twips otherwise) const;
  bool Truth(std::string_view name, bool otherwise) const;
  Variant Value(std::string_view name, const MemberType& type = {}) const;
  // The values of a list, up to the first nil; raises 13 for anything else.
  std::vector<Variant> List(std::string_view name, const MemberType& type) const;

 private:
  // The value as one of `type`; empty where there is none.
  Variant Converted(std::string_view name, VariantType type) const;

  lua_State* lua_;
  int table_;  // 0 for none
  std::string owner_;
  TextConversions texts_;
};

// The keys of the table at `index`, sorted; raises 13 when one is no text.
std::vector<std::string> KeysOfTable(lua_State* L, int index, std::string_view owner);

}  // namespace levelwidgets
