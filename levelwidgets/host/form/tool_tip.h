// The text that explains the control under the pointer.
#pragma once

#include <memory>
#include <string>

#include <levelwidgets/frame/control_site.h>
#include <levelwidgets/frame/drawing_objects.h>

namespace levelwidgets {

class HostedControl;

// Where a tip of this size stands: its left edge at the pointer and `below` pixels under it, above the
// pointer where there is no room below, and always on the screen. A pointer that is on no part of the screen
// is on another one, whose size is not known: the tip is then below it.
PixelRect PlaceToolTip(PixelPoint pointer, int below, PixelSize tip, PixelSize screen);

// The tool tip of a form. It comes when the pointer has been over a control with a ToolTipText for half a
// second, and goes at a press, at a key, and when the pointer leaves; after a press or a key it comes again
// only when the pointer has left meanwhile. Its window takes neither the focus nor the pointer, and has the
// text as its title. A timer runs only while the pointer is over a control that has a text.
class ToolTip : public WindowClient {
 public:
  explicit ToolTip(Platform& platform) : platform_(platform) {}
  ToolTip(const ToolTip&) = delete;
  ToolTip& operator=(const ToolTip&) = delete;
  ~ToolTip() override { Leave(); }

  // Input has come to `control` or to a part of it.
  void InputArrived(HostedControl& control, InputKind kind);
  // The text of `control` is another one.
  void TextChanged(HostedControl& control);
  // The pointer is over no control.
  void Leave();
  // Nothing more is shown until the pointer has left.
  void Spend();
  // `control` is no longer on the form.
  void Forget(const HostedControl& control);

  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override;

 private:
  bool IsOver(const HostedControl& control) const;
  void PointerMoved(HostedControl& control);
  void Enter(HostedControl& control);
  void Tick();
  void StartTimer(std::uint32_t interval_ms);
  void StopTimer();
  void Show(const HostedControl& control);
  void Hide();
  PixelSize Measure();
  void Paint();

  Platform& platform_;
  std::weak_ptr<HostedControl> over_;
  bool spent_ = false;
  TimerHandle timer_;
  WindowHandle window_;
  std::string text_;
  DrawingObject font_;
};

}  // namespace levelwidgets
