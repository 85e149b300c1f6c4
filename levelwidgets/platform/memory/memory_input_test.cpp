// The pointer, as messages.
#include <levelwidgets/platform/memory/desktop_fixture.h>

namespace levelwidgets::memory {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MemoryInputTest : public InputTest {};

// --- Pointer ---------------------------------------------------------------------------------

TEST_F(MemoryInputTest, MovesCarryClientPixels) {
  Begin();
  desktop.MovePointer({115, 121});
  desktop.MovePointer({115, 121});
  desktop.MovePointer({105, 106});
  desktop.MovePointer({50, 50});
  EXPECT_THAT(Input(), ElementsAre("left MouseMove 0 5,11", "form MouseMove 0 5,6"));
  PixelPoint point;
  EXPECT_TRUE(windows.GetCursorPos(point));
  EXPECT_EQ(point, (PixelPoint{50, 50}));
}

TEST_F(MemoryInputTest, ThePointerStaysOnTheScreen) {
  desktop.MovePointer({-5, 5000});
  PixelPoint point;
  windows.GetCursorPos(point);
  EXPECT_EQ(point, (PixelPoint{0, 767}));
}

TEST_F(MemoryInputTest, APressCapturesUntilTheLastButtonIsUp) {
  Begin();
  desktop.MovePointer({115, 115});
  desktop.Press(kLeftButton);
  EXPECT_EQ(windows.GetCapture(), left);
  desktop.MovePointer({165, 115});
  desktop.Press(kRightButton);
  desktop.Release(kLeftButton);
  EXPECT_EQ(windows.GetCapture(), left);
  desktop.MovePointer({400, 10});
  desktop.Release(kRightButton);
  EXPECT_FALSE(windows.GetCapture());
  EXPECT_THAT(Input(),
              ElementsAre("left MouseMove 0 5,5", "left LButtonDown 1 5,5", "left MouseMove 1 55,5",
                          "left RButtonDown 3 55,5", "left LButtonUp 2 55,5", "left MouseMove 2 290,-100",
                          "left CaptureChanged none", "left RButtonUp 0 290,-100"));
}

TEST_F(MemoryInputTest, TheCaptureHasEndedWhenTheReleaseIsDelivered) {
  WindowHandle during_press, during_release;
  client.On(kWmLButtonDown, [&](WindowHandle, WParam, LParam) -> LResult {
    during_press = windows.GetCapture();
    return 0;
  });
  client.On(kWmLButtonUp, [&](WindowHandle window, WParam, LParam) -> LResult {
    during_release = windows.GetCapture();
    windows.SetCapture(window);
    return 0;
  });
  desktop.Click({115, 115});
  EXPECT_EQ(during_press, left);
  EXPECT_FALSE(during_release);
  // Taken in the release, it lasts.
  EXPECT_EQ(windows.GetCapture(), left);
  Begin();
  desktop.MovePointer({10, 10});
  EXPECT_THAT(Input(), ElementsAre("left MouseMove 0 -100,-100"));
}

TEST_F(MemoryInputTest, ACaptureThatTookThePressCapturesPlaceEndsAtTheRelease) {
  client.On(kWmLButtonDown, [&](WindowHandle, WParam, LParam) -> LResult {
    windows.SetCapture(right);
    return 0;
  });
  desktop.MovePointer({115, 115});
  Begin();
  desktop.Press(kLeftButton);
  desktop.Release(kLeftButton);
  EXPECT_THAT(Input(), ElementsAre("left LButtonDown 1 5,5", "left CaptureChanged right",
                                   "right CaptureChanged none", "right LButtonUp 0 -45,5"));
  EXPECT_FALSE(windows.GetCapture());
}

TEST_F(MemoryInputTest, APressUnderAnExplicitCaptureGoesToItsWindowAndEndsIt) {
  desktop.MovePointer({165, 115});
  windows.SetCapture(left);
  Begin();
  desktop.Press(kLeftButton);
  desktop.Release(kLeftButton);
  EXPECT_THAT(Input(),
              ElementsAre("left LButtonDown 1 55,5", "left CaptureChanged none", "left LButtonUp 0 55,5"));
  EXPECT_FALSE(windows.GetCapture());
}

TEST_F(MemoryInputTest, AReleasedPressCaptureLetsTheReleaseGoWhereThePointerIs) {
  client.On(kWmLButtonDown,
            [&](WindowHandle, WParam, LParam) -> LResult { return windows.ReleaseCapture(); });
  desktop.MovePointer({115, 115});
  desktop.Press(kLeftButton);
  desktop.MovePointer({165, 115});
  Begin();
  desktop.Release(kLeftButton);
  EXPECT_THAT(Input(), ElementsAre("right LButtonUp 0 5,5"));
}

TEST_F(MemoryInputTest, PressingAPressedButtonOrReleasingAReleasedOneDoesNothing) {
  desktop.MovePointer({115, 115});
  Begin();
  desktop.Release(kLeftButton);
  desktop.Press(kLeftButton);
  desktop.Press(kLeftButton);
  desktop.Press(3);
  EXPECT_THAT(Input(), ElementsAre("left LButtonDown 1 5,5"));
}

TEST_F(MemoryInputTest, TheSecondPressIsADoubleClickTheThirdIsNot) {
  desktop.MovePointer({115, 115});
  Begin();
  for (int i = 0; i < 3; ++i) {
    desktop.Press(kLeftButton);
    desktop.Release(kLeftButton);
  }
  EXPECT_THAT(Input(),
              ElementsAre("left LButtonDown 1 5,5", "left CaptureChanged none", "left LButtonUp 0 5,5",
                          "left LButtonDblClk 1 5,5", "left CaptureChanged none", "left LButtonUp 0 5,5",
                          "left LButtonDown 1 5,5", "left CaptureChanged none", "left LButtonUp 0 5,5"));
}

TEST_F(MemoryInputTest, ADoubleClickNeedsTimePlaceWindowAndButton) {
  const auto second = [&](std::uint32_t wait, PixelPoint at, int button) {
    desktop.Advance(1000);
    desktop.Click({158, 130});
    desktop.Advance(wait);
    desktop.MovePointer(at);
    Begin();
    desktop.Press(button);
    const Log lines = Input();
    desktop.Release(button);
    return !lines.empty() && lines.front().find("DblClk") != std::string::npos;
  };
  EXPECT_TRUE(second(499, {158, 130}, kLeftButton));
  EXPECT_FALSE(second(500, {158, 130}, kLeftButton));
  EXPECT_TRUE(second(0, {156, 128}, kLeftButton));
  EXPECT_TRUE(second(0, {159, 131}, kLeftButton));
  EXPECT_FALSE(second(0, {155, 130}, kLeftButton));
  EXPECT_FALSE(second(0, {158, 127}, kLeftButton));
  EXPECT_FALSE(second(0, {158, 132}, kLeftButton));
  EXPECT_FALSE(second(0, {160, 130}, kLeftButton));  // the neighbour
  EXPECT_FALSE(second(0, {158, 130}, kRightButton));
}

TEST_F(MemoryInputTest, APressActivatesBeforeItIsDelivered) {
  MakeTop("other", {500, 100, 600, 200});
  desktop.MovePointer({115, 115});
  Begin();
  desktop.Press(kLeftButton);
  EXPECT_THAT(Take(), ElementsAre("left MouseActivate", "form MouseActivate", "other Activate 0 form",
                                  "form Activate 2 other", "other KillFocus form", "form SetFocus other",
                                  "left LButtonDown 1 5,5"));
}

TEST_F(MemoryInputTest, APressMovesNoFocusWithinTheActiveWindow) {
  windows.SetFocus(left);
  desktop.Click({165, 115});
  EXPECT_EQ(windows.GetFocus(), left);
}

TEST_F(MemoryInputTest, ACaptureThatIsTakenDuringActivationStays) {
  MakeTop("other", {500, 100, 600, 200});
  desktop.MovePointer({115, 115});
  client.On(kWmMouseActivate, [&](WindowHandle, WParam, LParam) -> LResult {
    windows.SetCapture(right);
    return kMaActivate;
  });
  desktop.Press(kLeftButton);
  EXPECT_EQ(windows.GetCapture(), right);
}

TEST_F(MemoryInputTest, AWindowMayRefuseActivationOrEatThePress) {
  const WindowHandle other = MakeTop("other", {500, 100, 600, 200});
  desktop.MovePointer({115, 115});
  const auto press = [&](LResult answer) {
    client.On(kWmMouseActivate, [answer](WindowHandle, WParam, LParam) { return answer; });
    windows.SetActiveWindow(other);
    Begin();
    desktop.Press(kLeftButton);
    const bool delivered = ::testing::Value(Take(), ::testing::Contains("left LButtonDown 1 5,5"));
    const bool activated = windows.GetActiveWindow() == form;
    desktop.Release(kLeftButton);
    desktop.Advance(1000);
    return std::pair(activated, delivered);
  };
  EXPECT_EQ(press(1), std::pair(true, true));
  EXPECT_EQ(press(2), std::pair(true, false));
  EXPECT_EQ(press(3), std::pair(false, true));
  EXPECT_EQ(press(4), std::pair(false, false));
  EXPECT_EQ(press(0), std::pair(true, true));
}

TEST_F(MemoryInputTest, APressOnTheBareScreenDeactivatesTheProgram) {
  windows.SetFocus(left);
  desktop.MovePointer({900, 700});
  Begin();
  desktop.Press(kLeftButton);
  desktop.Release(kLeftButton);
  EXPECT_THAT(Input(), ElementsAre("form Activate 0 none", "left KillFocus none"));
  EXPECT_FALSE(windows.GetActiveWindow());
  EXPECT_FALSE(windows.GetFocus());
  desktop.Type("a");
  EXPECT_THAT(Input(), IsEmpty());
}

TEST_F(MemoryInputTest, DisabledWindowsPassThePointerToAnEnabledAncestor) {
  const WindowHandle inner = MakeChild("inner", left, {0, 0, 20, 20});
  windows.EnableWindow(left, false);
  Begin();
  desktop.MovePointer({115, 115});
  EXPECT_THAT(Input(), ElementsAre("form MouseMove 0 15,15"));
  windows.EnableWindow(left, true);
  windows.EnableWindow(inner, false);
  Begin();
  desktop.MovePointer({116, 115});
  EXPECT_THAT(Input(), ElementsAre("left MouseMove 0 6,5"));
}

TEST_F(MemoryInputTest, ADisabledTopLevelWindowSwallowsThePointer) {
  const WindowHandle other = MakeTop("other", {500, 100, 600, 200});
  windows.EnableWindow(form, false);
  Begin();
  desktop.Click({115, 115});
  desktop.Click({105, 105});
  EXPECT_THAT(Input(), IsEmpty());
  EXPECT_EQ(windows.GetActiveWindow(), other);
}

TEST_F(MemoryInputTest, OverlappingSiblingsGiveThePointerToTheFrontOne) {
  MakeChild("behind", form, {0, 0, 200, 100});
  Begin();
  desktop.MovePointer({115, 115});
  desktop.MovePointer({105, 105});
  EXPECT_THAT(Input(), ElementsAre("left MouseMove 0 5,5", "behind MouseMove 0 5,5"));
}

TEST_F(MemoryInputTest, PartsOutsideTheParentGetNoPointer) {
  MakeChild("wide", form, {150, 70, 400, 400});
  Begin();
  desktop.MovePointer({310, 180});
  EXPECT_THAT(Input(), IsEmpty());
}

TEST_F(MemoryInputTest, TheWheelGoesToTheWindowUnderThePointerWithScreenPixels) {
  windows.SetFocus(right);
  client.On(kWmMouseWheel, [](WindowHandle, WParam, LParam) { return 0; });
  desktop.MovePointer({115, 116});
  Begin();
  desktop.Wheel(1);
  desktop.Wheel(-2);
  EXPECT_THAT(Input(), ElementsAre("left MouseWheel 120 115,116", "left MouseWheel -240 115,116"));
  desktop.MovePointer({10, 10});
  Begin();
  desktop.Wheel(1);
  EXPECT_THAT(Input(), IsEmpty());
}

TEST(WheelOption, TheWheelGoesToTheFocusWhereTheDesktopIsSetSo) {
  Desktop desktop({.wheel_to_focus = true});
  Log log;
  Recorder client(desktop, log);
  MemoryWindows& windows = desktop.Windows();
  const WindowHandle form =
      windows.CreateWindowExA({"", "", kWsPopup | kWsVisible, 0, {0, 0, 99, 99}, {}, &client});
  client.Name(form, "form");
  desktop.MovePointer({500, 500});
  log.clear();
  desktop.Wheel(1);
  EXPECT_THAT(log, ElementsAre("form MouseWheel 120 500,500"));
}

TEST_F(MemoryInputTest, AnUnhandledWheelGoesToTheParent) {
  desktop.MovePointer({165, 116});
  Begin();
  desktop.Wheel(1);
  EXPECT_THAT(Input(), ElementsAre("right MouseWheel 120 165,116", "form MouseWheel 120 165,116"));
}

// --- Frames ----------------------------------------------------------------------------------

class FrameInputTest : public DesktopTest {
 protected:
  WindowHandle form = MakeTop("form", {100, 100, 300, 200}, kPopup | kWsCaption | kWsSysMenu);
};

TEST_F(FrameInputTest, DraggingTheCaptionMovesTheWindow) {
  desktop.MovePointer({150, 110});
  Begin();
  desktop.Press(kLeftButton);
  desktop.MovePointer({170, 95});
  desktop.Release(kLeftButton);
  desktop.MovePointer({180, 95});
  PixelRect rect;
  windows.GetWindowRect(form, rect);
  EXPECT_EQ(rect, (PixelRect{120, 85, 320, 185}));
  EXPECT_THAT(Take(), ElementsAre("form Move 121,108"));
}

TEST_F(FrameInputTest, TheCloseBoxAsksTheWindowToClose) {
  client.On(kWmClose, [](WindowHandle, WParam, LParam) { return 0; });
  Begin();
  desktop.Click({290, 110});
  EXPECT_THAT(Take(), ElementsAre("form SysCommand 61536", "form Close"));
  desktop.Press(kLeftButton);
  desktop.MovePointer({250, 110});
  desktop.Release(kLeftButton);
  EXPECT_THAT(Take(), IsEmpty());
  client.Off(kWmClose);
  desktop.Click({290, 110});
  EXPECT_FALSE(windows.IsWindow(form));
}

TEST_F(FrameInputTest, AWindowDestroyedWhileItIsDraggedIsLeftAlone) {
  desktop.MovePointer({150, 110});
  desktop.Press(kLeftButton);
  windows.DestroyWindow(form);
  desktop.MovePointer({170, 95});
  desktop.Release(kLeftButton);
  EXPECT_EQ(desktop.LiveWindows(), 0u);
}

TEST_F(MemoryInputTest, ThePointerMayLeaveTheScreenWhereItsAreaIsLarger) {
  desktop.SetPointerArea({-500, -20, 3000, 2000});
  PixelPoint pointer;
  desktop.MovePointer({-100, 1500});
  windows.GetCursorPos(pointer);
  EXPECT_EQ(pointer, (PixelPoint{-100, 1500}));
  desktop.MovePointer({-600, 5000});
  windows.GetCursorPos(pointer);
  EXPECT_EQ(pointer, (PixelPoint{-500, 1999}));
}

}  // namespace
}  // namespace levelwidgets::memory
