#include <gtest/gtest.h>

#include <levelwidgets/platform/win32/test_desktop.h>

namespace levelwidgets::win32 {
namespace {

class Win32InputTest : public ::testing::Test, protected TestDesktop {
 protected:
  Win32InputTest() {
    form = MakeForm(client);
    driver.Settle();
    client.messages.clear();
  }

  const Message& Last(std::uint32_t number) {
    for (auto message = client.messages.rbegin(); message != client.messages.rend(); ++message)
      if (message->number == number) return *message;
    ADD_FAILURE() << "no message " << number;
    static const Message none;
    return none;
  }

  WindowHandle form;
};

TEST_F(Win32InputTest, ThePointerStartsOutOfTheWay) {
  PixelPoint pointer;
  ASSERT_TRUE(windows.GetCursorPos(pointer));
  const PixelSize screen = platform.Screen().Size();
  EXPECT_EQ(pointer, (PixelPoint{screen.width - 1, screen.height - 1}));
}

TEST_F(Win32InputTest, EveryPixelOfTheScreenCanBePointedAt) {
  for (const PixelPoint target : {PixelPoint{0, 0}, {1, 1}, {333, 217}, {767, 511}, {1023, 767}}) {
    driver.MovePointer(target);
    PixelPoint pointer;
    ASSERT_TRUE(windows.GetCursorPos(pointer));
    EXPECT_EQ(pointer, target);
  }
}

TEST_F(Win32InputTest, PointerMessagesCarryClientPixelsAndButtons) {
  driver.MovePointer({110, 125});
  EXPECT_EQ(PointOfLParam(Last(kWmMouseMove).lparam), (PixelPoint{10, 25}));
  driver.Press(kLeftButton);
  EXPECT_EQ(Last(kWmLButtonDown).wparam, kMkLButton);
  driver.Press(kRightButton);
  EXPECT_EQ(Last(kWmRButtonDown).wparam, kMkLButton | kMkRButton);
  driver.Release(kRightButton);
  driver.Release(kLeftButton);
  EXPECT_EQ(Last(kWmLButtonUp).wparam, 0u);
}

TEST_F(Win32InputTest, APressCapturesUntilItsReleaseIsDelivered) {
  WindowHandle holder_at_press;
  WindowHandle holder_at_release{1};
  client.on_message = [&](const Message& message) {
    if (message.number == kWmLButtonDown) holder_at_press = windows.GetCapture();
    if (message.number == kWmLButtonUp) holder_at_release = windows.GetCapture();
  };
  driver.MovePointer({110, 110});
  driver.Press(kLeftButton);
  EXPECT_EQ(holder_at_press, form);
  driver.MovePointer({90, 700});
  EXPECT_EQ(PointOfLParam(Last(kWmMouseMove).lparam), (PixelPoint{-10, 600}));
  driver.Release(kLeftButton);
  EXPECT_EQ(PointOfLParam(Last(kWmLButtonUp).lparam), (PixelPoint{-10, 600}));
  EXPECT_FALSE(holder_at_release);
}

TEST_F(Win32InputTest, ThePressCaptureLastsUntilTheLastButtonIsUp) {
  driver.MovePointer({110, 110});
  driver.Press(kLeftButton);
  driver.Press(kRightButton);
  driver.Release(kLeftButton);
  EXPECT_EQ(windows.GetCapture(), form);
  driver.Release(kRightButton);
  EXPECT_FALSE(windows.GetCapture());
}

TEST_F(Win32InputTest, ACaptureSetBeforeThePressEndsWithIt) {
  WindowHandle holder_at_release{1};
  client.on_message = [&](const Message& message) {
    if (message.number == kWmLButtonUp) holder_at_release = windows.GetCapture();
  };
  driver.MovePointer({110, 110});
  windows.SetCapture(form);
  driver.Press(kLeftButton);
  EXPECT_EQ(client.Count(kWmCaptureChanged), 0u);
  driver.Release(kLeftButton);
  EXPECT_FALSE(holder_at_release);
}

TEST_F(Win32InputTest, ACaptureSetAtTheReleaseLasts) {
  client.on_message = [&](const Message& message) {
    if (message.number == kWmLButtonUp) windows.SetCapture(form);
  };
  driver.MovePointer({110, 110});
  driver.Press(kLeftButton);
  driver.Release(kLeftButton);
  EXPECT_EQ(windows.GetCapture(), form);
  driver.MovePointer({50, 50});
  EXPECT_EQ(PointOfLParam(Last(kWmMouseMove).lparam), (PixelPoint{-50, -50}));
  EXPECT_TRUE(windows.ReleaseCapture());
}

TEST_F(Win32InputTest, OnlyADifferentWindowIsNotifiedOfALostCapture) {
  const WindowHandle child = MakeChild(form, client, {0, 0, 50, 50});
  client.messages.clear();
  EXPECT_FALSE(windows.SetCapture(form));
  EXPECT_EQ(windows.SetCapture(form), form);
  EXPECT_EQ(client.Count(kWmCaptureChanged), 0u);
  EXPECT_EQ(windows.SetCapture(child), form);
  EXPECT_EQ(client.Count(kWmCaptureChanged), 1u);
  EXPECT_EQ(Last(kWmCaptureChanged).window, form);
  windows.ReleaseCapture();
}

TEST_F(Win32InputTest, AChangeOfCaptureUnderARestingPointerIsNoMove) {
  driver.MovePointer({110, 110});
  client.messages.clear();
  windows.SetCapture(form);
  driver.Settle();
  windows.ReleaseCapture();
  driver.Settle();
  EXPECT_EQ(client.Count(kWmMouseMove), 0u);
}

TEST_F(Win32InputTest, ComingBackToTheSamePlaceIsAMove) {
  driver.MovePointer({110, 110});
  driver.MovePointer({600, 600});
  client.messages.clear();
  driver.MovePointer({110, 110});
  EXPECT_EQ(client.Count(kWmMouseMove), 1u);
}

TEST_F(Win32InputTest, ANewDriverTakesThePointerAwaySoThatTheSamePlaceIsAMove) {
  driver.MovePointer({110, 110});
  Win32Driver another(platform);
  client.messages.clear();
  another.MovePointer({110, 110});
  EXPECT_EQ(client.Count(kWmMouseMove), 1u);
}

TEST_F(Win32InputTest, TheSecondPressInTimeIsADoubleClick) {
  driver.DoubleClick({150, 150});
  EXPECT_EQ(client.Order({kWmLButtonDown, kWmLButtonUp, kWmLButtonDblClk}),
            (std::vector<std::uint32_t>{kWmLButtonDown, kWmLButtonUp, kWmLButtonDblClk, kWmLButtonUp}));
}

TEST_F(Win32InputTest, ADisabledChildLeavesItsPressesToTheParent) {
  const WindowHandle child = MakeChild(form, client, {0, 0, 50, 50});
  windows.EnableWindow(child, false);
  driver.Click({110, 110});
  EXPECT_EQ(Last(kWmLButtonDown).window, form);
}

TEST_F(Win32InputTest, APressActivatesItsTopLevelWindowFirst) {
  const WindowHandle other = MakeForm(client, {500, 100, 600, 200});
  windows.SetActiveWindow(other);
  ASSERT_EQ(windows.GetActiveWindow(), other);
  WindowHandle active_at_press;
  client.on_message = [&](const Message& message) {
    if (message.number == kWmLButtonDown) active_at_press = windows.GetActiveWindow();
  };
  driver.Click({110, 110});
  EXPECT_EQ(active_at_press, form);
  driver.Click({510, 110});
  EXPECT_EQ(active_at_press, other);
}

TEST_F(Win32InputTest, APopupLosesTheActivationToAClickElsewhere) {
  const WindowHandle panel = MakeChild(form, client, {10, 10, 60, 60});
  windows.SetWindowLongA(panel, kGwlExStyle, kWsExToolWindow);
  windows.SetParent(panel, {});
  windows.SetWindowLongA(panel, kGwlStyle, kWsPopup | kWsBorder);
  windows.SetWindowPos(panel, {kHwndTopMost}, {}, kSwpNoSize | kSwpNoRedraw);
  windows.SetWindowPos(panel, {kHwndTop}, {600, 400, 0, 0}, kSwpNoSize | kSwpShowWindow);
  windows.SetFocus(panel);
  EXPECT_EQ(windows.GetActiveWindow(), panel);
  driver.Click({110, 110});
  EXPECT_EQ(windows.GetActiveWindow(), form);
  windows.SetFocus(panel);
  driver.Click({900, 700});  // the bare desktop
  EXPECT_FALSE(windows.GetActiveWindow());
}

TEST_F(Win32InputTest, TypingGivesKeyDownCharacterAndKeyUp) {
  windows.SetFocus(form);
  client.messages.clear();
  driver.Type("A\xC3\xA4");
  std::vector<WParam> characters;
  for (const Message& message : client.messages)
    if (message.number == kWmChar) characters.push_back(message.wparam);
  EXPECT_EQ(characters, (std::vector<WParam>{'A', 0xE4}));
  const auto order = client.Order({kWmKeyDown, kWmChar, kWmKeyUp});
  EXPECT_EQ(order, (std::vector<std::uint32_t>{kWmKeyDown, kWmKeyDown, kWmChar, kWmKeyUp, kWmKeyUp,
                                               kWmKeyDown, kWmChar, kWmKeyUp}))
      << "Shift, A, and a key without a place on the keyboard";
}

TEST_F(Win32InputTest, ShiftBitsAreHeldUntilTheKeyIsUp) {
  windows.SetFocus(form);
  driver.KeyDown(kKeyDown, kCtrlMask | kShiftMask);
  EXPECT_EQ(Last(kWmKeyDown).wparam, static_cast<WParam>(kKeyDown));
  EXPECT_LT(windows.GetKeyState(kKeyControl), 0);
  EXPECT_LT(windows.GetKeyState(kKeyShift), 0);
  driver.KeyUp(kKeyDown, kCtrlMask | kShiftMask);
  EXPECT_GE(windows.GetKeyState(kKeyControl), 0);
  EXPECT_GE(windows.GetKeyState(kKeyShift), 0);
}

TEST_F(Win32InputTest, WithAltKeysArriveAsSystemKeys) {
  windows.SetFocus(form);
  driver.Key(kKeyDown, kAltMask);
  EXPECT_EQ(client.Count(kWmSysKeyDown), 2u) << "Alt and the key";
  EXPECT_EQ(client.Count(kWmKeyDown), 0u);
}

TEST_F(Win32InputTest, WheelNotchesComeAsMultiplesOf120) {
  windows.SetFocus(form);
  driver.MovePointer({150, 150});
  driver.Wheel(-2);
  EXPECT_EQ(static_cast<std::int16_t>(Last(kWmMouseWheel).wparam >> 16), -240);
}

}  // namespace
}  // namespace levelwidgets::win32
