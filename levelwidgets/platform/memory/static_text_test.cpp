#include <levelwidgets/platform/memory/desktop_fixture.h>

namespace levelwidgets::memory {

namespace {

class StaticTextTest : public ::testing::Test {
 protected:
  WindowHandle Make(const char* class_name, const char* title, WindowHandle parent = {}) {
    const std::uint32_t style = parent ? kWsChild : kWsPopup | kWsVisible;
    return desktop_.Windows().CreateWindowExA(
        {class_name, title, style, 0, {0, 0, 100, 100}, parent, parent ? nullptr : &client_});
  }
  std::string TextOf(WindowHandle window) {
    for (const TopLevelWindow& listed : desktop_.TopLevelWindows()) {
      if (listed.handle == window) return listed.text;
    }
    return "not listed";
  }

  Desktop desktop_{{}};
  Log log_;
  Recorder client_{desktop_, log_};
};

TEST_F(StaticTextTest, AWindowSaysTheOnlyTextInIt) {
  const WindowHandle window = Make("", "Title");
  EXPECT_EQ(TextOf(window), "");
  Make("STATIC", "", window);
  const WindowHandle text = Make("Static", "One\nTwo", window);
  EXPECT_EQ(TextOf(window), "One\nTwo");
  desktop_.Windows().SetWindowTextA(text, "Three");
  EXPECT_EQ(TextOf(window), "Three");
}

TEST_F(StaticTextTest, AWindowWithSeveralTextsIsNoMessage) {
  const WindowHandle window = Make("", "Title");
  Make("STATIC", "One", window);
  Make("STATIC", "Two", window);
  EXPECT_EQ(TextOf(window), "");
}

TEST_F(StaticTextTest, WhatOtherWindowsHoldIsNoMessage) {
  const WindowHandle window = Make("", "Title");
  Make("EDIT", "typed", window);
  const WindowHandle inner = Make("EDIT", "", window);
  Make("STATIC", "inner", inner);
  EXPECT_EQ(TextOf(window), "");
}

}  // namespace

}  // namespace levelwidgets::memory
