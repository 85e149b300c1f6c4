#include <levelwidgets/activex/control/printed_control.h>

#include <algorithm>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/platform/win32/native.h>

namespace levelwidgets::activex {

namespace {

BITMAPINFO InfoOf(PixelSize size) {
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = size.width;
  info.bmiHeader.biHeight = size.height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  return info;
}

// A border belongs to the window and not to its client area.
void PrintBorder(HWND window, HDC target, const RECT& outer) {
  if ((::GetWindowLongW(window, GWL_STYLE) & WS_BORDER) == 0) return;
  RECT frame = outer;
  ::OffsetRect(&frame, -frame.left, -frame.top);
  ::FrameRect(target, &frame, ::GetSysColorBrush(COLOR_WINDOWFRAME));
}

void PrintChildren(WindowApi& windows, HWND window, HDC target) {
  HWND child = ::GetWindow(window, GW_CHILD);
  if (child) child = ::GetWindow(child, GW_HWNDLAST);
  for (; child; child = ::GetWindow(child, GW_HWNDPREV)) {
    if ((::GetWindowLongW(child, GWL_STYLE) & WS_VISIBLE) == 0) continue;
    RECT outer = {};
    ::GetWindowRect(child, &outer);
    POINT place = {outer.left, outer.top};
    ::ScreenToClient(window, &place);
    const int saved = ::SaveDC(target);
    ::OffsetViewportOrgEx(target, place.x, place.y, nullptr);
    ::IntersectClipRect(target, 0, 0, outer.right - outer.left, outer.bottom - outer.top);
    PrintBorder(child, target, outer);
    POINT inner = {0, 0};
    ::ClientToScreen(child, &inner);
    ::OffsetViewportOrgEx(target, inner.x - outer.left, inner.y - outer.top, nullptr);
    PrintWindows(windows, child, target);
    ::RestoreDC(target, saved);
  }
}

}  // namespace

Bitmap::Bitmap(PixelSize size) : size_{std::max(size.width, 1), std::max(size.height, 1)} {
  const BITMAPINFO info = InfoOf(size_);
  context_ = ::CreateCompatibleDC(nullptr);
  bitmap_ = ::CreateDIBSection(context_, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
  if (!bitmap_) {
    ::DeleteDC(context_);
    throw Error(kOutOfMemory);
  }
  former_ = ::SelectObject(context_, bitmap_);
}

Bitmap::~Bitmap() {
  ::SelectObject(context_, former_);
  ::DeleteObject(bitmap_);
  ::DeleteDC(context_);
}

void Bitmap::CopyTo(HDC target, const RECTL& bounds) const {
  ::GdiFlush();
  const BITMAPINFO info = InfoOf(size_);
  const int former = ::SetStretchBltMode(target, COLORONCOLOR);
  ::StretchDIBits(target, bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top, 0,
                  0, size_.width, size_.height, bits_, &info, DIB_RGB_COLORS, SRCCOPY);
  ::SetStretchBltMode(target, former);
}

void PrintWindows(WindowApi& windows, HWND window, HDC target) {
  RECT client = {};
  ::GetClientRect(window, &client);
  const int saved = ::SaveDC(target);
  ::IntersectClipRect(target, 0, 0, client.right, client.bottom);
  windows.SendMessageA(win32::FromNative<WindowHandle>(window), WM_PRINTCLIENT,
                       reinterpret_cast<WPARAM>(target), PRF_CLIENT | PRF_ERASEBKGND);
  PrintChildren(windows, window, target);
  ::RestoreDC(target, saved);
}

}  // namespace levelwidgets::activex
