// The base of every control.
#pragma once

#include <memory>
#include <string_view>
#include <type_traits>

#include <levelwidgets/frame/class_table.h>
#include <levelwidgets/frame/control_site.h>
#include <levelwidgets/frame/error.h>
#include <levelwidgets/frame/input.h>
#include <levelwidgets/frame/persistence.h>
#include <levelwidgets/frame/property_bag.h>
#include <levelwidgets/frame/surface_window.h>

namespace levelwidgets {

// Argument names of the standard events, for the tables.
inline constexpr std::string_view kKeyArguments = "KeyCode, Shift";
inline constexpr std::string_view kCharacterArguments = "KeyAscii";
inline constexpr std::string_view kPointerArguments = "Button, Shift, X, Y";

// What follows when a property has got its value, in this order.
enum class Then { kNotify, kRepaint, kRepaintThenNotify, kNotifyThenRepaint };

// Controls are shared: the container holds one reference, and whatever is running a control's code (a
// message, a timer tick, a call by name) holds another, so that a listener which removes the control destroys
// it only after the control's own code has returned. Terminate runs when the last reference goes.
class Control : public Object, public SurfaceWindow, public std::enable_shared_from_this<Control> {
 public:
  ~Control() override;

  // --- For the container ------------------------------------------------------------------------

  ControlSite& Site() const final { return *site_; }
  std::shared_ptr<ControlSite> SharedSite() const final { return site_; }

  // Brings a created instance to life: places its surface, then Initialize, InitProperties for a new one (no
  // bag) or ReadProperties for a loaded one, and Resize.
  void Start(const PropertyBag* saved, TwipPoint position, TwipSize size);
  // Whether it has its properties; from then on changes are the user's.
  bool Started() const { return started_; }
  // What keeps the control alive while its code runs: itself, or the control that it is a part of. Null
  // before it is alive and when it is being destroyed.
  std::shared_ptr<void> Reference() const final;
  // Places the control; Resize follows when the size changed.
  void Move(TwipPoint position, TwipSize size);
  // Shows or hides the control. The focus goes from a hidden one to its parent's window.
  void Show(bool visible);
  // The container has given the control up: it leaves the screen with all that it has on the desktop.
  void Detached();

  // --- Notifications ----------------------------------------------------------------------------
  // Besides those of its window. The defaults do what every control does: persist by the class table.
  // Destruction is the last notification: OnTerminate.

  virtual void OnInitialize() {}
  virtual void OnInitProperties() {}
  virtual void OnReadProperties(const PropertyBag& bag);
  virtual void OnWriteProperties(PropertyBag& bag) const;
  virtual void OnResize() {}
  virtual void OnAmbientChanged(std::string_view) {}
  virtual void OnEnterFocus() {}
  virtual void OnExitFocus() {}
  virtual void OnAccessKeyPress(std::int16_t /*key_ascii*/) {}
  // A key on its way to the control or to a part of it, before its container and the part see it. The control
  // may change it; true when it has used it: nobody else sees it then, nor the character that a key down
  // types.
  virtual bool OnKeyPreview(KeyMessage&) { return false; }
  virtual void OnTerminate() {}

  // --- For the parts of a composed control --------------------------------------------------------

  // The focus moving from one window of the control to another is neither entering nor leaving it.
  void PartFocus(bool has_focus, WindowHandle other) final;
  // The control sees the key first, then its container.
  bool TakeKey(KeyMessage& key) final;

 protected:
  Control(std::shared_ptr<ControlSite> site, SurfaceLook look);

  // Notifies the container that the persisted property `name` changed. A listener may destroy the control.
  void PropertyChanged(std::string_view name) { site_->PropertyChanged(name); }

  // The steps of a setter after its checks: `apply` stores the value and hands it on, then comes what `then`
  // says.
  template <typename Apply>
  void Assign(std::string_view name, Then then, Apply apply) {
    const auto keep = Reference();
    apply();
    Finish(name, then);
  }
  // For a value that is only stored.
  template <typename T>
  void Store(std::string_view name, Then then, T& member, std::type_identity_t<T> value) {
    member = std::move(value);
    Finish(name, then);
  }
  // Enables or disables the surface. A disabled control has no focus, its parts included.
  void Enable(bool enabled);

  bool FocusByPress() const override { return site_->FocusByPress(); }

 private:
  void Finish(std::string_view name, Then then);
  void ChangeFocused(bool has_focus, WindowHandle other);
  void SettleFocus();

  std::shared_ptr<ControlSite> site_;
  bool started_ = false;
  bool focused_ = false;
  UsedKey used_key_;
};

// Makes a control of class T whose last notification, Terminate, runs before its destruction.
template <typename T>
std::shared_ptr<T> MakeControl(std::shared_ptr<ControlSite> site) {
  return std::shared_ptr<T>(new T(std::move(site)), [](T* control) {
    control->OnTerminate();
    delete control;
  });
}

// The head of the table of control T. `default_size` is that of one that is placed without a size.
template <typename T>
constexpr ClassHead ControlClass(std::string_view name, std::string_view help,
                                 TwipSize default_size = ClassHead().default_size) {
  ClassHead head{name, help, default_size};
  head.create = [](std::shared_ptr<ControlSite> site) -> std::shared_ptr<Control> {
    return MakeControl<T>(std::move(site));
  };
  return head;
}

}  // namespace levelwidgets
