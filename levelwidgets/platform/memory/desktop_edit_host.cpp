#include <levelwidgets/platform/memory/desktop_edit_host.h>

#include <levelwidgets/platform/memory/raster.h>
#include <levelwidgets/platform/text/code_page.h>
#include <levelwidgets/platform/text/letter_case.h>

namespace levelwidgets::memory {

namespace {

constexpr std::uint32_t kAllColors = 0xFFFFFF;

// Itself when the other case is not in the code page.
char InCodePage(const text::CodePage& code_page, std::uint8_t byte, char32_t other_case) {
  const text::CharacterCode other = code_page.Code(other_case);
  const bool is_byte = other <= 0xFF && code_page.Unicode(other) == other_case;
  return static_cast<char>(is_byte ? other : byte);
}

}  // namespace

DesktopEditHost::DesktopEditHost(MemoryWindows& windows, MemoryClock& clock, MemoryDrawing& drawing,
                                 ClipboardState& clipboard)
    : windows_(windows), clock_(clock), drawing_(drawing), clipboard_(clipboard) {
  const text::CodePage& page = drawing.CodePage();
  for (std::size_t i = 0; i < upper_.size(); ++i) {
    const auto byte = static_cast<std::uint8_t>(i);
    upper_[i] = InCodePage(page, byte, text::UpperCase(page.Unicode(byte)));
    lower_[i] = InCodePage(page, byte, text::LowerCase(page.Unicode(byte)));
  }
}

void DesktopEditHost::Invert(WindowHandle window, PixelRect area) {
  Window* found = windows_.Tree().Find(window);
  if (!found) return;
  ForEachPart(windows_.Tree().Target(*found), area, [](const PixelRect& part, auto row) {
    for (int y = part.top; y < part.bottom; ++y) {
      for (int x = part.left; x < part.right; ++x) row(y)[x] ^= kAllColors;
    }
  });
}

TimerHandle DesktopEditHost::StartTimer(std::uint32_t interval_ms, std::function<void()> tick) {
  return clock_.SetBackgroundTimer(interval_ms, std::move(tick));
}

PixelSize DesktopEditHost::ScreenSize() {
  const PixelRect& screen = windows_.Tree().Desktop().rect;
  return {screen.width(), screen.height()};
}

std::optional<std::string> DesktopEditHost::ClipboardBytes() {
  if (clipboard_.busy) return {};
  return drawing_.ToCodePage(clipboard_.text);
}

bool DesktopEditHost::SetClipboardBytes(std::string_view bytes) {
  if (clipboard_.busy) return false;
  clipboard_.text = drawing_.FromCodePage(bytes);
  return true;
}

}  // namespace levelwidgets::memory
