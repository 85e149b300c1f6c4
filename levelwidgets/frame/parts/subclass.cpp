#include <levelwidgets/frame/parts/subclass.h>

#include <utility>

namespace levelwidgets {

Subclass::Subclass(WindowApi& windows, WindowHandle window, Handler handler)
    : windows_(windows), window_(window), handler_(std::move(handler)) {
  windows_.SetWindowLongA(window_, kGwlUserData, reinterpret_cast<std::intptr_t>(this));
  previous_ = windows_.SetWindowLongA(window_, kGwlWndProc, reinterpret_cast<std::intptr_t>(&Procedure));
}

void Subclass::End() {
  if (!std::exchange(active_, false)) return;
  windows_.SetWindowLongA(window_, kGwlWndProc, previous_);
  windows_.SetWindowLongA(window_, kGwlUserData, 0);
}

LResult Subclass::Procedure(WindowApi& windows, WindowHandle window, std::uint32_t message, WParam wparam,
                            LParam lparam) {
  auto* const subclass = reinterpret_cast<Subclass*>(windows.GetWindowLongA(window, kGwlUserData));
  if (message == kWmDestroy) subclass->End();
  // A copy, because the handler may end the Subclass.
  const Handler handler = subclass->handler_;
  return handler(message, wparam, lparam);
}

}  // namespace levelwidgets
