#include <levelwidgets/frame/hover.h>

namespace levelwidgets {

namespace {
constexpr std::int32_t kPollingInterval = 100;  // milliseconds
}

PollingHover::PollingHover(PartHost& host, std::function<void()> leave)
    : surface_(host.GetSurface()),
      leave_(std::move(leave)),
      timMain_(host, kPollingInterval, [this] { Tick(); }) {}

void PollingHover::Tick() {
  if (!PointerIsOutside()) return;
  leave_();
  timMain_.SetEnabled(false);
  // Lets the repaint and queued input be handled before the next tick.
  surface_.GetPlatform().Clock().DoEvents();
}

bool PollingHover::PointerIsOutside() const {
  PixelPoint pointer;
  surface_.Windows().GetCursorPos(pointer);
  surface_.Windows().ScreenToClient(surface_.hWnd(), pointer);
  const PixelRect client = surface_.ClientPixels();
  return pointer.x < 0 || pointer.y < 0 || pointer.x > client.right || pointer.y > client.bottom;
}

}  // namespace levelwidgets
