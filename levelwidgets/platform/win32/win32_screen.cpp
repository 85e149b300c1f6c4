#include <levelwidgets/platform/win32/win32_screen.h>

#include <windows.h>

namespace levelwidgets::win32 {
namespace {

float TwipsPerPixel(int dots_per_inch_index) {
  const HDC screen = ::GetDC(nullptr);
  const int dots_per_inch = ::GetDeviceCaps(screen, dots_per_inch_index);
  ::ReleaseDC(nullptr, screen);
  return WholeTwipsPerPixel(dots_per_inch);
}

}  // namespace

PixelSize Win32Screen::Size() { return {::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)}; }

float Win32Screen::TwipsPerPixelX() { return TwipsPerPixel(LOGPIXELSX); }

float Win32Screen::TwipsPerPixelY() { return TwipsPerPixel(LOGPIXELSY); }

}  // namespace levelwidgets::win32
