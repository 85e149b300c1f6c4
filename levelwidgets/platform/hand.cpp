#include <levelwidgets/platform/hand.h>

namespace levelwidgets {

namespace {

constexpr int kButtonKeys[] = {1, 2, 4};

// The window that has the pointer captured without a press.
WindowHandle Hovered(WindowApi& windows) {
  for (const int key : kButtonKeys) {
    if (windows.GetKeyState(key) < 0) return {};
  }
  return windows.GetCapture();
}

// One pixel from `point`, away from `rect`.
PixelPoint Beyond(PixelPoint point, const PixelRect& rect) {
  const int x = 2 * point.x < rect.left + rect.right ? -1 : 1;
  const int y = 2 * point.y < rect.top + rect.bottom ? -1 : 1;
  return {point.x + x, point.y + y};
}

}  // namespace

void MoveByHand(DesktopDriver& person, WindowApi& windows, PixelPoint screen) {
  PixelRect hovered;
  const bool from_window = windows.GetWindowRect(Hovered(windows), hovered);
  person.MovePointer(screen);
  if (!from_window || hovered.Contains(screen)) return;
  PixelPoint there;
  windows.GetCursorPos(there);
  const PixelPoint beyond = Beyond(there, hovered);
  person.MovePointer(beyond);
  PixelPoint now;
  windows.GetCursorPos(now);
  // In a corner of the screen there is nothing beyond.
  if (now == there) person.MovePointer({2 * there.x - beyond.x, 2 * there.y - beyond.y});
  person.MovePointer(there);
}

}  // namespace levelwidgets
