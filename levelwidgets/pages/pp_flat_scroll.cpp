#include <levelwidgets/pages/registry.h>

namespace levelwidgets {

const PageInfo& ppFlatScroll() {
  static constexpr FieldInfo fields[] = {
      {.name = "txtValue", .kind = FieldKind::kText, .caption = "Value:"},
      {.name = "txtSmallChange", .kind = FieldKind::kText, .caption = "SmallChange:"},
      {.name = "txtLargeChange", .kind = FieldKind::kText, .caption = "LargeChange:"},
      {.name = "txtMax", .kind = FieldKind::kText, .caption = "Max:"},
      {.name = "txtMin", .kind = FieldKind::kText, .caption = "Min:"},
      {.name = "chkEnabled", .kind = FieldKind::kCheck, .caption = "Enabled"},
  };
  static constexpr FieldBinding bindings[] = {
      {"txtValue", "Value"},
      {"txtSmallChange", "SmallChange"},
      {"txtLargeChange", "LargeChange"},
      {"txtMax", "Max"},
      {"txtMin", "Min"},
      {"chkEnabled", "Enabled"},
  };
  static constexpr PageInfo info{"ppFlatScroll", "General", "FlatScroll", fields, bindings};
  return info;
}

}  // namespace levelwidgets
