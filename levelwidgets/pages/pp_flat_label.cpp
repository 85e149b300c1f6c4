#include <levelwidgets/pages/page_items.h>
#include <levelwidgets/pages/registry.h>

namespace levelwidgets {

const PageInfo& ppFlatLabel() {
  static constexpr FieldInfo fields[] = {
      {.name = "txtCaption", .kind = FieldKind::kText, .caption = "Caption:"},
      {.name = "chkEnabled", .kind = FieldKind::kCheck, .caption = "Enabled"},
      {.name = "cmbAlignment", .kind = FieldKind::kList, .caption = "Alignment:", .items = kAlignmentItems},
      {.name = "chkMouseUnderline", .kind = FieldKind::kCheck, .caption = "Mouse Underline"},
  };
  static constexpr FieldBinding bindings[] = {
      {"txtCaption", "Caption"},
      {"chkEnabled", "Enabled"},
      {"cmbAlignment", "Alignment"},
      {"chkMouseUnderline", "MouseUnderline"},
  };
  static constexpr PageInfo info{"ppFlatLabel", "General", "FlatLabel", fields, bindings};
  return info;
}

}  // namespace levelwidgets
