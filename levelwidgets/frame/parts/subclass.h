// A window's procedure, replaced for a while.
#pragma once

#include <cstdint>
#include <functional>

#include <levelwidgets/platform/window.h>

namespace levelwidgets {

// Replaces the procedure of a window for its own lifetime, and puts it back before the window goes. The
// window's user data is in use meanwhile, so that a window can have one at a time.
class Subclass {
 public:
  // Answers a message, most by Pass(). It may end the Subclass.
  using Handler = std::function<LResult(std::uint32_t message, WParam wparam, LParam lparam)>;

  Subclass(WindowApi& windows, WindowHandle window, Handler handler);
  Subclass(const Subclass&) = delete;
  Subclass& operator=(const Subclass&) = delete;
  ~Subclass() { End(); }

  // What the window makes of the message by itself.
  LResult Pass(std::uint32_t message, WParam wparam, LParam lparam) const {
    return windows_.CallWindowProcA(previous_, window_, message, wparam, lparam);
  }

 private:
  static LResult Procedure(WindowApi& windows, WindowHandle window, std::uint32_t message, WParam wparam,
                           LParam lparam);
  void End();

  WindowApi& windows_;
  WindowHandle window_;
  Handler handler_;
  std::intptr_t previous_ = 0;
  bool active_ = true;
};

}  // namespace levelwidgets
