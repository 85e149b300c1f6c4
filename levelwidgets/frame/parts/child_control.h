// A control as a part of another one, or of a panel of it.
#pragma once

#include <memory>
#include <string>

#include <levelwidgets/frame/control.h>

namespace levelwidgets {

// The container that a control is to its parts: ambient properties are those of the surface that holds it,
// keys and the focus are passed on to the owner, and code of the part keeps the owner alive.
class ChildSite : public ControlSite {
 public:
  ChildSite(PartHost& owner, std::string name);

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
  void FocusChanged(bool has_focus, WindowHandle other) override;
  bool HandsFocusOn(WindowHandle other, std::function<void()> settle) override {
    return owner_ && owner_->Site().HandsFocusOn(other, std::move(settle));
  }
  bool TakeKey(KeyMessage& key) override { return owner_ && owner_->TakeKey(key); }
  bool WasOffered(const KeyMessage& key) override { return owner_ && owner_->Site().WasOffered(key); }
  void InputArrived(InputKind kind) override;
  bool TakeError(std::string_view event, const Error& error) override {
    return container_->TakeError(event, error);
  }

 private:
  Platform& platform_;
  std::shared_ptr<ControlSite> container_;  // the owner's; takes errors after the owner has gone, too
  PartHost* owner_;
  std::string name_;
};

// What ChildControl does whatever the class of the control is.
class ChildPart : public WindowPart {
 public:
  ChildPart(const ChildPart&) = delete;
  ChildPart& operator=(const ChildPart&) = delete;

  WindowHandle hWnd() const override { return control_->GetSurface().hWnd(); }
  bool Holds(WindowHandle window) const override { return control_->Holds(window); }
  void OnHostGone() override { control_->Detached(); }

  TwipPoint Position() const { return position_; }
  TwipSize Size() const { return size_; }
  // In twips of the owner's surface; negative lengths count as 0.
  void Move(TwipPoint position, TwipSize size);
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  // Whether the part takes its turn when the focus goes round; kept for the owner.
  bool TabStop() const { return tab_stop_; }
  void SetTabStop(bool stop) { tab_stop_ = stop; }

 protected:
  using Factory = std::shared_ptr<Control> (*)(std::shared_ptr<ControlSite> site);
  ChildPart(PartHost& owner, std::string name, TwipSize size, Factory make);
  ~ChildPart() override;

  Control& Inner() const { return *control_; }

 private:
  PartHost& owner_;
  std::shared_ptr<ChildSite> site_;
  std::shared_ptr<Control> control_;
  TwipPoint position_;
  TwipSize size_;
  bool visible_ = false;
  bool tab_stop_ = true;
};

// A control of class T inside `owner`, placed as a loaded instance with nothing saved; hidden until shown.
// The owner talks to it through its public properties, methods and events.
template <typename T>
class ChildControl : public ChildPart {
 public:
  ChildControl(PartHost& owner, std::string name, TwipSize size)
      : ChildPart(owner, std::move(name), size, [](std::shared_ptr<ControlSite> site) {
          return std::shared_ptr<Control>(MakeControl<T>(std::move(site)));
        }) {}

  T* operator->() const { return &**this; }
  T& operator*() const { return static_cast<T&>(Inner()); }
};

}  // namespace levelwidgets
