// The windows of user32.
#pragma once

#include <map>

#include <levelwidgets/platform/win32/exception_relay.h>
#include <levelwidgets/platform/win32/message_router.h>
#include <levelwidgets/platform/window.h>

namespace levelwidgets::win32 {

// Every call that makes the system run window procedures throws what their handlers threw.
class Win32Windows final : public WindowApi {
 public:
  explicit Win32Windows(ExceptionRelay& relay) : relay_(relay), router_(*this, relay) {}

  WindowHandle CreateWindowExA(const WindowRequest& request) override;
  bool DestroyWindow(WindowHandle window) override;
  bool IsWindow(WindowHandle window) override;

  WindowHandle SetParent(WindowHandle window, WindowHandle parent) override;
  WindowHandle GetParent(WindowHandle window) override;
  bool SetWindowPos(WindowHandle window, WindowHandle insert_after, PixelRect place,
                    std::uint32_t flags) override;
  bool GetWindowRect(WindowHandle window, PixelRect& rect) override;
  bool GetClientRect(WindowHandle window, PixelRect& rect) override;
  bool ClientToScreen(WindowHandle window, PixelPoint& point) override;
  bool ScreenToClient(WindowHandle window, PixelPoint& point) override;
  PixelRect AdjustWindowRectEx(PixelRect client, std::uint32_t style, std::uint32_t ex_style) override;

  std::intptr_t SetWindowLongA(WindowHandle window, int index, std::intptr_t value) override;
  std::intptr_t GetWindowLongA(WindowHandle window, int index) override;
  bool SetWindowTextA(WindowHandle window, std::string_view text) override;
  std::string GetWindowTextA(WindowHandle window) override;

  bool ShowWindow(WindowHandle window, int command) override;
  bool IsWindowVisible(WindowHandle window) override;
  bool EnableWindow(WindowHandle window, bool enable) override;
  bool IsWindowEnabled(WindowHandle window) override;

  WindowHandle SetFocus(WindowHandle window) override;
  WindowHandle GetFocus() override;
  WindowHandle SetActiveWindow(WindowHandle window) override;
  WindowHandle GetActiveWindow() override;

  WindowHandle SetCapture(WindowHandle window) override;
  bool ReleaseCapture() override;
  WindowHandle GetCapture() override;
  bool GetCursorPos(PixelPoint& point) override;
  int SetCursor(int shape) override;
  std::int16_t GetKeyState(int code) override;
  std::int16_t GetAsyncKeyState(int code) override;

  LResult SendMessageA(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override;
  bool PostMessageA(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override;
  LResult CallWindowProcA(std::intptr_t previous, WindowHandle window, std::uint32_t message, WParam wparam,
                          LParam lparam) override;
  LResult DefWindowProcA(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override;

  DcHandle GetDC(WindowHandle window) override;
  bool ReleaseDC(WindowHandle window, DcHandle dc) override;
  bool InvalidateRect(WindowHandle window) override;
  bool InvalidateRect(WindowHandle window, const PixelRect& area) override;
  bool UpdateWindow(WindowHandle window) override;
  using WindowApi::BeginPaint;
  DcHandle BeginPaint(WindowHandle window, PixelRect& part) override;
  bool EndPaint(WindowHandle window) override;

  std::size_t LiveWindows() const { return router_.LiveWindows(); }
  void ForgetPointer() { router_.ForgetPointer(); }

 private:
  ExceptionRelay& relay_;
  MessageRouter router_;
  std::map<WindowHandle, DcHandle> painting_;  // between BeginPaint and EndPaint
};

}  // namespace levelwidgets::win32
