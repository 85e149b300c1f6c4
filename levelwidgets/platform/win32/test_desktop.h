// A desktop for the tests of this folder: the real platform, driven by real input.
#pragma once

#include <functional>
#include <vector>

#include <levelwidgets/platform/win32/win32_driver.h>
#include <levelwidgets/platform/win32/win32_platform.h>

namespace levelwidgets::win32 {

struct Message {
  WindowHandle window;
  std::uint32_t number = 0;
  WParam wparam = 0;
  LParam lparam = 0;
};

// Keeps every message, calls `on_message` for it and lets the system do its part.
class RecordingClient : public WindowClient {
 public:
  explicit RecordingClient(WindowApi& windows) : windows_(windows) {}

  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override {
    const Message received{window, message, wparam, lparam};
    messages.push_back(received);
    if (on_message) on_message(received);
    return windows_.DefWindowProcA(window, message, wparam, lparam);
  }

  std::size_t Count(std::uint32_t number) const {
    std::size_t count = 0;
    for (const Message& message : messages) count += message.number == number;
    return count;
  }

  // The messages of `numbers` that arrived, in order.
  std::vector<std::uint32_t> Order(const std::vector<std::uint32_t>& numbers) const {
    std::vector<std::uint32_t> order;
    for (const Message& message : messages)
      for (const std::uint32_t number : numbers)
        if (message.number == number) order.push_back(number);
    return order;
  }

  std::vector<Message> messages;
  std::function<void(const Message&)> on_message;

 private:
  WindowApi& windows_;
};

struct TestDesktop {
  static constexpr PixelRect kFormRect{100, 100, 400, 300};

  // A visible window without a frame: client and outer rectangle agree.
  WindowHandle MakeForm(WindowClient& receiver, PixelRect rect = kFormRect) {
    return windows.CreateWindowExA({.title = "Form",
                                    .style = kWsPopup | kWsVisible | kWsClipChildren,
                                    .rect = rect,
                                    .client = &receiver});
  }

  WindowHandle MakeChild(WindowHandle parent, WindowClient& receiver, PixelRect rect) {
    return windows.CreateWindowExA(
        {.style = kWsChild | kWsVisible, .rect = rect, .parent = parent, .client = &receiver});
  }

  Win32Platform platform;
  Win32Driver driver{platform};
  DrawingApi& drawing = platform.Drawing();
  WindowApi& windows = platform.Windows();
  ClockApi& clock = platform.Clock();
  RecordingClient client{windows};
};

}  // namespace levelwidgets::win32
