#include <levelwidgets/platform/win32/other_program.h>

#include <windows.h>

namespace levelwidgets::win32 {

OtherProgram::OtherProgram() {
  std::future<void*> window = ready_.get_future();
  thread_ = std::thread([this] { Run(); });
  window_ = window.get();
}

OtherProgram::~OtherProgram() {
  ::PostMessageA(static_cast<HWND>(window_), WM_CLOSE, 0, 0);
  thread_.join();
}

// The caller has the foreground, and may give it away.
void OtherProgram::Activate() {
  ::ShowWindow(static_cast<HWND>(window_), SW_SHOWNA);
  ::SetForegroundWindow(static_cast<HWND>(window_));
}

bool OtherProgram::IsActive() const { return ::GetForegroundWindow() == static_cast<HWND>(window_); }

void OtherProgram::Run() {
  const HWND window = ::CreateWindowExA(WS_EX_TOOLWINDOW, "STATIC", "", WS_POPUP, 0, 0, 1, 1, nullptr,
                                        nullptr, nullptr, nullptr);
  ready_.set_value(window);
  MSG message = {};
  while (::IsWindow(window) && ::GetMessageA(&message, nullptr, 0, 0) > 0) ::DispatchMessageA(&message);
}

}  // namespace levelwidgets::win32
