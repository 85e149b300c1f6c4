#include <levelwidgets/frame/parts/check_box.h>

#include <utility>

namespace levelwidgets {

LResult CheckBox::OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  // The second of two quick clicks counts like any other.
  if (message == kWmLButtonDblClk) message = kWmLButtonDown;
  // The window hears nothing of the release then.
  if (message == kWmCaptureChanged) Show(pressed_, false);
  return ControlWith::OnMessage(window, message, wparam, lparam);
}

// A listener of the input may have disabled it, or taken it off its container.
void CheckBox::Toggle() {
  if (Enabled() && Site().ParentWindow()) SetValue(value_ == kChecked ? kUnchecked : kChecked);
}

void CheckBox::OnAccessKeyPress(std::int16_t) { Toggle(); }

void CheckBox::Show(bool& state, bool value) {
  if (std::exchange(state, value) != value) OnPaint();
}

// --- Keys --------------------------------------------------------------------------------------------

void CheckBox::OnKeyDown(std::int16_t code, std::int16_t shift) {
  // With Alt it opens the system's menu.
  if (code == kKeySpace && (shift & kAltMask) == 0) Show(space_is_down_, true);
  KeyDown.Raise(code, shift);
}

void CheckBox::OnKeyUp(std::int16_t code, std::int16_t shift) {
  const bool was_down = code == kKeySpace && space_is_down_;
  if (was_down) Show(space_is_down_, false);
  KeyUp.Raise(code, shift);
  if (was_down && has_focus_) Toggle();
}

void CheckBox::OnExitFocus() {
  space_is_down_ = false;
  ControlWith::OnExitFocus();
}

// --- Pointer -----------------------------------------------------------------------------------------

// To the pixel, as a release counts.
bool CheckBox::IsInside(TwipPoint at) const {
  ScreenApi& screen = GetSurface().GetPlatform().Screen();
  return client_.Contains({ToPixels(at.x, screen.TwipsPerPixelX()), ToPixels(at.y, screen.TwipsPerPixelY())});
}

void CheckBox::OnMouseDown(const PointerInput& input) {
  if (input.button == kLeftButton) {
    under_pointer_ = true;
    hover_.Start();
    Show(pressed_, true);
  }
  Raise(MouseDown, input);
}

void CheckBox::OnMouseMove(const PointerInput& input) {
  hover_.Start();
  Show(under_pointer_, IsInside(input.at));
  Raise(MouseMove, input);
}

void CheckBox::OnMouseUp(const PointerInput& input) {
  if (input.button == kLeftButton) Show(pressed_, false);
  Raise(MouseUp, input);
}

}  // namespace levelwidgets
