#include <levelwidgets/pages/registry.h>

namespace levelwidgets {

const PageInfo& ppFlatGrid() {
  static constexpr FieldInfo fields[] = {
      {.name = "chkAllowEdits", .kind = FieldKind::kCheck, .caption = "Allow Edits"},
      {.name = "chkEnabled", .kind = FieldKind::kCheck, .caption = "Enabled"},
      {.name = "chkHideSelection", .kind = FieldKind::kCheck, .caption = "Hide Selection"},
      {.name = "chkShowCellFocus", .kind = FieldKind::kCheck, .caption = "Show Cell Focus"},
      {.name = "chkShowColumnHeaders", .kind = FieldKind::kCheck, .caption = "Show Column Headers"},
      {.name = "chkShowGridLines", .kind = FieldKind::kCheck, .caption = "Show Grid Lines"},
      {.name = "txtRowCount", .kind = FieldKind::kText, .caption = "Row Count:", .label = "lblRowCount"},
      {.name = "txtRowHeight", .kind = FieldKind::kText, .caption = "Row Height:", .label = "lblRowHeight"},
  };
  static constexpr FieldBinding bindings[] = {
      {"chkAllowEdits", "AllowEdits"},
      {"chkEnabled", "Enabled"},
      {"chkHideSelection", "HideSelection"},
      {"chkShowCellFocus", "ShowCellFocus"},
      {"chkShowColumnHeaders", "ShowColumnHeaders"},
      {"chkShowGridLines", "ShowGridLines"},
      {"txtRowCount", "RowCount"},
      {"txtRowHeight", "RowHeight"},
  };
  static constexpr PageInfo info{"ppFlatGrid", "General", "FlatGrid", fields, bindings};
  return info;
}

}  // namespace levelwidgets
