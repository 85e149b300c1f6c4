// What an edit box needs of its desktop beyond the seam's windows and drawing.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include <levelwidgets/platform/drawing.h>
#include <levelwidgets/platform/text/code_page.h>
#include <levelwidgets/platform/window.h>

namespace levelwidgets::memory {

// Sooner than this, and in a square of this size around the press before, a press is one of the same click.
inline constexpr std::uint64_t kDoubleClickMs = 500;
inline constexpr int kDoubleClickSize = 4;

constexpr bool IsSameClick(std::uint64_t ms_between, PixelPoint before, PixelPoint now) {
  constexpr int kHalf = kDoubleClickSize / 2;
  const PixelRect square{before.x - kHalf, before.y - kHalf, before.x + kHalf, before.y + kHalf};
  return ms_between < kDoubleClickMs && square.Contains(now);
}

// Rectangles are client pixels, texts in bytes those of the system's code page.
class EditHost {
 public:
  virtual ~EditHost() = default;

  virtual WindowApi& Windows() = 0;
  virtual DrawingApi& Drawing() = 0;

  // Asks for a paint of a part of the window.
  virtual void Invalidate(WindowHandle window, PixelRect area) = 0;
  // Around all that waits for its paint and can be seen.
  virtual PixelRect PendingArea(WindowHandle window) = 0;
  // Inverts the pixels that can be seen, between BeginPaint and EndPaint only those to be painted.
  virtual void Invert(WindowHandle window, PixelRect area) = 0;

  // As ClockApi's, but nobody waits for these ticks nor counts the timers.
  virtual TimerHandle StartTimer(std::uint32_t interval_ms, std::function<void()> tick) = 0;
  virtual void StopTimer(TimerHandle timer) = 0;

  // Nothing while another program holds the clipboard.
  virtual std::optional<std::string> ClipboardBytes() = 0;
  // False when it could not be had.
  virtual bool SetClipboardBytes(std::string_view bytes) = 0;

  virtual PixelSize ScreenSize() = 0;
  // From now on all input goes to `menu`; null ends that. A press elsewhere, and another active window,
  // destroy it.
  virtual void SetMenu(WindowHandle menu) = 0;
  // Milliseconds, as ClockApi's.
  virtual std::uint64_t Ticks() = 0;

  virtual const text::CodePage& CodePage() = 0;
  // In the other case, where a byte's character has one in the code page.
  virtual char UpperCaseOf(char byte) = 0;
  virtual char LowerCaseOf(char byte) = 0;
};

}  // namespace levelwidgets::memory
