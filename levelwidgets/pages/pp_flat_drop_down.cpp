#include <levelwidgets/pages/page_items.h>
#include <levelwidgets/pages/registry.h>

namespace levelwidgets {

const PageInfo& ppFlatDropDown() {
  static constexpr FieldInfo fields[] = {
      {.name = "txtDropDownWidth", .kind = FieldKind::kText, .caption = "DropDownWidth:"},
      {.name = "txtListIndex", .kind = FieldKind::kText, .caption = "ListIndex:"},
      {.name = "txtTopIndex", .kind = FieldKind::kText, .caption = "TopIndex:"},
      {.name = "txtText", .kind = FieldKind::kText, .caption = "Text:"},
      {.name = "chkEnabled", .kind = FieldKind::kCheck, .caption = "Enabled"},
      {.name = "cmbAlignment", .kind = FieldKind::kList, .caption = "Alignment:", .items = kAlignmentItems},
      {.name = "chkAutoComplete", .kind = FieldKind::kCheck, .caption = "AutoComplete"},
  };
  static constexpr FieldBinding bindings[] = {
      {"txtDropDownWidth", "DropDownWidth"},
      {"txtListIndex", "ListIndex"},
      {"txtTopIndex", "TopIndex"},
      {"txtText", "Text"},
      {"chkEnabled", "Enabled"},
      {"cmbAlignment", "Alignment"},
      {"chkAutoComplete", "AutoComplete"},
  };
  static constexpr PageInfo info{"ppFlatDropDown", "General", "FlatDropDown", fields, bindings};
  return info;
}

}  // namespace levelwidgets
