#include <levelwidgets/platform/tracing/parts.h>

namespace levelwidgets::tracing {
namespace {

class TracingWindows final : public WindowApi {
 public:
  TracingWindows(WindowApi& target, CallLog& log) : target_(target), log_(log) {}

  WindowHandle CreateWindowExA(const WindowRequest& request) override {
    log_.Record("CreateWindowExA", request.ex_style, request.class_name, request.title, request.style,
                request.rect.left, request.rect.top, request.rect.width(), request.rect.height(),
                request.parent);
    return target_.CreateWindowExA(request);
  }
  bool DestroyWindow(WindowHandle window) override {
    return log_.Pass("DestroyWindow", target_, &WindowApi::DestroyWindow, window);
  }
  bool IsWindow(WindowHandle window) override {
    return log_.Pass("IsWindow", target_, &WindowApi::IsWindow, window);
  }

  WindowHandle SetParent(WindowHandle window, WindowHandle parent) override {
    return log_.Pass("SetParent", target_, &WindowApi::SetParent, window, parent);
  }
  WindowHandle GetParent(WindowHandle window) override {
    return log_.Pass("GetParent", target_, &WindowApi::GetParent, window);
  }
  bool SetWindowPos(WindowHandle window, WindowHandle insert_after, PixelRect place,
                    std::uint32_t flags) override {
    // Signed, so that the top-most band is the -1 it is known as.
    const auto after = static_cast<std::int32_t>(insert_after.value);
    log_.Record("SetWindowPos", window, after, place.left, place.top, place.width(), place.height(), flags);
    return target_.SetWindowPos(window, insert_after, place, flags);
  }
  bool GetWindowRect(WindowHandle window, PixelRect& rect) override {
    log_.Record("GetWindowRect", window);
    return target_.GetWindowRect(window, rect);
  }
  bool GetClientRect(WindowHandle window, PixelRect& rect) override {
    log_.Record("GetClientRect", window);
    return target_.GetClientRect(window, rect);
  }
  bool ClientToScreen(WindowHandle window, PixelPoint& point) override {
    log_.Record("ClientToScreen", window, point);
    return target_.ClientToScreen(window, point);
  }
  bool ScreenToClient(WindowHandle window, PixelPoint& point) override {
    log_.Record("ScreenToClient", window, point);
    return target_.ScreenToClient(window, point);
  }
  PixelRect AdjustWindowRectEx(PixelRect client, std::uint32_t style, std::uint32_t ex_style) override {
    return log_.Pass("AdjustWindowRectEx", target_, &WindowApi::AdjustWindowRectEx, client, style, ex_style);
  }

  std::intptr_t SetWindowLongA(WindowHandle window, int index, std::intptr_t value) override {
    return log_.Pass("SetWindowLongA", target_, &WindowApi::SetWindowLongA, window, index, value);
  }
  std::intptr_t GetWindowLongA(WindowHandle window, int index) override {
    return log_.Pass("GetWindowLongA", target_, &WindowApi::GetWindowLongA, window, index);
  }
  bool SetWindowTextA(WindowHandle window, std::string_view text) override {
    return log_.Pass("SetWindowTextA", target_, &WindowApi::SetWindowTextA, window, text);
  }
  std::string GetWindowTextA(WindowHandle window) override {
    return log_.Pass("GetWindowTextA", target_, &WindowApi::GetWindowTextA, window);
  }

  bool ShowWindow(WindowHandle window, int command) override {
    return log_.Pass("ShowWindow", target_, &WindowApi::ShowWindow, window, command);
  }
  bool IsWindowVisible(WindowHandle window) override {
    return log_.Pass("IsWindowVisible", target_, &WindowApi::IsWindowVisible, window);
  }
  bool EnableWindow(WindowHandle window, bool enable) override {
    return log_.Pass("EnableWindow", target_, &WindowApi::EnableWindow, window, enable);
  }
  bool IsWindowEnabled(WindowHandle window) override {
    return log_.Pass("IsWindowEnabled", target_, &WindowApi::IsWindowEnabled, window);
  }

  WindowHandle SetFocus(WindowHandle window) override {
    return log_.Pass("SetFocus", target_, &WindowApi::SetFocus, window);
  }
  WindowHandle GetFocus() override { return log_.Pass("GetFocus", target_, &WindowApi::GetFocus); }
  WindowHandle SetActiveWindow(WindowHandle window) override {
    return log_.Pass("SetActiveWindow", target_, &WindowApi::SetActiveWindow, window);
  }
  WindowHandle GetActiveWindow() override {
    return log_.Pass("GetActiveWindow", target_, &WindowApi::GetActiveWindow);
  }

  WindowHandle SetCapture(WindowHandle window) override {
    return log_.Pass("SetCapture", target_, &WindowApi::SetCapture, window);
  }
  bool ReleaseCapture() override { return log_.Pass("ReleaseCapture", target_, &WindowApi::ReleaseCapture); }
  WindowHandle GetCapture() override { return log_.Pass("GetCapture", target_, &WindowApi::GetCapture); }
  bool GetCursorPos(PixelPoint& point) override {
    log_.Record("GetCursorPos");
    return target_.GetCursorPos(point);
  }
  int SetCursor(int shape) override { return log_.Pass("SetCursor", target_, &WindowApi::SetCursor, shape); }
  std::int16_t GetKeyState(int code) override {
    return log_.Pass("GetKeyState", target_, &WindowApi::GetKeyState, code);
  }
  std::int16_t GetAsyncKeyState(int code) override {
    return log_.Pass("GetAsyncKeyState", target_, &WindowApi::GetAsyncKeyState, code);
  }

  LResult SendMessageA(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override {
    return log_.Pass("SendMessageA", target_, &WindowApi::SendMessageA, window, message, wparam, lparam);
  }
  bool PostMessageA(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override {
    return log_.Pass("PostMessageA", target_, &WindowApi::PostMessageA, window, message, wparam, lparam);
  }
  LResult CallWindowProcA(std::intptr_t previous, WindowHandle window, std::uint32_t message, WParam wparam,
                          LParam lparam) override {
    return log_.Pass("CallWindowProcA", target_, &WindowApi::CallWindowProcA, previous, window, message,
                     wparam, lparam);
  }
  LResult DefWindowProcA(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override {
    return log_.Pass("DefWindowProcA", target_, &WindowApi::DefWindowProcA, window, message, wparam, lparam);
  }

  DcHandle GetDC(WindowHandle window) override {
    return log_.Pass("GetDC", target_, &WindowApi::GetDC, window);
  }
  bool ReleaseDC(WindowHandle window, DcHandle dc) override {
    return log_.Pass("ReleaseDC", target_, &WindowApi::ReleaseDC, window, dc);
  }
  bool InvalidateRect(WindowHandle window) override {
    log_.Record("InvalidateRect", window);
    return target_.InvalidateRect(window);
  }
  bool InvalidateRect(WindowHandle window, const PixelRect& area) override {
    log_.Record("InvalidateRect", window, area);
    return target_.InvalidateRect(window, area);
  }
  bool UpdateWindow(WindowHandle window) override {
    return log_.Pass("UpdateWindow", target_, &WindowApi::UpdateWindow, window);
  }
  DcHandle BeginPaint(WindowHandle window, PixelRect& part) override {
    log_.Record("BeginPaint", window);
    return target_.BeginPaint(window, part);
  }
  bool EndPaint(WindowHandle window) override {
    return log_.Pass("EndPaint", target_, &WindowApi::EndPaint, window);
  }

 private:
  WindowApi& target_;
  CallLog& log_;
};

}  // namespace

std::unique_ptr<WindowApi> Trace(WindowApi& target, CallLog& log) {
  return std::make_unique<TracingWindows>(target, log);
}

}  // namespace levelwidgets::tracing
