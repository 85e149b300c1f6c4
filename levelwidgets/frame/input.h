// Turns window messages into a control's notifications, the same way on every platform.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include <levelwidgets/frame/control_site.h>
#include <levelwidgets/frame/units.h>
#include <levelwidgets/platform/platform.h>

namespace levelwidgets {

// The Shift bits of the keys held as of the message being handled.
std::int16_t ShiftState(WindowApi& windows);

// A pointer notification. Button is the one that changed, or for a move all that are down.
struct PointerInput {
  std::int16_t button = 0;
  std::int16_t shift = 0;
  TwipPoint at;
};

enum class PointerAction { kNone, kMove, kPress, kDoubleClick, kRelease };

// What a message says about the pointer. The second press of a double click is kDoubleClick for the left
// button and a plain press for the others.
PointerAction PointerActionOf(std::uint32_t message);
PointerInput PointerInputOf(Platform& platform, std::uint32_t message, WParam wparam, LParam lparam);

// The key message, when the message is one.
std::optional<KeyMessage> KeyMessageOf(WindowApi& windows, std::uint32_t message, WParam wparam);

// What the container is notified of when the message comes.
InputKind InputKindOf(std::uint32_t message);

// The event that a message brings, as users know it: "MouseDown", "KeyPress", "Paint".
std::string_view EventOf(std::uint32_t message);

// Makes a call of a control's own code. What it raises goes to the container if that reports errors, and the
// result is then empty; otherwise it passes through. `event` names what the code handles.
template <typename Call>
auto Reporting(ControlSite& site, std::string_view event, Call call) -> decltype(call()) {
  try {
    return call();
  } catch (const Error& error) {
    if (!site.TakeError(event, error)) throw;
  }
  return decltype(call())();
}

// Makes clicks of presses and releases: a left press and its release inside the same window.
class ClickTracker {
 public:
  void Press(std::uint32_t message) { pressed_ = pressed_ || message == kWmLButtonDown; }
  // The window has lost the capture. While the button is still down, nobody notifies the window of its
  // release any more, so the press is over; at a release the capture ends before the release is delivered.
  void CaptureLost(WindowApi& windows) {
    if (windows.GetKeyState(kKeyLeftButton) < 0) pressed_ = false;
  }
  // Whether this release completes a click in a window with this client area.
  bool Release(std::uint32_t message, LParam lparam, const PixelRect& client) {
    if (message != kWmLButtonUp) return false;
    const bool clicked = pressed_ && client.Contains(PointOfLParam(lparam));
    pressed_ = false;
    return clicked;
  }

 private:
  bool pressed_ = false;
};

}  // namespace levelwidgets
