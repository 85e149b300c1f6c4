#include <levelwidgets/frame/parts/child_control.h>

#include <algorithm>

namespace levelwidgets {

ChildSite::ChildSite(PartHost& owner, std::string name)
    : platform_(owner.Site().GetPlatform()),
      container_(owner.SharedSite()),
      owner_(&owner),
      name_(std::move(name)) {}

FontRef ChildSite::AmbientFont() {
  return MakeFont(owner_ ? owner_->GetSurface().GetFont()->Description() : FontDescription{});
}

void ChildSite::InputArrived(InputKind kind) {
  if (owner_) owner_->Site().InputArrived(kind);
}

void ChildSite::FocusChanged(bool has_focus, WindowHandle other) {
  if (owner_) owner_->PartFocus(has_focus, other);
}

ChildPart::ChildPart(PartHost& owner, std::string name, TwipSize size, Factory make)
    : owner_(owner),
      site_(std::make_shared<ChildSite>(owner, std::move(name))),
      control_(make(site_)),
      size_(size) {
  owner_.AddPart(*this);
  const PropertyBag nothing;
  control_->Start(&nothing, {}, size);
}

ChildPart::~ChildPart() {
  owner_.RemovePart(*this);
  site_->OwnerGone();
}

void ChildPart::Move(TwipPoint position, TwipSize size) {
  position_ = position;
  size_ = {std::max(size.width, Twips()), std::max(size.height, Twips())};
  control_->Move(position_, size_);
}

void ChildPart::SetVisible(bool visible) {
  visible_ = visible;
  control_->Show(visible);
}

}  // namespace levelwidgets
