#include <levelwidgets/pages/registry.h>

namespace levelwidgets {

const PageInfo& ppFlatButton() {
  static constexpr FieldInfo fields[] = {
      {.name = "txtCaption", .kind = FieldKind::kText, .caption = "Caption:"},
      {.name = "chkEnabled", .kind = FieldKind::kCheck, .caption = "Enabled"},
  };
  static constexpr FieldBinding bindings[] = {
      {"txtCaption", "Caption"},
      {"chkEnabled", "Enabled"},
  };
  static constexpr PageInfo info{"ppFlatButton", "General", "FlatButton", fields, bindings};
  return info;
}

}  // namespace levelwidgets
