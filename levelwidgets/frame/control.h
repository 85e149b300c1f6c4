// The base of every control.
#pragma once

#include <memory>
#include <string_view>

#include <levelwidgets/frame/class_table.h>
#include <levelwidgets/frame/control_site.h>
#include <levelwidgets/frame/error.h>
#include <levelwidgets/frame/event.h>
#include <levelwidgets/frame/input.h>
#include <levelwidgets/frame/property_bag.h>
#include <levelwidgets/frame/surface_window.h>

namespace levelwidgets {

// Argument names of the standard events, for the tables.
inline const std::vector<std::string> kKeyArguments{"KeyCode", "Shift"};
inline const std::vector<std::string> kCharacterArguments{"KeyAscii"};
inline const std::vector<std::string> kPointerArguments{"Button", "Shift", "X", "Y"};

// What ReadProperties raises when the control refuses a saved value: the control's error, with the property.
class PropertyRefused : public Error {
 public:
  PropertyRefused(std::string property, const Error& error) : Error(error), property_(std::move(property)) {}
  const std::string& Property() const { return property_; }

 private:
  std::string property_;
};

// Controls are shared: the container holds one reference, and whatever is running a control's code (a
// message, a timer tick, a call by name) holds another, so that a listener which removes the control destroys
// it only after the control's own code has returned. Terminate runs when the last reference goes.
class Control : public Object, public SurfaceWindow, public std::enable_shared_from_this<Control> {
 public:
  ~Control() override = default;

  // --- Standard events --------------------------------------------------------------------------
  // Each control's table says which of these it has, under which number.

  Event<> Click;
  Event<> DblClick;
  Event<std::int16_t, std::int16_t> KeyDown;
  Event<std::int16_t&> KeyPress;
  Event<std::int16_t, std::int16_t> KeyUp;
  Event<std::int16_t, std::int16_t, Twips, Twips> MouseDown;
  Event<std::int16_t, std::int16_t, Twips, Twips> MouseMove;
  Event<std::int16_t, std::int16_t, Twips, Twips> MouseUp;

  // --- For the container ------------------------------------------------------------------------

  ControlSite& Site() const final { return *site_; }

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
  // The container has given the control up: it leaves the screen with all that it has on the desktop.
  void Detached();

  // --- Notifications ----------------------------------------------------------------------------
  // The defaults do what every control does: persist by the class table, raise the standard event of the
  // same name. Destruction is the last notification: OnTerminate.

  virtual void OnInitialize() {}
  virtual void OnInitProperties() {}
  virtual void OnReadProperties(const PropertyBag& bag);
  virtual void OnWriteProperties(PropertyBag& bag) const;
  virtual void OnResize() {}
  virtual void OnAmbientChanged(std::string_view) {}
  virtual void OnEnterFocus() {}
  virtual void OnExitFocus() {}
  virtual void OnAccessKeyPress(std::int16_t /*key_ascii*/) {}
  void OnClick() override { Click.Raise(); }
  void OnDblClick() override { DblClick.Raise(); }
  void OnKeyDown(std::int16_t code, std::int16_t shift) override { KeyDown.Raise(code, shift); }
  void OnKeyPress(std::int16_t& key_ascii) override { KeyPress.Raise(key_ascii); }
  void OnKeyUp(std::int16_t code, std::int16_t shift) override { KeyUp.Raise(code, shift); }
  void OnMouseDown(const PointerInput& input) override { Raise(MouseDown, input); }
  void OnMouseMove(const PointerInput& input) override { Raise(MouseMove, input); }
  void OnMouseUp(const PointerInput& input) override { Raise(MouseUp, input); }
  virtual void OnTerminate() {}

  static void Raise(const Event<std::int16_t, std::int16_t, Twips, Twips>& event, const PointerInput& input) {
    event.Raise(input.button, input.shift, input.at.x, input.at.y);
  }

  // --- For the parts of a composed control --------------------------------------------------------

  // The focus moving from one window of the control to another is neither entering nor leaving it.
  void PartFocus(bool has_focus, WindowHandle other) final;
  bool TakeKey(KeyMessage& key) final { return site_->TakeKey(key); }

 protected:
  Control(std::shared_ptr<ControlSite> site, SurfaceLook look);

  // Tells the container that the persisted property `name` changed. A listener may destroy the control.
  void PropertyChanged(std::string_view name) { site_->PropertyChanged(name); }

  bool FocusByPress() const override { return site_->FocusByPress(); }

 private:
  std::shared_ptr<ControlSite> site_;
  bool started_ = false;
  bool focused_ = false;
};

// Makes a control of class T whose last notification, Terminate, runs before its destruction.
template <typename T>
std::shared_ptr<T> MakeControl(std::shared_ptr<ControlSite> site) {
  return std::shared_ptr<T>(new T(std::move(site)), [](T* control) {
    control->OnTerminate();
    delete control;
  });
}

// Begins the table of class T.
template <typename T>
ClassTable Describe(std::string name, std::string help) {
  ClassTable table(std::move(name), std::move(help));
  if constexpr (std::derived_from<T, Control>) {
    table.CreatedBy([](std::shared_ptr<ControlSite> site) -> std::shared_ptr<Control> {
      return MakeControl<T>(std::move(site));
    });
  }
  return table;
}

}  // namespace levelwidgets
