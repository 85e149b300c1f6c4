// Keys as messages, and handlers that do more than answer.
#include <stdexcept>

#include <levelwidgets/platform/memory/desktop_fixture.h>

namespace levelwidgets::memory {
namespace {

using ::testing::ElementsAre;

class MemoryInputKeysTest : public InputTest {};

TEST_F(MemoryInputKeysTest, KeysGoToTheFocus) {
  windows.SetFocus(left);
  Begin();
  desktop.Key('A');
  desktop.Key('A', kShiftMask);
  desktop.Key(kKeyEnter);
  desktop.Key(kKeyDelete);
  desktop.Key('C', kCtrlMask);
  EXPECT_THAT(Input(), ElementsAre("left KeyDown 65", "left Char 97", "left KeyUp 65", "left KeyDown 16",
                                   "left KeyDown 65", "left Char 65", "left KeyUp 65", "left KeyUp 16",
                                   "left KeyDown 13", "left Char 13", "left KeyUp 13", "left KeyDown 46",
                                   "left KeyUp 46", "left KeyDown 17", "left KeyDown 67", "left Char 3",
                                   "left KeyUp 67", "left KeyUp 17"));
}

TEST_F(MemoryInputKeysTest, AKeyThatGoesUpWasDownThoughNobodySawIt) {
  windows.SetFocus(left);
  std::vector<LParam> bits;
  client.On(kWmKeyUp, [&](WindowHandle, WParam, LParam lparam) -> LResult {
    bits.push_back(lparam);
    return 0;
  });
  desktop.KeyUp('A', 0);
  EXPECT_THAT(bits, ElementsAre(static_cast<std::int32_t>(0xC0000001)));
}

TEST_F(MemoryInputKeysTest, AltMakesSystemKeys) {
  windows.SetFocus(left);
  Begin();
  desktop.Key('X', kAltMask);
  desktop.Key(kKeyAlt, kAltMask);
  desktop.Key('Q', kAltMask | kCtrlMask);
  EXPECT_THAT(Input(), ElementsAre("left SysKeyDown 18", "left SysKeyDown 88", "left SysChar 120",
                                   "left SysKeyUp 88", "left KeyUp 18", "left SysKeyDown 18",
                                   "left SysKeyUp 18", "left KeyDown 17", "left KeyDown 18",
                                   "left KeyDown 81", "left KeyUp 81", "left SysKeyUp 17", "left KeyUp 18"));
}

TEST_F(MemoryInputKeysTest, AltF4ClosesTheWindowOfTheFocus) {
  windows.SetFocus(left);
  desktop.Key(kKeyF4, kAltMask);
  EXPECT_FALSE(windows.IsWindow(form));
}

TEST_F(MemoryInputKeysTest, WithoutAFocusTheActiveWindowGetsSystemKeys) {
  windows.SetFocus({});
  Begin();
  desktop.Key('A');
  desktop.Key(kKeyF4);
  EXPECT_THAT(Input(), ElementsAre("form SysKeyDown 65", "form SysChar 97", "form SysKeyUp 65",
                                   "form SysKeyDown 115", "form SysKeyUp 115"));
}

TEST_F(MemoryInputKeysTest, TheCharacterGoesWhereItsKeyWentDown) {
  windows.SetFocus(left);
  client.On(kWmKeyDown, [&](WindowHandle, WParam, LParam) -> LResult {
    windows.SetFocus(right);
    return 0;
  });
  Begin();
  desktop.Key(kKeyTab);
  EXPECT_THAT(Input(), ElementsAre("left KeyDown 9", "left KillFocus right", "right SetFocus left",
                                   "left Char 9", "right KeyUp 9"));
}

TEST_F(MemoryInputKeysTest, TypingGoesThroughTheCodePage) {
  windows.SetFocus(left);
  Begin();
  desktop.Type("B?\xC3\xA9\xE6\x97\xA5\n");
  Log lines = Input();
  std::erase_if(lines, [](const std::string& line) { return line.ends_with(" 16"); });  // Shift
  EXPECT_THAT(lines, ElementsAre("left KeyDown 66", "left Char 66", "left KeyUp 66", "left KeyDown 191",
                                 "left Char 63", "left KeyUp 191", "left KeyDown 231", "left Char 233",
                                 "left KeyUp 231", "left KeyDown 191", "left Char 63", "left KeyUp 191",
                                 "left KeyDown 13", "left Char 13", "left KeyUp 13"));
}

TEST_F(MemoryInputKeysTest, GetKeyStateAnswersForTheMomentOfTheMessage) {
  windows.SetFocus(left);
  std::vector<bool> held;
  const auto look = [&](WindowHandle, WParam code_of_key, LParam) -> LResult {
    if (code_of_key != 'A') return 0;
    for (const int code : {int{kKeyShift}, int{kKeyControl}, int{'A'}}) {
      held.push_back(windows.GetKeyState(code) < 0);
    }
    return 0;
  };
  client.On(kWmKeyDown, look);
  client.On(kWmKeyUp, look);
  desktop.Key('A', kShiftMask);
  EXPECT_THAT(held, ElementsAre(true, false, true, true, false, false));
  EXPECT_EQ(windows.GetKeyState(kKeyShift), 0);
  EXPECT_EQ(windows.GetKeyState(-1), 0);
  EXPECT_EQ(windows.GetKeyState(1000), 0);
}

TEST_F(MemoryInputKeysTest, HeldKeysShowInPointerMessages) {
  desktop.MovePointer({115, 115});
  desktop.KeyDown(kKeyShift, kShiftMask);
  Begin();
  desktop.Press(kLeftButton);
  desktop.KeyUp(kKeyShift, 0);
  desktop.KeyDown('A', kCtrlMask);
  desktop.Release(kLeftButton);
  const Log lines = Input();
  EXPECT_EQ(lines.front(), "left LButtonDown 5 5,5");
  EXPECT_EQ(lines.back(), "left LButtonUp 8 5,5");
}

TEST_F(MemoryInputKeysTest, RepeatedKeysReportThatTheyWereDown) {
  windows.SetFocus(left);
  std::vector<LParam> bits;
  client.On(kWmKeyDown, [&](WindowHandle, WParam, LParam lparam) -> LResult {
    bits.push_back(lparam);
    return 0;
  });
  desktop.KeyDown(kKeyLeft, 0);
  desktop.KeyDown(kKeyLeft, 0);
  desktop.KeyUp(kKeyLeft, 0);
  desktop.KeyDown(kKeyLeft, 0);
  EXPECT_THAT(bits, ElementsAre(1, 1 | 1 << 30, 1));
}

// --- A native keyboard -----------------------------------------------------------------------

TEST_F(MemoryInputKeysTest, OnANativeKeyboardAKeysCharactersAreThoseGiven) {
  windows.SetFocus(left);
  Begin();
  desktop.KeyDown('Y', 0, "z");
  desktop.KeyUp('Y', 0);
  desktop.KeyDown('A', 0, "");  // a dead key
  desktop.KeyUp('A', 0);
  desktop.KeyDown('E', 0, "\xC3\xAA\xC3\xA9");
  EXPECT_THAT(Input(), ElementsAre("left KeyDown 89", "left Char 122", "left KeyUp 89", "left KeyDown 65",
                                   "left KeyUp 65", "left KeyDown 69", "left Char 234", "left Char 233"));
}

TEST_F(MemoryInputKeysTest, OnANativeKeyboardWhatIsHeldStaysHeldWhenAKeyGoesUp) {
  windows.SetFocus(left);
  Begin();
  desktop.KeyDown(kKeyShift, kShiftMask, "");
  desktop.KeyDown('A', kShiftMask, "A");
  desktop.LiftKey('A', kShiftMask);
  EXPECT_LT(windows.GetKeyState(kKeyShift), 0);
  desktop.LiftKey(kKeyShift, 0);
  desktop.HoldShift(kCtrlMask);  // pressed in another program
  desktop.HoldShift(kCtrlMask);
  desktop.HoldShift(0);
  EXPECT_THAT(Input(), ElementsAre("left KeyDown 16", "left KeyDown 65", "left Char 65", "left KeyUp 65",
                                   "left KeyUp 16", "left KeyDown 17", "left KeyUp 17"));
}

TEST_F(MemoryInputKeysTest, AltMakesSystemKeysOfANativeKeyboard) {
  windows.SetFocus(left);
  Begin();
  desktop.KeyDown('X', kAltMask, "x");
  desktop.KeyDown('Q', kAltMask | kCtrlMask, "@");
  EXPECT_THAT(Input(), ElementsAre("left SysKeyDown 18", "left SysKeyDown 88", "left SysChar 120",
                                   "left KeyDown 17", "left KeyDown 81", "left Char 64"));
}

TEST_F(MemoryInputKeysTest, EnteredTextArrivesAsCharactersWithoutKeys) {
  windows.SetFocus(left);
  Begin();
  desktop.EnterText("a\xC3\xA9");
  EXPECT_THAT(Input(), ElementsAre("left Char 97", "left Char 233"));
  windows.SetFocus({});
  Begin();
  desktop.EnterText("b");
  EXPECT_THAT(Input(), ElementsAre("form Char 98"));
}

TEST_F(MemoryInputKeysTest, HeldShiftBitsOutliveTheKeysThatGoUp) {
  windows.SetFocus(left);
  desktop.KeyDown('A', kShiftMask, "A");
  desktop.KeyUp('A', kShiftMask);
  EXPECT_EQ(windows.GetKeyState(kKeyShift), 0);
  desktop.HoldShift(kShiftMask);
  desktop.MovePointer({115, 115});
  Begin();
  desktop.Press(kLeftButton);
  EXPECT_THAT(Input(), ElementsAre("left LButtonDown 5 5,5"));
  desktop.HoldShift(0);
  desktop.Release(kLeftButton);
  EXPECT_THAT(Input(), ::testing::Contains("left LButtonUp 0 5,5"));
}

// --- Handlers that do more -------------------------------------------------------------------

TEST_F(MemoryInputKeysTest, AHandlerMayDriveTheDesktopItself) {
  client.On(kWmLButtonDown, [&](WindowHandle window, WParam, LParam) -> LResult {
    if (window != left) return 0;
    desktop.Release(kLeftButton);
    desktop.Click({165, 115});
    desktop.Type("a");
    return 0;
  });
  desktop.MovePointer({115, 115});
  Begin();
  desktop.Press(kLeftButton);
  EXPECT_THAT(Input(),
              ElementsAre("left LButtonDown 1 5,5", "left CaptureChanged none", "left LButtonUp 0 5,5",
                          "right MouseMove 0 5,5", "right LButtonDown 1 5,5", "right CaptureChanged none",
                          "right LButtonUp 0 5,5", "form KeyDown 65", "form Char 97", "form KeyUp 65"));
  EXPECT_FALSE(windows.GetCapture());
}

TEST_F(MemoryInputKeysTest, AnExceptionFromAHandlerLeavesTheDriverUsable) {
  client.On(kWmLButtonDown,
            [](WindowHandle, WParam, LParam) -> LResult { throw std::runtime_error("press"); });
  client.On(kWmKeyUp, [](WindowHandle, WParam, LParam) -> LResult { throw std::runtime_error("key"); });
  desktop.MovePointer({115, 115});
  EXPECT_THROW(desktop.Press(kLeftButton), std::runtime_error);
  windows.SetFocus(left);
  EXPECT_THROW(desktop.Key('A', kShiftMask), std::runtime_error);
  EXPECT_EQ(windows.GetKeyState(kKeyShift), 0);
  client.Off(kWmLButtonDown);
  client.Off(kWmKeyUp);
  Begin();
  desktop.Release(kLeftButton);
  EXPECT_THAT(Input(), ElementsAre("left CaptureChanged none", "left LButtonUp 0 5,5"));
}

TEST_F(MemoryInputKeysTest, AWindowDestroyedByItsPressGetsNoFurtherMessage) {
  client.On(kWmLButtonDown,
            [&](WindowHandle window, WParam, LParam) -> LResult { return windows.DestroyWindow(window); });
  Begin();
  desktop.Click({115, 115});
  EXPECT_FALSE(windows.IsWindow(left));
  const Log lines = Input();
  EXPECT_THAT(lines, ElementsAre("left MouseMove 0 5,5", "left LButtonDown 1 5,5", "left ShowWindow 0",
                                 "left Destroy", "form LButtonUp 0 15,15"));
}

}  // namespace
}  // namespace levelwidgets::memory
