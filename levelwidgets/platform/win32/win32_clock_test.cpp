#include <stdexcept>

#include <gtest/gtest.h>

#include <levelwidgets/platform/win32/test_desktop.h>

namespace levelwidgets::win32 {
namespace {

class Win32ClockTest : public ::testing::Test, protected TestDesktop {};

TEST_F(Win32ClockTest, ATimerTicksAtItsInterval) {
  int ticks = 0;
  const TimerHandle timer = clock.SetTimer(40, [&] { ++ticks; });
  EXPECT_EQ(driver.LiveTimers(), 1u);
  EXPECT_EQ(ticks, 0) << "never at once";
  driver.Advance(40);
  EXPECT_EQ(ticks, 1);
  EXPECT_TRUE(clock.KillTimer(timer));
  EXPECT_FALSE(clock.KillTimer(timer));
  driver.Advance(60);
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(driver.LiveTimers(), 0u);
}

TEST_F(Win32ClockTest, ATickMayKillItsOwnTimer) {
  int ticks = 0;
  TimerHandle timer;
  timer = clock.SetTimer(10, [&] {
    ++ticks;
    clock.KillTimer(timer);
  });
  driver.Advance(50);
  EXPECT_EQ(ticks, 1);
}

TEST_F(Win32ClockTest, AnExceptionOfATickLeavesTheLoopAndTheTimerIntact) {
  bool refuse = true;
  int ticks = 0;
  const TimerHandle timer = clock.SetTimer(20, [&] {
    if (refuse) throw std::runtime_error("refused");
    ++ticks;
  });
  EXPECT_THROW(driver.Advance(30), std::runtime_error);
  refuse = false;
  driver.Advance(30);
  EXPECT_GE(ticks, 1);
  clock.KillTimer(timer);
}

TEST_F(Win32ClockTest, PostedCallsRunLaterInTheirOrder) {
  std::string order;
  clock.Post([&] {
    order += 'a';
    clock.Post([&] { order += 'c'; });
  });
  clock.Post([&] { order += 'b'; });
  EXPECT_EQ(order, "");
  clock.DoEvents();
  EXPECT_EQ(order, "abc");
}

TEST_F(Win32ClockTest, RunReturnsTheStatusOfQuit) {
  clock.Post([&] { clock.Quit(7); });
  EXPECT_EQ(clock.Run(), 7);
}

TEST_F(Win32ClockTest, QuitWithinDoEventsEndsTheOuterLoop) {
  clock.Post([&] {
    clock.Quit(5);
    clock.DoEvents();
  });
  EXPECT_EQ(clock.Run(), 5);
}

TEST_F(Win32ClockTest, AnExceptionOfAPostedCallLeavesTheLoopOnce) {
  bool second = false;
  clock.Post([] { throw std::runtime_error("refused"); });
  clock.Post([&] { second = true; });
  EXPECT_THROW(clock.DoEvents(), std::runtime_error);
  clock.DoEvents();
  EXPECT_TRUE(second);
}

TEST_F(Win32ClockTest, TheTickCountGoesOn) {
  const std::uint64_t before = clock.GetTickCount();
  driver.Advance(20);
  EXPECT_GE(clock.GetTickCount(), before + 20);
}

TEST_F(Win32ClockTest, NowIsARecentDate) {
  EXPECT_GT(clock.Now().days, 44000) << "2020";
  EXPECT_LT(clock.Now().days, 110000) << "2201";
}

TEST_F(Win32ClockTest, TheScreenHasWholeTwips) {
  EXPECT_GT(platform.Screen().Size().width, 0);
  EXPECT_EQ(platform.Screen().TwipsPerPixelX(), 15);
  EXPECT_EQ(platform.Screen().TwipsPerPixelY(), 15);
}

// --- Exceptions of clients -------------------------------------------------------------------

class Win32ExceptionTest : public ::testing::Test, protected TestDesktop {
 protected:
  void ThrowAt(std::uint32_t number) {
    client.on_message = [number](const Message& message) {
      if (message.number == number) throw std::runtime_error("refused");
    };
  }
};

TEST_F(Win32ExceptionTest, ReachesTheCallThatSentTheMessage) {
  const WindowHandle form = MakeForm(client);
  ThrowAt(0x0401);
  EXPECT_THROW(windows.SendMessageA(form, 0x0401, 0, 0), std::runtime_error);
  ThrowAt(kWmSize);
  EXPECT_THROW(windows.SetWindowPos(form, {}, {0, 0, 50, 50}, kSwpNoMove), std::runtime_error);
  ThrowAt(kWmPaint);
  windows.InvalidateRect(form);
  EXPECT_THROW(windows.UpdateWindow(form), std::runtime_error);
  ThrowAt(kWmShowWindow);
  EXPECT_THROW(windows.ShowWindow(form, kSwHide), std::runtime_error);
  ThrowAt(kWmDestroy);
  EXPECT_THROW(windows.DestroyWindow(form), std::runtime_error);
  EXPECT_FALSE(windows.IsWindow(form)) << "destroyed all the same";
}

TEST_F(Win32ExceptionTest, OfAFocusHandlerReachesSetFocus) {
  const WindowHandle form = MakeForm(client);
  const WindowHandle child = MakeChild(form, client, {0, 0, 20, 20});
  windows.SetFocus(form);
  ThrowAt(kWmKillFocus);
  EXPECT_THROW(windows.SetFocus(child), std::runtime_error);
  client.on_message = nullptr;
}

TEST_F(Win32ExceptionTest, OfAnInputHandlerReachesTheDriver) {
  MakeForm(client);
  ThrowAt(kWmLButtonDown);
  driver.MovePointer({110, 110});
  EXPECT_THROW(driver.Press(kLeftButton), std::runtime_error);
  client.on_message = nullptr;
  EXPECT_NO_THROW(driver.Release(kLeftButton));
}

TEST_F(Win32ExceptionTest, DuringCreationLeavesNoWindow) {
  for (const std::uint32_t message : {kWmCreate, kWmShowWindow}) {
    ThrowAt(message);
    EXPECT_THROW(MakeForm(client), std::runtime_error);
    client.on_message = nullptr;
    EXPECT_EQ(driver.LiveWindows(), 0u);
  }
}

TEST_F(Win32ExceptionTest, OfANestedCallPassesThroughItsCaller) {
  const WindowHandle form = MakeForm(client);
  bool caught_inside = false;
  client.on_message = [&](const Message& message) {
    if (message.number == 0x0402) throw std::runtime_error("refused");
    if (message.number != 0x0401) return;
    try {
      windows.SendMessageA(form, 0x0402, 0, 0);
    } catch (const std::runtime_error&) {
      caught_inside = true;
      throw;
    }
  };
  EXPECT_THROW(windows.SendMessageA(form, 0x0401, 0, 0), std::runtime_error);
  EXPECT_TRUE(caught_inside);
}

TEST_F(Win32ExceptionTest, OfOneHandlerDoesNotCutTheNextShort) {
  const WindowHandle form = MakeForm(client);
  MakeChild(form, client, {0, 0, 20, 20});
  int completed = 0;
  client.on_message = [&](const Message& message) {
    if (message.number != kWmDestroy) return;
    if (message.window == form) throw std::runtime_error("refused");
    windows.SendMessageA(message.window, 0x0401, 0, 0);
    ++completed;
  };
  EXPECT_THROW(windows.DestroyWindow(form), std::runtime_error);
  EXPECT_EQ(completed, 1);
}

}  // namespace
}  // namespace levelwidgets::win32
