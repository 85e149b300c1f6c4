// For tests of an edit box on a desktop in memory: its parent, and a hand that knows where its characters
// are.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <levelwidgets/platform/memory/desktop.h>

namespace levelwidgets::memory {

class EditHandTest : public ::testing::Test, public WindowClient {
 protected:
  explicit EditHandTest(const DesktopOptions& options = {}) : desktop(options) {
    parent = windows.CreateWindowExA({"", "", kWsPopup | kWsVisible, 0, {100, 100, 500, 400}, {}, this});
  }
  ~EditHandTest() override {
    windows.DestroyWindow(parent);
    EXPECT_EQ(desktop.LiveObjects(), 0u);
    EXPECT_EQ(desktop.LiveWindows(), 0u);
    EXPECT_EQ(desktop.LiveTimers(), 0u);
  }

  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override {
    if (message == kWmCommand) {
      notices.push_back(static_cast<std::uint32_t>(wparam >> 16));
      if (destroy_at == notices.back()) windows.DestroyWindow(edit);
    }
    return windows.DefWindowProcA(window, message, wparam, lparam);
  }

  void Make(std::uint32_t style, const std::string& bytes, PixelRect rect = {10, 10, 310, 110}) {
    edit = windows.CreateWindowExA({"edit", "", kWsChild | kWsVisible | style, 0, rect, parent, nullptr});
    Send(kWmSetText, 0, reinterpret_cast<LParam>(bytes.c_str()));
    windows.SetFocus(edit);
    desktop.Settle();
    notices.clear();
  }
  LResult Send(std::uint32_t message, WParam wparam = 0, LParam lparam = 0) {
    return windows.SendMessageA(edit, message, wparam, lparam);
  }
  std::string Text() { return windows.GetWindowTextA(edit); }
  void Select(int start, int end) { Send(kEmSetSel, static_cast<WParam>(start), end); }
  std::pair<int, int> Selected() {
    std::uint32_t start = 0;
    std::uint32_t end = 0;
    Send(kEmGetSel, reinterpret_cast<WParam>(&start), reinterpret_cast<LParam>(&end));
    return {static_cast<int>(start), static_cast<int>(end)};
  }
  // On the screen, a little inside the character.
  PixelPoint PointOf(int offset) {
    const LResult at = Send(kEmPosFromChar, static_cast<WParam>(offset));
    PixelPoint point{static_cast<std::int16_t>(at & 0xFFFF) + 1,
                     static_cast<std::int16_t>(at >> 16 & 0xFFFF) + 3};
    windows.ClientToScreen(edit, point);
    return point;
  }
  void Move(int offset) { desktop.MovePointer(PointOf(offset)); }

  Desktop desktop;
  MemoryWindows& windows = desktop.Windows();
  WindowHandle parent;
  WindowHandle edit;
  std::vector<std::uint32_t> notices;
  std::uint32_t destroy_at = 0;
};

}  // namespace levelwidgets::memory
