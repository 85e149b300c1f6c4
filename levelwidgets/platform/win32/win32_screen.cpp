#include <levelwidgets/platform/win32/win32_screen.h>

#include <windows.h>

#include <levelwidgets/platform/win32/native.h>

namespace levelwidgets::win32 {
namespace {

PixelSize FindDotsPerInch() {
  const HDC screen = ::GetDC(nullptr);
  const PixelSize dots_per_inch{::GetDeviceCaps(screen, LOGPIXELSX), ::GetDeviceCaps(screen, LOGPIXELSY)};
  ::ReleaseDC(nullptr, screen);
  return dots_per_inch;
}

BOOL CALLBACK NoteMonitor(HMONITOR handle, HDC, RECT*, LPARAM found) {
  MONITORINFO info = {};
  info.cbSize = sizeof info;
  if (!::GetMonitorInfoA(handle, &info)) return TRUE;
  auto& monitors = *reinterpret_cast<std::vector<Monitor>*>(found);
  const bool primary = (info.dwFlags & MONITORINFOF_PRIMARY) != 0;
  monitors.insert(primary ? monitors.begin() : monitors.end(),
                  {FromNativeRect(info.rcMonitor), FromNativeRect(info.rcWork)});
  return TRUE;
}

}  // namespace

std::vector<Monitor> Win32Screen::Monitors() {
  std::vector<Monitor> monitors;
  ::EnumDisplayMonitors(nullptr, nullptr, NoteMonitor, reinterpret_cast<LPARAM>(&monitors));
  return monitors;
}

PixelSize Win32Screen::Size() { return {::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)}; }

float Win32Screen::TwipsPerPixelX() { return WholeTwipsPerPixel(FindDotsPerInch().width); }

float Win32Screen::TwipsPerPixelY() { return WholeTwipsPerPixel(FindDotsPerInch().height); }

PixelSize Win32Screen::DotsPerInch() { return FindDotsPerInch(); }

}  // namespace levelwidgets::win32
