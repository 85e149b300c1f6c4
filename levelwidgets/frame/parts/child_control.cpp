#include <levelwidgets/frame/parts/child_control.h>

namespace levelwidgets {

ChildSite::ChildSite(Control& owner, std::string name)
    : platform_(owner.Site().GetPlatform()), owner_(&owner), name_(std::move(name)) {}

FontRef ChildSite::AmbientFont() {
  return MakeFont(owner_ ? owner_->GetSurface().GetFont()->Description() : FontDescription{});
}

void ChildSite::FocusChanged(bool has_focus) {
  if (owner_) owner_->FocusChanged(has_focus);
}

}  // namespace levelwidgets
