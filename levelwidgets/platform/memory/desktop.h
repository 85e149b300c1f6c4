// A whole desktop in memory: windows, drawing, input and time without an operating system's. Everything
// is the same on every run: time and date are moved by hand.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <levelwidgets/platform/conversions/conversions.h>
#include <levelwidgets/platform/driver.h>
#include <levelwidgets/platform/memory/clipboard.h>
#include <levelwidgets/platform/memory/desktop_edit_host.h>
#include <levelwidgets/platform/memory/memory_clock.h>
#include <levelwidgets/platform/memory/memory_drawing.h>
#include <levelwidgets/platform/memory/memory_input.h>
#include <levelwidgets/platform/memory/memory_screen.h>
#include <levelwidgets/platform/memory/memory_windows.h>

namespace levelwidgets::memory {

// 15 May 2024, 10:30.
inline constexpr Date kStandardNow{45427.4375};

struct DesktopOptions {
  PixelSize screen{1024, 768};           // of the only monitor
  std::vector<PixelRect> monitors = {};  // instead of it, the primary one first; that one begins at (0, 0)
  int dpi_x = 96;
  int dpi_y = 96;
  std::string locale = "en-US";
  Date now = kStandardNow;
  std::optional<int> code_page;  // one that IsCodePage knows; that of the locale where not given
  SystemPalette palette = StandardPalette();
  FontSources fonts = {};
  // The wheel goes to the window with the focus, as older systems have it, and not to the one under the
  // pointer.
  bool wheel_to_focus = false;
};

// The names that DesktopOptions::locale may have.
std::vector<std::string_view> LocaleNames();
bool IsLocaleName(std::string_view name);
// Whether `number` is a code page that DesktopOptions::code_page may be.
bool IsCodePage(int number);

// The code page of the desktop's texts, for its conversions.
class DesktopCodePage final : public conversions::CodePageCoder {
 public:
  explicit DesktopCodePage(const MemoryDrawing& drawing) : drawing_(drawing) {}
  std::string ToCodePage(std::string_view text) const override { return drawing_.ToCodePage(text); }
  std::string FromCodePage(std::string_view bytes) const override { return drawing_.FromCodePage(bytes); }
  bool IsLeadByte(char byte) const override { return drawing_.CodePage().IsFirst(byte); }

 private:
  const MemoryDrawing& drawing_;
};

// As a Platform it serves the controls, as a DesktopDriver the person who uses them. Must outlive every
// window client and everything made on it.
class Desktop final : public Platform, public DesktopDriver {
 public:
  explicit Desktop(const DesktopOptions& options = {});
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  // --- Platform ------------------------------------------------------------------------------

  MemoryDrawing& Drawing() override { return drawing_; }
  MemoryWindows& Windows() override { return windows_; }
  MemoryClock& Clock() override { return clock_; }
  MemoryScreen& Screen() override { return screen_; }
  // Of the locale of the options; en-US for one that is not built in.
  ConversionApi& Conversions() override { return conversions_; }

  // --- The desktop's own ---------------------------------------------------------------------

  const DesktopOptions& Options() const { return options_; }
  void SetNow(Date now) { clock_.SetNow(now); }
  // UTF-8; one for all windows.
  const std::string& Clipboard() const { return clipboard_.text; }
  void SetClipboard(std::string_view text) { clipboard_.text = text; }
  // As while another program holds the clipboard: nothing can be copied or pasted.
  void SetClipboardBusy(bool busy) { clipboard_.busy = busy; }
  // A platform around this one (one that records calls, for instance): GetPlatform returns it and window
  // procedures are handed its windows. Null takes it off.
  void SetOutwardPlatform(Platform* platform);

  // --- Native input ----------------------------------------------------------------------------
  // As in memory_input.h; what a person's own keyboard and pointer bring besides the driver's.

  void SetPointerArea(PixelRect area) { input_.SetPointerArea(area); }
  void HoldShift(int shift);
  void KeyDown(int code, int shift, std::string_view text);
  void LiftKey(int code, int shift);
  void EnterText(std::string_view text);

  // --- DesktopDriver -------------------------------------------------------------------------

  Platform& GetPlatform() override { return outward_ ? *outward_ : *this; }

  void MovePointer(PixelPoint screen) override;
  void Press(int button) override;
  void Release(int button) override;
  void Wheel(int notches) override;
  void KeyDown(int code, int shift) override;
  void KeyUp(int code, int shift) override;
  void Type(std::string_view text) override;

  void Leave() override;
  void Enter() override;
  void SystemCommand(WindowHandle window, std::uintptr_t command) override;

  void Advance(std::uint32_t ms) override { clock_.Advance(ms); }
  void Settle() override { clock_.DoEvents(); }

  ColorRef PixelAt(PixelPoint screen) override;
  Picture Capture(PixelRect screen) override;

  int PointerShape() override { return windows_.Input().pointer_shape; }
  std::vector<TopLevelWindow> TopLevelWindows() override;
  std::size_t LiveObjects() override { return drawing_.LiveObjects(); }
  std::size_t LiveWindows() override { return windows_.Tree().Count(); }
  std::size_t LiveTimers() override { return clock_.LiveTimers(); }

 private:
  DesktopOptions options_;
  MemoryScreen screen_;
  MemoryDrawing drawing_;
  MemoryClock clock_;
  ClipboardState clipboard_;
  DesktopEditHost edit_host_;  // before the windows: edit boxes use it until they end
  MemoryWindows windows_;
  MemoryInput input_;
  DesktopCodePage code_page_;
  conversions::Conversions conversions_;
  Platform* outward_ = nullptr;
};

}  // namespace levelwidgets::memory
