#include <levelwidgets/platform/driver.h>

namespace levelwidgets {

void DesktopDriver::Click(PixelPoint screen) {
  MovePointer(screen);
  Press(kLeftButton);
  Release(kLeftButton);
}

void DesktopDriver::DoubleClick(PixelPoint screen) {
  Click(screen);
  Press(kLeftButton);
  Release(kLeftButton);
}

void DesktopDriver::Key(int code, int shift) {
  KeyDown(code, shift);
  KeyUp(code, shift);
}

std::string DesktopDriver::LiveCounts() {
  return std::to_string(LiveWindows()) + " windows, " + std::to_string(LiveTimers()) + " timers, " +
         std::to_string(LiveObjects()) + " objects";
}

}  // namespace levelwidgets
