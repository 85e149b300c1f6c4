// What the desktop in memory does for its edit boxes.
#pragma once

#include <array>

#include <levelwidgets/platform/memory/clipboard.h>
#include <levelwidgets/platform/memory/edit/edit_host.h>
#include <levelwidgets/platform/memory/memory_clock.h>
#include <levelwidgets/platform/memory/memory_drawing.h>
#include <levelwidgets/platform/memory/memory_windows.h>

namespace levelwidgets::memory {

// Keeps references: all but the drawing may be made after it.
class DesktopEditHost final : public EditHost {
 public:
  DesktopEditHost(MemoryWindows& windows, MemoryClock& clock, MemoryDrawing& drawing,
                  ClipboardState& clipboard);

  WindowApi& Windows() override { return windows_; }
  DrawingApi& Drawing() override { return drawing_; }

  void Invalidate(WindowHandle window, PixelRect area) override { windows_.InvalidateRect(window, area); }
  PixelRect PendingArea(WindowHandle window) override { return windows_.PendingPaint(window).Bounds(); }
  void Invert(WindowHandle window, PixelRect area) override;

  TimerHandle StartTimer(std::uint32_t interval_ms, std::function<void()> tick) override;
  void StopTimer(TimerHandle timer) override { clock_.KillTimer(timer); }

  std::optional<std::string> ClipboardBytes() override;
  bool SetClipboardBytes(std::string_view bytes) override;

  PixelSize ScreenSize() override;
  void SetMenu(WindowHandle menu) override { windows_.Input().menu = menu; }
  std::uint64_t Ticks() override { return clock_.GetTickCount(); }

  const text::CodePage& CodePage() override { return drawing_.CodePage(); }
  char UpperCaseOf(char byte) override { return upper_[static_cast<std::uint8_t>(byte)]; }
  char LowerCaseOf(char byte) override { return lower_[static_cast<std::uint8_t>(byte)]; }

 private:
  MemoryWindows& windows_;
  MemoryClock& clock_;
  MemoryDrawing& drawing_;
  ClipboardState& clipboard_;
  std::array<char, 256> upper_{};
  std::array<char, 256> lower_{};
};

}  // namespace levelwidgets::memory
