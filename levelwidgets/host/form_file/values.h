// Single values of a form file: from its text to what a property takes, and back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <levelwidgets/host/form_file/document.h>

namespace levelwidgets {

class FormReport;

// What one key of a form file takes.
struct ValueType {
  MemberType shown;
  VariantType stored_as;
};

inline ValueType TypeOf(const PropertyInfo& property) { return {property.type, property.stored_as}; }

// The value of `node` as one of `type`; when it is not, reports that for `label` and returns nothing.
// Numbers out of the type's range are reported, never cut. An enumeration's items may be given by name.
std::optional<Variant> ReadValue(const FormNode& node, std::string_view label, const ValueType& type,
                                 FormReport& report);
// The value as whatever its text says; nothing when no property could hold it.
std::optional<Variant> ReadUntyped(const FormNode& node, const FormDocument& document);
// A string by itself, as Class, Name and Script are.
std::optional<std::string> ReadString(const FormNode& node, std::string_view label, FormReport& report);

// The value as TOML; `type` is of no kind for a value of unknown type. Raises 13 for what no file can hold
// (objects, empty), 6 for a date outside the years 1 to 9999.
std::string WriteValue(const Variant& value, const MemberType& type);
// A TOML string. Bytes that are not UTF-8 become the replacement character.
std::string WriteString(std::string_view text);

// Whether a font cannot be written without the part of it.
inline bool IsRequired(const PropertyInfo& font_part) {
  return font_part.defaults.when_read.kind == DefaultValue::Kind::kNone;
}

}  // namespace levelwidgets
