#include <levelwidgets/pages/page_items.h>
#include <levelwidgets/pages/registry.h>

namespace levelwidgets {

const PageInfo& ppFlatCalendar() {
  static constexpr FieldInfo fields[] = {
      {.name = "cmbFormat",
       .kind = FieldKind::kCombo,
       .caption = "Date Format:",
       .items = std::span(kFormatItems).last(7),
       .label = "lblDateFormat",
       .marks_by_choice_only = true},
      {.name = "chkEnabled", .kind = FieldKind::kCheck, .caption = "Enabled"},
  };
  static constexpr FieldBinding bindings[] = {
      {"cmbFormat", "DateFormat"},
      {"chkEnabled", "Enabled"},
  };
  static constexpr PageInfo info{"ppFlatCalendar", "General", "FlatCalendar", fields, bindings};
  return info;
}

}  // namespace levelwidgets
