#include <levelwidgets/host/form_values.h>

namespace levelwidgets {

namespace {

template <bool FontDescription::*Member>
FontField Flag(std::string_view name) {
  return {name,
          {VariantType::kBoolean, "Boolean"},
          false,
          [](const FontDescription& font) -> Variant { return font.*Member; },
          [](FontDescription& font, const Variant& value) { font.*Member = ToBoolean(value); }};
}

}  // namespace

std::span<const FontField> FontFields() {
  static const FontField fields[] = {
      {"Name",
       {VariantType::kString, "String"},
       true,
       [](const FontDescription& font) -> Variant { return font.name; },
       [](FontDescription& font, const Variant& value) { font.name = ToText(value); }},
      {"Size",
       {VariantType::kDouble, "Double"},
       true,
       [](const FontDescription& font) -> Variant { return font.size; },
       [](FontDescription& font, const Variant& value) { font.size = ToDouble(value); }},
      Flag<&FontDescription::bold>("Bold"),
      Flag<&FontDescription::italic>("Italic"),
      Flag<&FontDescription::underline>("Underline"),
      Flag<&FontDescription::strikethrough>("Strikethrough"),
      {"Charset",
       {VariantType::kInt16, "Integer"},
       false,
       [](const FontDescription& font) -> Variant { return std::int32_t{font.charset}; },
       [](FontDescription& font, const Variant& value) { font.charset = ToInt16(value); }},
  };
  return fields;
}

}  // namespace levelwidgets
