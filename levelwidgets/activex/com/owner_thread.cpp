#include <levelwidgets/activex/com/owner_thread.h>

#include <memory>

namespace levelwidgets::activex {

namespace {

constexpr UINT kCallMessage = WM_APP;

LRESULT CALLBACK ReceiveCall(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message != kCallMessage) return ::DefWindowProcW(window, message, wparam, lparam);
  // The window may end with the call.
  const std::unique_ptr<std::function<void()>> call(reinterpret_cast<std::function<void()>*>(lparam));
  (*call)();
  return 0;
}

}  // namespace

// One of the system's own classes: no class of ours has to outlive the module.
OwnerThread::OwnerThread()
    : receiver_(
          ::CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr)) {
  ::SetWindowLongPtrW(receiver_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ReceiveCall));
}

OwnerThread::~OwnerThread() { ::DestroyWindow(receiver_); }

void OwnerThread::Call(std::function<void()> call) const {
  if (IsCurrent()) return call();
  auto handed = std::make_unique<std::function<void()>>(std::move(call));
  if (::PostMessageW(receiver_, kCallMessage, 0, reinterpret_cast<LPARAM>(handed.get()))) {
    static_cast<void>(handed.release());
  }
}

}  // namespace levelwidgets::activex
