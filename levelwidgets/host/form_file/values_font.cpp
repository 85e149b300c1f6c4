#include <levelwidgets/host/form_file/values.h>

#include <cmath>

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

// A size that no form file could hold is none.
void SetSize(FontDescription& font, const Variant& value) {
  const double size = ToDouble(value);
  if (!std::isfinite(size) || size <= 0) {
    throw Error(kInvalidPropertyValue, "LevelWidgets.Font", "a size is more than 0 points");
  }
  font.size = size;
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
       SetSize},
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
