// What descriptions of classes have in common: values and defaults as they are shown.
#pragma once

#include <string>
#include <string_view>

#include <nlohmann/json_fwd.hpp>

#include <levelwidgets/frame/class_info.h>

namespace levelwidgets {

// A colour is a number from 0 to 0xFFFFFFFF, a font an object of its parts, a date as form files write it;
// null for what has no such form.
nlohmann::ordered_json JsonOfValue(const Variant& value, const MemberType& type = {});
// A fixed default as above, "ambient Font" and so on for one that the container gives, null for none.
nlohmann::ordered_json JsonOfDefault(const DefaultValue& value, const MemberType& type);

// As it is written in a form file; colours are hexadecimal.
std::string TextOfDefault(const DefaultValue& value, const MemberType& type);
// One default, or `new A, loaded B, not saved C` where they differ.
std::string TextOfDefaults(const PropertyInfo& property);
bool HasDefault(const PropertyInfo& property);
// The first keys of a persisted collection, each in `quote`s: its count, and the first item's.
std::string ListOfKeys(const PropertyInfo& collection, std::string_view quote);

// As Markdown shows it, in a table as well; "" for nothing.
std::string Code(std::string_view text);

// "(Index: Integer, by reference Cancel: Boolean)"
std::string TextOfArguments(const ArgumentList& arguments);

}  // namespace levelwidgets
