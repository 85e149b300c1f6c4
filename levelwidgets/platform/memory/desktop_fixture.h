// For tests of the desktop in memory: a window client that writes down the messages it gets.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/platform/memory/desktop.h>
#include <levelwidgets/platform/message_names_testing.h>

namespace levelwidgets::memory {

using Log = std::vector<std::string>;

// "name Message wparam lparam", pointer messages as "name Message wparam x,y".
class Recorder : public WindowClient {
 public:
  using Handler = std::function<LResult(WindowHandle, WParam, LParam)>;

  Recorder(Desktop& desktop, Log& log) : desktop_(desktop), log_(log) {}

  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override {
    if (message != kWmSetCursor || log_shapes) log_.push_back(Line(window, message, wparam, lparam));
    if (const auto handler = handlers_.find(message); handler != handlers_.end()) {
      const Handler call = handler->second;  // the handler may replace itself
      return call(window, wparam, lparam);
    }
    return desktop_.Windows().DefWindowProcA(window, message, wparam, lparam);
  }

  void Name(WindowHandle window, std::string name) { names_[window.value] = std::move(name); }
  void On(std::uint32_t message, Handler handler) { handlers_[message] = std::move(handler); }
  void Off(std::uint32_t message) { handlers_.erase(message); }

  bool log_shapes = false;  // the questions about the pointer's shape, too: each move asks

 private:
  // Other windows are given by name, 0 by "none".
  std::string NameOf(WindowHandle window) {
    if (!window) return "none";
    const auto found = names_.find(window.value);
    return found == names_.end() ? "new" : found->second;
  }

  std::string Line(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
    const std::string start = NameOf(window) + " " + NameOfMessage(message);
    const WindowHandle first{static_cast<std::uint32_t>(wparam)};
    const WindowHandle second{static_cast<std::uint32_t>(lparam)};
    const PixelPoint point = PointOfLParam(lparam);
    const std::string at = std::to_string(point.x) + "," + std::to_string(point.y);
    const std::string number = std::to_string(wparam);
    switch (message) {
      case kWmCreate:
      case kWmDestroy:
      case kWmPaint:
      case kWmClose:
      case kWmCancelMode:
      case kWmMouseActivate: return start;
      case kWmSysCommand: return start + " " + std::to_string(wparam);
      case kWmSetCursor:
      case kWmSetFocus:
      case kWmKillFocus: return start + " " + NameOf(first);
      case kWmCaptureChanged: return start + " " + NameOf(second);
      case kWmActivate: return start + " " + number + " " + NameOf(second);
      case kWmMove:
      case kWmSize: return start + " " + at;
      case kWmEnable:
      case kWmShowWindow:
      case kWmKeyDown:
      case kWmKeyUp:
      case kWmChar:
      case kWmSysKeyDown:
      case kWmSysKeyUp:
      case kWmSysChar: return start + " " + number;
      case kWmMouseWheel:
        return start + " " + std::to_string(static_cast<std::int16_t>(wparam >> 16)) + " " + at;
      default: return start + " " + number + " " + at;
    }
  }

  Desktop& desktop_;
  Log& log_;
  std::map<std::uint32_t, std::string> names_;
  std::map<std::uint32_t, Handler> handlers_;
};

class DesktopTest : public ::testing::Test {
 protected:
  static constexpr std::uint32_t kChild = kWsChild | kWsVisible | kWsClipSiblings | kWsClipChildren;
  static constexpr std::uint32_t kPopup = kWsPopup | kWsVisible | kWsClipChildren;

  WindowHandle Make(const std::string& name, WindowClient* to, WindowHandle parent, PixelRect rect,
                    std::uint32_t style) {
    const WindowHandle window = windows.CreateWindowExA({"", name, style, 0, rect, parent, to});
    client.Name(window, name);
    return window;
  }
  WindowHandle MakeTop(const std::string& name, PixelRect rect, std::uint32_t style = kPopup) {
    return Make(name, &client, {}, rect, style);
  }
  WindowHandle MakeChild(const std::string& name, WindowHandle parent, PixelRect rect,
                         std::uint32_t style = kChild) {
    return Make(name, &client, parent, rect, style);
  }
  // Everything logged since the last call; what was pending before it is done first.
  Log Take() {
    Log taken;
    taken.swap(log);
    return taken;
  }
  void Begin() {
    desktop.Settle();
    log.clear();
  }

  Desktop desktop;
  MemoryWindows& windows = desktop.Windows();
  Log log;
  Recorder client{desktop, log};
};

// A form with two children side by side, (10, 10, 60, 60) and (60, 10, 110, 60).
class InputTest : public DesktopTest {
 protected:
  // Input only: no paints, no questions about activation.
  Log Input() {
    Log lines;
    for (const std::string& line : Take()) {
      const bool noise = line.ends_with(" Paint") || line.ends_with(" MouseActivate");
      if (!noise) lines.push_back(line);
    }
    return lines;
  }

  WindowHandle form = MakeTop("form", {100, 100, 300, 200});
  WindowHandle left = MakeChild("left", form, {10, 10, 60, 60});
  WindowHandle right = MakeChild("right", form, {60, 10, 110, 60});
};

}  // namespace levelwidgets::memory
