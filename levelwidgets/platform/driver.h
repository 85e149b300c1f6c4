// The other side of the seam: what a person at the desktop does and sees. Tests, scripts and pictures
// drive either platform through it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <levelwidgets/platform/picture.h>
#include <levelwidgets/platform/platform.h>

namespace levelwidgets {

struct TopLevelWindow {
  WindowHandle handle;
  std::string title;
  PixelRect rect;  // outer rectangle, screen pixels
  bool active = false;
  // What a message says: the only text ("STATIC") that stands directly in the window and is not empty. Also
  // where nobody sees it, because it is drawn in another way. "" for any other window.
  std::string text = {};
};

// Positions are screen pixels; buttons and shift bits are those of the controls' events. A call
// returns when its input has been delivered and everything that the input made pending is done; an exception
// from a handler passes through.
class DesktopDriver {
 public:
  virtual ~DesktopDriver() = default;

  virtual Platform& GetPlatform() = 0;

  virtual void MovePointer(PixelPoint screen) = 0;
  // At the pointer's position. `button` is one of kLeftButton, kRightButton, kMiddleButton.
  virtual void Press(int button) = 0;
  virtual void Release(int button) = 0;
  // Wheel notches, positive away from the user.
  virtual void Wheel(int notches) = 0;

  // A key goes down with the shift bits held; its character follows when it has one. The bits stay
  // held until the key's KeyUp.
  virtual void KeyDown(int code, int shift) = 0;
  virtual void KeyUp(int code, int shift) = 0;
  // Types each character as key down, character, key up. UTF-8.
  virtual void Type(std::string_view text) = 0;

  // Another program becomes active, as by a click on its window. Then this one again, with the window that
  // was active before if it is still there.
  virtual void Leave() = 0;
  virtual void Enter() = 0;
  // Chooses from the system menu of a window with a caption: kScMinimize, kScMaximize, kScRestore or
  // kScClose.
  virtual void SystemCommand(WindowHandle window, std::uintptr_t command) = 0;

  // Lets `ms` milliseconds pass: by the hand clock in memory, in real time elsewhere unless a test moves that
  // clock, too.
  virtual void Advance(std::uint32_t ms) = 0;
  // Does everything that is pending now.
  virtual void Settle() = 0;

  // kInvalidColorRef outside the screen.
  virtual ColorRef PixelAt(PixelPoint screen) = 0;
  // Parts outside the screen are black.
  virtual Picture Capture(PixelRect screen) = 0;

  // The pointer's shape at this moment, a kIdc...; 0 for none, or one that has no name here.
  virtual int PointerShape() = 0;

  // Visible top-level windows of this program, front to back.
  virtual std::vector<TopLevelWindow> TopLevelWindows() = 0;
  // Drawing objects and contexts made and not yet deleted; all windows; all timers.
  virtual std::size_t LiveObjects() = 0;
  virtual std::size_t LiveWindows() = 0;
  virtual std::size_t LiveTimers() = 0;
  // The three as a text, to compare what was there before with what is there now.
  std::string LiveCounts();

  // Move, press and release with the left button.
  void Click(PixelPoint screen);
  // Two clicks within the double-click time.
  void DoubleClick(PixelPoint screen);
  // Key down and up.
  void Key(int code, int shift = 0);
};

}  // namespace levelwidgets
