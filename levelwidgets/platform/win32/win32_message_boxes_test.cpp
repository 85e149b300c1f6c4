#include <levelwidgets/platform/message_boxes.h>

#include <windows.h>

#include <stdexcept>

#include <levelwidgets/platform/win32/native.h>
#include <levelwidgets/platform/win32/test_desktop.h>

namespace levelwidgets::win32 {

namespace {

constexpr char kTitle[] = "A message";
constexpr int kMostTicks = 300;

class Win32MessageBoxTest : public ::testing::Test, protected TestDesktop {
 protected:
  ~Win32MessageBoxTest() override {
    clock.KillTimer(timer_);
    EXPECT_LE(ticks_, kMostTicks) << "The message was given up.";
  }

  int Show(const char* text, std::uint32_t style, WindowHandle owner = {}) {
    return MessageBoxesOf(platform)->MessageBoxA(
        {.owner = owner, .text = text, .title = kTitle, .style = style});
  }

  // Calls `act` with the message once it is seen. One that is not answered must not hold up the other tests.
  void Meanwhile(std::function<void(const TopLevelWindow&)> act) {
    clock.KillTimer(timer_);
    timer_ = clock.SetTimer(20, [this, act = std::move(act), done = false]() mutable {
      if (++ticks_ > kMostTicks) ::EnumThreadWindows(::GetCurrentThreadId(), GiveUp, 0);
      const auto listed = Listed();
      if (!listed || std::exchange(done, true)) return;
      act(*listed);
    });
  }
  void Press(int button) {
    Meanwhile([button](const TopLevelWindow& box) { PostButton(box, button); });
  }
  static void PostButton(const TopLevelWindow& box, int button) {
    ::PostMessageA(ToNative<HWND>(box.handle), WM_COMMAND, static_cast<WPARAM>(button), 0);
  }
  // As the system does it, to the window with the focus.
  static void PostKey(int key) { ::PostMessageA(::GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(key), 0); }

 private:
  std::optional<TopLevelWindow> Listed() {
    for (const TopLevelWindow& window : driver.TopLevelWindows()) {
      if (window.title == kTitle) return window;
    }
    return {};
  }
  static BOOL CALLBACK GiveUp(HWND window, LPARAM) {
    ::EndDialog(window, 0);
    return TRUE;
  }

  TimerHandle timer_;
  int ticks_ = 0;
};

TEST_F(Win32MessageBoxTest, TheListOfWindowsHasItsTitleAndItsText) {
  std::string text;
  bool active = false;
  Meanwhile([&](const TopLevelWindow& box) {
    text = box.text;
    active = box.active;
    PostButton(box, IDOK);
  });
  EXPECT_EQ(Show("One & two\nth\xC3\xA9 end", MB_OK | MB_ICONERROR), IDOK);
  EXPECT_EQ(text, "One & two\nth\xC3\xA9 end");
  EXPECT_TRUE(active);
}

TEST_F(Win32MessageBoxTest, EachButtonOfEachSetHasTheSystemsNumber) {
  const std::pair<std::uint32_t, std::vector<int>> sets[] = {{MB_OK, {IDOK}},
                                                             {MB_OKCANCEL, {IDOK, IDCANCEL}},
                                                             {MB_YESNOCANCEL, {IDYES, IDNO, IDCANCEL}},
                                                             {MB_YESNO, {IDYES, IDNO}}};
  for (const auto& [style, buttons] : sets) {
    for (const int button : buttons) {
      Press(button);
      EXPECT_EQ(Show("Read this", style), button);
    }
  }
}

TEST_F(Win32MessageBoxTest, EnterPressesTheFirstButtonAndEscapeCancel) {
  Meanwhile([](const TopLevelWindow&) { PostKey(VK_RETURN); });
  EXPECT_EQ(Show("Read this", MB_YESNOCANCEL), IDYES);
  Meanwhile([](const TopLevelWindow&) { PostKey(VK_ESCAPE); });
  EXPECT_EQ(Show("Read this", MB_YESNOCANCEL), IDCANCEL);
}

TEST_F(Win32MessageBoxTest, AnArrowMovesToTheNextButton) {
  Meanwhile([](const TopLevelWindow&) {
    PostKey(VK_RIGHT);
    PostKey(VK_RETURN);
  });
  EXPECT_EQ(Show("Read this", MB_YESNO), IDNO);
}

TEST_F(Win32MessageBoxTest, ItsOwnerTakesNoInputMeanwhile) {
  const WindowHandle form = MakeForm(client);
  bool enabled = true;
  Meanwhile([&](const TopLevelWindow& box) {
    enabled = windows.IsWindowEnabled(form);
    PostButton(box, IDOK);
  });
  Show("Read this", MB_OK, form);
  EXPECT_FALSE(enabled);
  EXPECT_TRUE(windows.IsWindowEnabled(form));
  EXPECT_EQ(windows.GetActiveWindow(), form);
}

TEST_F(Win32MessageBoxTest, ItEndsWithItsOwner) {
  const WindowHandle form = MakeForm(client);
  Meanwhile([&](const TopLevelWindow&) { windows.DestroyWindow(form); });
  EXPECT_EQ(Show("Read this", MB_YESNO, form), 0);
}

TEST_F(Win32MessageBoxTest, WhatAHandlerThrowsMeanwhileIsThrownAtTheEnd) {
  Press(IDOK);
  clock.Post([] { throw std::runtime_error("meanwhile"); });
  EXPECT_THROW(Show("Read this", MB_OK), std::runtime_error);
}

}  // namespace

}  // namespace levelwidgets::win32
