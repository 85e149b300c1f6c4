#include <levelwidgets/pages/page_items.h>
#include <levelwidgets/pages/registry.h>

namespace levelwidgets {

const PageInfo& ppFlatTextBox() {
  static constexpr FieldInfo fields[] = {
      {.name = "cmbAlignment", .kind = FieldKind::kList, .caption = "Alignment:", .items = kAlignmentItems},
      {.name = "txtPasswordChar", .kind = FieldKind::kText, .caption = "Password Char:"},
      {.name = "chkMultiLine", .kind = FieldKind::kCheck, .caption = "MultiLine"},
      {.name = "txtMaxLength", .kind = FieldKind::kText, .caption = "Max Length:"},
      {.name = "txtText", .kind = FieldKind::kText, .caption = "Text:"},
      {.name = "chkEnabled", .kind = FieldKind::kCheck, .caption = "Enabled"},
  };
  static constexpr FieldBinding bindings[] = {
      {"cmbAlignment", "Alignment"}, {"txtPasswordChar", "PasswordChar"},
      {"chkMultiLine", "MultiLine"}, {"txtMaxLength", "MaxLength"},
      {"txtText", "Text"},           {"chkEnabled", "Enabled"},
  };
  static constexpr PageInfo info{"ppFlatTextBox", "General", "FlatTextBox", fields, bindings};
  return info;
}

}  // namespace levelwidgets
