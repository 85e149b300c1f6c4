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
#include <levelwidgets/frame/surface.h>

namespace levelwidgets {

// Argument names of the standard events, for the tables.
inline const std::vector<std::string> kKeyArguments{"KeyCode", "Shift"};
inline const std::vector<std::string> kCharacterArguments{"KeyAscii"};
inline const std::vector<std::string> kPointerArguments{"Button", "Shift", "X", "Y"};

// A part of a control that is a window of the system's inside the control's own, such as an edit box.
class WindowPart {
 public:
  virtual ~WindowPart() = default;
  virtual WindowHandle hWnd() const = 0;
  // A message that the part's window has sent to the control's: kWmCommand or a colour request. True when
  // handled.
  virtual bool OnParentMessage(std::uint32_t message, WParam wparam, LResult& result) = 0;
};

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
//
// Notifications carry "On", because the events raised from them have the same names.
class Control : public Object, public WindowClient, public std::enable_shared_from_this<Control> {
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

  Surface& GetSurface() { return surface_; }
  const Surface& GetSurface() const { return surface_; }
  ControlSite& Site() const { return *site_; }

  // Brings a created instance to life: places its surface, then Initialize, InitProperties for a new one (no
  // bag) or ReadProperties for a loaded one, and Resize.
  void Start(const PropertyBag* saved, TwipPoint position, TwipSize size);
  // Whether it has its properties; from then on changes are the user's.
  bool Started() const { return started_; }
  // What keeps the control alive while its code runs: itself, or the control that it is a part of. Null
  // before it is alive and when it is being destroyed.
  std::shared_ptr<void> Reference() const;
  // Places the control; Resize follows when the size changed.
  void Move(TwipPoint position, TwipSize size);

  // --- Notifications ----------------------------------------------------------------------------
  // The defaults do what every control does: persist by the class table, raise the standard event of the
  // same name. Destruction is the last notification: OnTerminate.

  virtual void OnInitialize() {}
  virtual void OnInitProperties() {}
  virtual void OnReadProperties(const PropertyBag& bag);
  virtual void OnWriteProperties(PropertyBag& bag) const;
  virtual void OnResize() {}
  virtual void OnPaint() {}
  virtual void OnAmbientChanged(std::string_view) {}
  virtual void OnEnterFocus() {}
  virtual void OnExitFocus() {}
  virtual void OnAccessKeyPress(std::int16_t /*key_ascii*/) {}
  virtual void OnClick() { Click.Raise(); }
  virtual void OnDblClick() { DblClick.Raise(); }
  virtual void OnKeyDown(std::int16_t code, std::int16_t shift) { KeyDown.Raise(code, shift); }
  virtual void OnKeyPress(std::int16_t& key_ascii) { KeyPress.Raise(key_ascii); }
  virtual void OnKeyUp(std::int16_t code, std::int16_t shift) { KeyUp.Raise(code, shift); }
  virtual void OnMouseDown(const PointerInput& input) { Raise(MouseDown, input); }
  virtual void OnMouseMove(const PointerInput& input) { Raise(MouseMove, input); }
  virtual void OnMouseUp(const PointerInput& input) { Raise(MouseUp, input); }
  virtual void OnTerminate() {}

  // Decodes the messages of the control's window into notifications.
  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override;

  static void Raise(const Event<std::int16_t, std::int16_t, Twips, Twips>& event, const PointerInput& input) {
    event.Raise(input.button, input.shift, input.at.x, input.at.y);
  }

  // --- For the parts of a composed control --------------------------------------------------------

  void AddPart(WindowPart& part) { parts_.push_back(&part); }
  void RemovePart(WindowPart& part) { std::erase(parts_, &part); }
  // The focus has come to, or gone from, the control or a part of it.
  void FocusChanged(bool has_focus);

 protected:
  Control(std::shared_ptr<ControlSite> site, SurfaceLook look);

  // Tells the container that the persisted property `name` changed. A listener may destroy the control.
  void PropertyChanged(std::string_view name) { site_->PropertyChanged(name); }

  // The window that takes the focus for the control: its own, or that of a part.
  virtual WindowHandle FocusWindow() const { return surface_.hWnd(); }

 private:
  void PaintMessage(WindowHandle window, bool alive);
  // Each is true when the message was one of its kind.
  bool Pointer(std::uint32_t message, WParam wparam, LParam lparam);
  bool Focus(std::uint32_t message);
  bool Key(std::uint32_t message, WParam wparam, LResult& result);
  bool PartMessage(std::uint32_t message, WParam wparam, LParam lparam, LResult& result);
  void Press(std::uint32_t message, PointerAction action, const PointerInput& input);
  void TakeFocusAfterPress(WindowHandle focus_before);

  std::shared_ptr<ControlSite> site_;
  Surface surface_;
  std::vector<WindowPart*> parts_;
  bool started_ = false;
  ClickTracker click_;
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
