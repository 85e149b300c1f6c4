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

}  // namespace levelwidgets
