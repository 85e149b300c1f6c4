#include <levelwidgets/pages/page_items.h>
#include <levelwidgets/pages/registry.h>

namespace levelwidgets {

const PageInfo& ppFlatCalculator() {
  static constexpr FieldInfo fields[] = {
      {.name = "cmbFormatString",
       .kind = FieldKind::kCombo,
       .caption = "FormatString:",
       .items = kFormatItems,
       .marks_by_choice_only = true},
      {.name = "chkEnabled", .kind = FieldKind::kCheck, .caption = "Enabled"},
      {.name = "cmbAlignment", .kind = FieldKind::kList, .caption = "Alignment:", .items = kAlignmentItems},
  };
  static constexpr FieldBinding bindings[] = {
      {"cmbFormatString", "FormatString"},
      {"chkEnabled", "Enabled"},
      {"cmbAlignment", "Alignment"},
  };
  static constexpr PageInfo info{"ppFlatCalculator", "General", "FlatCalculator", fields, bindings};
  return info;
}

}  // namespace levelwidgets
