// For tests of what the platforms promise about plain windows, on the one that the tests run on.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include <levelwidgets/testing/driver.h>

namespace levelwidgets::testing {

// Answers messages by what is set for them, the others by the default.
class PlainClient : public WindowClient {
 public:
  using Handler = std::function<LResult(WindowHandle, WParam, LParam)>;

  explicit PlainClient(WindowApi& windows) : windows_(windows) {}

  void On(std::uint32_t message, Handler handler) { handlers_[message] = std::move(handler); }

  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override {
    const auto handler = handlers_.find(message);
    if (handler == handlers_.end()) return windows_.DefWindowProcA(window, message, wparam, lparam);
    return handler->second(window, wparam, lparam);
  }

 private:
  WindowApi& windows_;
  std::map<std::uint32_t, Handler> handlers_;
};

class PlainWindowsTest : public ::testing::Test {
 protected:
  static constexpr std::uint32_t kFormStyle = kWsCaption | kWsSysMenu | kWsMinimizeBox | kWsMaximizeBox |
                                              kWsThickFrame | kWsClipChildren | kWsVisible;

  // The desktop of Windows is one for all tests: where the last one left the pointer, moving it would be no
  // move.
  PlainWindowsTest() {
    const PixelSize screen = driver->GetPlatform().Screen().Size();
    driver->MovePointer({screen.width - 1, screen.height - 1});
  }

  void TearDown() override {
    for (const WindowHandle window : made_) windows.DestroyWindow(window);
    driver->Settle();
  }

  // Ends with the test.
  WindowHandle Make(const WindowRequest& request) {
    const WindowHandle window = windows.CreateWindowExA(request);
    made_.push_back(window);
    driver->Settle();
    return window;
  }
  WindowHandle MakeTop(PixelRect rect, std::uint32_t style = kWsPopup | kWsVisible | kWsClipChildren) {
    return Make({.style = style, .rect = rect, .client = &client});
  }
  WindowHandle MakeChild(WindowHandle parent, PixelRect rect, WindowClient* to, const char* class_name = "") {
    return Make({.class_name = class_name,
                 .style = kWsChild | kWsVisible,
                 .rect = rect,
                 .parent = parent,
                 .client = to});
  }

  std::shared_ptr<DesktopDriver> driver = TestDriver();
  WindowApi& windows = driver->GetPlatform().Windows();
  PlainClient client{windows};

 private:
  std::vector<WindowHandle> made_;
};

}  // namespace levelwidgets::testing
