// A text inside a window for whoever reads the desktop: the built-in class "STATIC".
#pragma once

#include <string>

#include <levelwidgets/platform/memory/window_tree.h>
#include <levelwidgets/platform/window.h>

namespace levelwidgets::memory {

// Says its window's title. It paints nothing: its windows stay hidden, and what a person sees is drawn by
// others.
class StaticText final : public WindowClient {
 public:
  explicit StaticText(WindowApi& windows) : windows_(windows) {}

  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override {
    return windows_.DefWindowProcA(window, message, wparam, lparam);
  }

 private:
  WindowApi& windows_;
};

// What the only one directly in `window` says that says anything; "" with none or several.
std::string OnlyTextIn(const Window& window);

}  // namespace levelwidgets::memory
