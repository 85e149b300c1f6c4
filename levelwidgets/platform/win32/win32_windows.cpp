#include <levelwidgets/platform/win32/win32_windows.h>

#include <windows.h>

#include <levelwidgets/platform/win32/cursor_shape.h>
#include <levelwidgets/platform/win32/native.h>
#include <levelwidgets/platform/win32/win32_text.h>

namespace levelwidgets::win32 {
namespace {

HWND Native(WindowHandle window) { return ToNative<HWND>(window); }

WindowHandle Seam(HWND hwnd) { return FromNative<WindowHandle>(hwnd); }

// Some calls take a null window as "all windows" or "the screen".
bool Known(WindowHandle window) { return ::IsWindow(Native(window)) != FALSE; }

}  // namespace

// --- Life ------------------------------------------------------------------------------------

WindowHandle Win32Windows::CreateWindowExA(const WindowRequest& request) {
  return router_.CreateWindowExA(request);
}

bool Win32Windows::DestroyWindow(WindowHandle window) {
  return relay_.Run([&] { return ::DestroyWindow(Native(window)); }) != FALSE;
}

bool Win32Windows::IsWindow(WindowHandle window) { return Known(window); }

// --- Place -----------------------------------------------------------------------------------

WindowHandle Win32Windows::SetParent(WindowHandle window, WindowHandle parent) {
  const HWND former = relay_.Run([&] { return ::SetParent(Native(window), Native(parent)); });
  return former == ::GetDesktopWindow() ? WindowHandle{} : Seam(former);
}

WindowHandle Win32Windows::GetParent(WindowHandle window) {
  const HWND parent = ::GetParent(Native(window));
  return parent == ::GetDesktopWindow() ? WindowHandle{} : Seam(parent);
}

bool Win32Windows::SetWindowPos(WindowHandle window, WindowHandle insert_after, PixelRect place,
                                std::uint32_t flags) {
  return relay_.Run([&] {
    return ::SetWindowPos(Native(window), Native(insert_after), place.left, place.top, place.width(),
                          place.height(), flags);
  }) != FALSE;
}

bool Win32Windows::GetWindowRect(WindowHandle window, PixelRect& rect) {
  RECT native = {};
  if (!::GetWindowRect(Native(window), &native)) return false;
  rect = FromNativeRect(native);
  return true;
}

bool Win32Windows::GetClientRect(WindowHandle window, PixelRect& rect) {
  RECT native = {};
  if (!::GetClientRect(Native(window), &native)) return false;
  rect = FromNativeRect(native);
  return true;
}

bool Win32Windows::ClientToScreen(WindowHandle window, PixelPoint& point) {
  POINT native = {point.x, point.y};
  if (!::ClientToScreen(Native(window), &native)) return false;
  point = FromNativePoint(native);
  return true;
}

bool Win32Windows::ScreenToClient(WindowHandle window, PixelPoint& point) {
  POINT native = {point.x, point.y};
  if (!::ScreenToClient(Native(window), &native)) return false;
  point = FromNativePoint(native);
  return true;
}

PixelRect Win32Windows::AdjustWindowRectEx(PixelRect client, std::uint32_t style, std::uint32_t ex_style) {
  RECT native = ToNative<RECT>(client);
  ::AdjustWindowRectEx(&native, style, FALSE, ex_style);
  return FromNativeRect(native);
}

// --- Attributes ------------------------------------------------------------------------------

std::intptr_t Win32Windows::SetWindowLongA(WindowHandle window, int index, std::intptr_t value) {
  if (index == kGwlWndProc) return router_.SetProcedure(window, value);
  return relay_.Run([&] { return ::SetWindowLongPtrA(Native(window), index, value); });
}

std::intptr_t Win32Windows::GetWindowLongA(WindowHandle window, int index) {
  return index == kGwlWndProc ? router_.GetProcedure(window) : ::GetWindowLongPtrA(Native(window), index);
}

bool Win32Windows::SetWindowTextA(WindowHandle window, std::string_view text) {
  return relay_.Run([&] { return ::SetWindowTextA(Native(window), ToCodePage(text).c_str()); }) != FALSE;
}

std::string Win32Windows::GetWindowTextA(WindowHandle window) {
  const int length = relay_.Run([&] { return ::GetWindowTextLengthA(Native(window)); });
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  const int copied = relay_.Run([&] { return ::GetWindowTextA(Native(window), text.data(), length + 1); });
  text.resize(static_cast<std::size_t>(copied));
  return FromCodePage(text);
}

// --- State -----------------------------------------------------------------------------------

bool Win32Windows::ShowWindow(WindowHandle window, int command) {
  return relay_.Run([&] { return ::ShowWindow(Native(window), command); }) != FALSE;
}

bool Win32Windows::IsWindowVisible(WindowHandle window) { return ::IsWindowVisible(Native(window)) != FALSE; }

bool Win32Windows::EnableWindow(WindowHandle window, bool enable) {
  return relay_.Run([&] { return ::EnableWindow(Native(window), enable); }) != FALSE;
}

bool Win32Windows::IsWindowEnabled(WindowHandle window) { return ::IsWindowEnabled(Native(window)) != FALSE; }

// --- Focus and activation --------------------------------------------------------------------

WindowHandle Win32Windows::SetFocus(WindowHandle window) {
  return Seam(relay_.Run([&] { return ::SetFocus(Native(window)); }));
}

WindowHandle Win32Windows::GetFocus() { return Seam(::GetFocus()); }

WindowHandle Win32Windows::SetActiveWindow(WindowHandle window) {
  return Seam(relay_.Run([&] { return ::SetActiveWindow(Native(window)); }));
}

WindowHandle Win32Windows::GetActiveWindow() { return Seam(::GetActiveWindow()); }

// --- Pointer and keys ------------------------------------------------------------------------

WindowHandle Win32Windows::SetCapture(WindowHandle window) {
  return Seam(relay_.Run([&] { return ::SetCapture(Native(window)); }));
}

bool Win32Windows::ReleaseCapture() {
  return relay_.Run([] { return ::ReleaseCapture(); }) != FALSE;
}

WindowHandle Win32Windows::GetCapture() { return Seam(::GetCapture()); }

bool Win32Windows::GetCursorPos(PixelPoint& point) {
  POINT native = {};
  if (!::GetCursorPos(&native)) return false;
  point = FromNativePoint(native);
  return true;
}

int Win32Windows::SetCursor(int shape) {
  return ShapeOfCursor(::SetCursor(static_cast<HCURSOR>(CursorOfShape(shape))));
}

std::int16_t Win32Windows::GetKeyState(int code) { return ::GetKeyState(code); }

std::int16_t Win32Windows::GetAsyncKeyState(int code) {
  // The system answers for the buttons of the device, whatever they have been swapped to.
  const bool swapped = (code == VK_LBUTTON || code == VK_RBUTTON) && ::GetSystemMetrics(SM_SWAPBUTTON) != 0;
  if (swapped) code = code == VK_LBUTTON ? VK_RBUTTON : VK_LBUTTON;
  return ::GetAsyncKeyState(code);
}

// --- Messages --------------------------------------------------------------------------------

LResult Win32Windows::SendMessageA(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  if (!Known(window)) return 0;
  return relay_.Run([&] { return ::SendMessageA(Native(window), message, wparam, lparam); });
}

bool Win32Windows::PostMessageA(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  return Known(window) && ::PostMessageA(Native(window), message, wparam, lparam) != FALSE;
}

LResult Win32Windows::CallWindowProcA(std::intptr_t previous, WindowHandle window, std::uint32_t message,
                                      WParam wparam, LParam lparam) {
  return router_.CallWindowProcA(previous, window, message, wparam, lparam);
}

LResult Win32Windows::DefWindowProcA(WindowHandle window, std::uint32_t message, WParam wparam,
                                     LParam lparam) {
  return relay_.Run([&] { return ::DefWindowProcA(Native(window), message, wparam, lparam); });
}

// --- Painting --------------------------------------------------------------------------------

DcHandle Win32Windows::GetDC(WindowHandle window) {
  return Known(window) ? FromNative<DcHandle>(::GetDC(Native(window))) : DcHandle{};
}

bool Win32Windows::ReleaseDC(WindowHandle window, DcHandle dc) {
  return ::ReleaseDC(Native(window), ToNative<HDC>(dc)) != 0;
}

bool Win32Windows::InvalidateRect(WindowHandle window) {
  return Known(window) && ::InvalidateRect(Native(window), nullptr, FALSE) != FALSE;
}

bool Win32Windows::InvalidateRect(WindowHandle window, const PixelRect& area) {
  const RECT native = ToNative<RECT>(area);
  return Known(window) && ::InvalidateRect(Native(window), &native, FALSE) != FALSE;
}

bool Win32Windows::UpdateWindow(WindowHandle window) {
  return Known(window) && relay_.Run([&] { return ::UpdateWindow(Native(window)); }) != FALSE;
}

DcHandle Win32Windows::BeginPaint(WindowHandle window, PixelRect& part) {
  PAINTSTRUCT paint = {};
  const auto dc = FromNative<DcHandle>(relay_.Run([&] { return ::BeginPaint(Native(window), &paint); }));
  if (dc) painting_[window] = dc;
  part = FromNativeRect(paint.rcPaint);
  return dc;
}

bool Win32Windows::EndPaint(WindowHandle window) {
  const auto found = painting_.find(window);
  if (found == painting_.end()) return false;
  // Of the structure that BeginPaint filled, the system needs nothing but the context.
  PAINTSTRUCT paint = {};
  paint.hdc = ToNative<HDC>(found->second);
  painting_.erase(found);
  return ::EndPaint(Native(window), &paint) != FALSE;
}

}  // namespace levelwidgets::win32
