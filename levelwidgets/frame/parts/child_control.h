// A control as a part of another one.
#pragma once

#include <memory>
#include <string>

#include <levelwidgets/frame/control.h>

namespace levelwidgets {

// The container that a control is to its parts: ambient properties are the owner's own surface, keys and the
// focus are passed on to the owner, and code of the part keeps the owner alive.
class ChildSite : public ControlSite {
 public:
  ChildSite(Control& owner, std::string name);

  void OwnerGone() { owner_ = nullptr; }

  Platform& GetPlatform() override { return platform_; }
  WindowHandle ParentWindow() override { return owner_ ? owner_->GetSurface().hWnd() : WindowHandle{}; }
  std::shared_ptr<void> ContainerReference() override { return owner_ ? owner_->Reference() : nullptr; }
  bool FocusByPress() override { return false; }
  bool UserMode() override { return owner_ && owner_->Site().UserMode(); }
  bool DisplayAsDefault() override { return false; }
  std::string DisplayName() override { return name_; }
  FontRef AmbientFont() override;
  Color AmbientBackColor() override { return owner_ ? owner_->GetSurface().BackColor() : Color(); }
  Color AmbientForeColor() override { return owner_ ? owner_->GetSurface().ForeColor() : Color(); }
  void PropertyChanged(std::string_view) override {}
  void FocusChanged(bool has_focus) override;
  bool TakeKey(const KeyMessage& key) override { return owner_ && owner_->Site().TakeKey(key); }

 private:
  Platform& platform_;
  Control* owner_;
  std::string name_;
};

// A control of class T inside `owner`, placed as a loaded instance with nothing saved; hidden until shown.
// The owner talks to it through its public properties, methods and events.
template <typename T>
class ChildControl {
 public:
  ChildControl(Control& owner, std::string name, TwipSize size)
      : site_(std::make_shared<ChildSite>(owner, std::move(name))),
        control_(MakeControl<T>(site_)),
        size_(size) {
    const PropertyBag nothing;
    control_->Start(&nothing, {}, size);
  }
  ChildControl(const ChildControl&) = delete;
  ChildControl& operator=(const ChildControl&) = delete;
  ~ChildControl() { site_->OwnerGone(); }

  T* operator->() const { return control_.get(); }
  T& operator*() const { return *control_; }

  TwipPoint Position() const { return position_; }
  TwipSize Size() const { return size_; }
  // In twips of the owner's surface; negative lengths count as 0.
  void Move(TwipPoint position, TwipSize size) {
    position_ = position;
    size_ = {std::max(size.width, Twips()), std::max(size.height, Twips())};
    control_->Move(position_, size_);
  }
  bool Visible() const { return visible_; }
  void SetVisible(bool visible) {
    visible_ = visible;
    control_->GetSurface().SetVisible(visible);
  }
  // Whether the part takes its turn when the focus goes round; kept for the owner.
  bool TabStop() const { return tab_stop_; }
  void SetTabStop(bool stop) { tab_stop_ = stop; }

 private:
  std::shared_ptr<ChildSite> site_;
  std::shared_ptr<T> control_;
  TwipPoint position_;
  TwipSize size_;
  bool visible_ = false;
  bool tab_stop_ = true;
};

}  // namespace levelwidgets
