// Focus, activation and capture.
#include <stdexcept>

#include <levelwidgets/platform/memory/desktop_fixture.h>

namespace levelwidgets::memory {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class WindowFocusTest : public DesktopTest {
 protected:
  WindowHandle form = MakeTop("form", {0, 0, 200, 100});
  WindowHandle first = MakeChild("first", form, {0, 0, 50, 50});
  WindowHandle second = MakeChild("second", form, {50, 0, 100, 50});
  WindowHandle other = MakeTop("other", {300, 0, 400, 100});
};

TEST_F(WindowFocusTest, FocusMovesWithinTheActiveWindow) {
  windows.SetFocus(first);
  Begin();
  EXPECT_EQ(windows.SetFocus(second), first);
  EXPECT_THAT(Take(), ElementsAre("first KillFocus second", "second SetFocus first"));
  EXPECT_EQ(windows.SetFocus(second), second);
  EXPECT_THAT(Take(), IsEmpty());
  EXPECT_EQ(windows.SetFocus({}), second);
  EXPECT_THAT(Take(), ElementsAre("second KillFocus none"));
  EXPECT_EQ(windows.GetActiveWindow(), form);
}

TEST_F(WindowFocusTest, FocusActivatesTheTopLevelWindow) {
  Begin();
  EXPECT_EQ(windows.SetFocus(first), form);
  EXPECT_THAT(Take(), ElementsAre("other Activate 0 form", "form Activate 1 other", "other KillFocus form",
                                  "form SetFocus other", "form KillFocus first", "first SetFocus form"));
  EXPECT_EQ(desktop.TopLevelWindows().front().handle, form);
  EXPECT_TRUE(desktop.TopLevelWindows().front().active);
}

TEST_F(WindowFocusTest, ActivationGivesTheFocusToTheWindowItself) {
  Begin();
  EXPECT_EQ(windows.SetActiveWindow(form), other);
  EXPECT_THAT(Take(), ElementsAre("other Activate 0 form", "form Activate 1 other", "other KillFocus form",
                                  "form SetFocus other"));
  EXPECT_EQ(windows.SetActiveWindow(first), form);  // as if nothing had been asked
  EXPECT_EQ(windows.GetActiveWindow(), form);
}

TEST_F(WindowFocusTest, AFocusThatAHandlerSetsDuringActivationStays) {
  client.On(kWmActivate, [&](WindowHandle window, WParam state, LParam) -> LResult {
    if (window == form && state != 0) windows.SetFocus(second);
    return 0;
  });
  Begin();
  windows.SetActiveWindow(form);
  EXPECT_THAT(Take(), ElementsAre("other Activate 0 form", "form Activate 1 other", "other KillFocus second",
                                  "second SetFocus other"));
  EXPECT_EQ(windows.GetFocus(), second);
}

TEST_F(WindowFocusTest, ALaterChoiceOfAHandlerWins) {
  windows.SetFocus(first);
  client.On(kWmKillFocus, [&](WindowHandle window, WParam, LParam) -> LResult {
    if (window == first) windows.SetFocus(form);
    return 0;
  });
  Begin();
  windows.SetFocus(second);
  EXPECT_EQ(windows.GetFocus(), form);
  EXPECT_THAT(Take(), ElementsAre("first KillFocus second", "second KillFocus form", "form SetFocus second"));
}

TEST_F(WindowFocusTest, AHiddenWindowTakesTheFocusAndADisabledOneDoesNot) {
  windows.SetFocus(first);
  windows.EnableWindow(second, false);
  EXPECT_FALSE(windows.SetFocus(second));
  windows.EnableWindow(second, true);
  windows.ShowWindow(second, kSwHide);
  EXPECT_EQ(windows.SetFocus(second), first);
  EXPECT_EQ(windows.GetFocus(), second);
  windows.SetActiveWindow(other);
  windows.EnableWindow(form, false);
  EXPECT_FALSE(windows.SetFocus(first));
  EXPECT_FALSE(windows.SetActiveWindow(form));
  EXPECT_EQ(windows.GetActiveWindow(), other);
}

TEST_F(WindowFocusTest, HidingTheFocusedChildGivesTheFocusToItsParent) {
  windows.SetFocus(first);
  Begin();
  windows.ShowWindow(first, kSwHide);
  EXPECT_THAT(Take(), ElementsAre("first ShowWindow 0", "first KillFocus form", "form SetFocus first"));
}

TEST_F(WindowFocusTest, HidingTheFocusedChildOfADisabledParentLeavesNoFocus) {
  const WindowHandle inner = MakeChild("inner", first, {0, 0, 5, 5});
  windows.SetFocus(inner);
  windows.EnableWindow(first, false);
  ASSERT_EQ(windows.GetFocus(), inner);
  windows.ShowWindow(inner, kSwHide);
  EXPECT_FALSE(windows.GetFocus());
}

TEST_F(WindowFocusTest, DisablingTheFocusedWindowLeavesNoFocus) {
  windows.SetFocus(first);
  Begin();
  EXPECT_FALSE(windows.EnableWindow(first, false));
  EXPECT_THAT(Take(), ElementsAre("first CancelMode", "first KillFocus none", "first Enable 0"));
  EXPECT_FALSE(windows.GetFocus());
  EXPECT_EQ(windows.GetActiveWindow(), form);
  EXPECT_FALSE(windows.IsWindowEnabled(first));
  EXPECT_TRUE(windows.EnableWindow(first, false));
  EXPECT_THAT(Take(), ElementsAre("first CancelMode"));
  EXPECT_TRUE(windows.EnableWindow(first, true));
  EXPECT_THAT(Take(), ElementsAre("first Enable 1"));
}

TEST_F(WindowFocusTest, HidingTheActiveWindowActivatesItsOwnerOrTheNext) {
  const WindowHandle tool = Make("tool", &client, form, {0, 0, 10, 10}, kPopup);
  EXPECT_EQ(windows.GetActiveWindow(), tool);
  windows.ShowWindow(tool, kSwHide);
  EXPECT_EQ(windows.GetActiveWindow(), form);  // though the other one was active before
  windows.ShowWindow(form, kSwHide);
  EXPECT_EQ(windows.GetActiveWindow(), other);
  windows.ShowWindow(other, kSwHide);
  EXPECT_FALSE(windows.GetActiveWindow());
  EXPECT_FALSE(windows.GetFocus());
}

TEST_F(WindowFocusTest, HidingAnOwnedWindowActivatesItsOwnerThoughAnotherOneIsInFrontOfThat) {
  const WindowHandle owned = Make("owned", &client, form, {0, 0, 10, 10}, kPopup);
  windows.SetWindowPos(other, owned, {}, kSwpNoMove | kSwpNoSize | kSwpNoActivate);  // owned, other, form
  ASSERT_EQ(windows.GetActiveWindow(), owned);
  windows.ShowWindow(owned, kSwHide);
  EXPECT_EQ(windows.GetActiveWindow(), form);
}

TEST_F(WindowFocusTest, AMinimisedWindowIsNotActivatedInstead) {
  const WindowHandle last = MakeTop("last", {0, 0, 10, 10});
  windows.SetWindowLongA(other, kGwlStyle, windows.GetWindowLongA(other, kGwlStyle) | kWsMinimize);
  windows.ShowWindow(last, kSwHide);
  EXPECT_EQ(windows.GetActiveWindow(), form);
}

TEST_F(WindowFocusTest, DisabledWindowsAreNotActivatedInstead) {
  windows.EnableWindow(form, false);
  windows.ShowWindow(other, kSwHide);
  EXPECT_FALSE(windows.GetActiveWindow());
}

TEST_F(WindowFocusTest, AnExceptionWhileTheFocusMovesLeavesOneFocus) {
  windows.SetFocus(first);
  client.On(kWmKillFocus, [](WindowHandle, WParam, LParam) -> LResult { throw std::runtime_error("focus"); });
  EXPECT_THROW(windows.SetFocus(second), std::runtime_error);
  EXPECT_EQ(windows.GetFocus(), second);
  client.Off(kWmKillFocus);
  Begin();
  windows.SetFocus(first);
  EXPECT_THAT(Take(), ElementsAre("second KillFocus first", "first SetFocus second"));
}

TEST_F(WindowFocusTest, OnlyADifferentWindowIsNotifiedOfALostCapture) {
  Begin();
  EXPECT_FALSE(windows.SetCapture(first));
  EXPECT_EQ(windows.SetCapture(first), first);
  EXPECT_THAT(Take(), IsEmpty());
  EXPECT_EQ(windows.SetCapture(second), first);
  EXPECT_THAT(Take(), ElementsAre("first CaptureChanged second"));
  EXPECT_TRUE(windows.ReleaseCapture());
  EXPECT_THAT(Take(), ElementsAre("second CaptureChanged none"));
  EXPECT_TRUE(windows.ReleaseCapture());
  EXPECT_THAT(Take(), IsEmpty());
}

TEST_F(WindowFocusTest, DisablingEndsTheCapture) {
  windows.SetCapture(first);
  Begin();
  windows.EnableWindow(first, false);
  EXPECT_THAT(Take(), ElementsAre("first CancelMode", "first CaptureChanged none", "first Enable 0"));
}

TEST_F(WindowFocusTest, DestroyingAnAncestorEndsTheCaptureAndNobodyHearsOfIt) {
  windows.SetCapture(first);
  Begin();
  windows.DestroyWindow(form);
  EXPECT_FALSE(windows.GetCapture());
  EXPECT_THAT(Take(), ::testing::Not(::testing::Contains("first CaptureChanged none")));
}

TEST_F(WindowFocusTest, ACaptureThatItsHolderKeepsWhenItIsCancelledEndsWithDisabling) {
  client.On(kWmCancelMode, [](WindowHandle, WParam, LParam) { return 0; });
  windows.SetCapture(first);
  windows.EnableWindow(first, false);
  EXPECT_FALSE(windows.GetCapture());
}

TEST_F(WindowFocusTest, AWindowThatIsCancelledMayEndItself) {
  client.On(kWmCancelMode, [&](WindowHandle window, WParam, LParam) -> LResult {
    windows.DestroyWindow(window);
    return 0;
  });
  EXPECT_FALSE(windows.EnableWindow(first, false));
  EXPECT_FALSE(windows.IsWindow(first));
}

TEST_F(WindowFocusTest, TheWindowThatIsDeactivatedIsActiveUntilItHasHeardOfIt) {
  std::vector<WindowHandle> active;
  client.On(kWmActivate, [&](WindowHandle window, WParam state, LParam other_window) {
    active.push_back(windows.GetActiveWindow());
    return windows.DefWindowProcA(window, kWmActivate, state, other_window);
  });
  windows.SetActiveWindow(form);
  EXPECT_THAT(active, ElementsAre(other, form));
}

TEST_F(WindowFocusTest, AMinimizedFormThatBecomesActiveDoesNotGetTheFocusByDefault) {
  windows.SetWindowLongA(form, kGwlStyle, static_cast<std::int32_t>(kPopup | kWsMinimize));
  windows.SetFocus({});
  Begin();
  windows.DefWindowProcA(form, kWmActivate, 1, 0);
  EXPECT_THAT(Take(), IsEmpty());
  windows.SetWindowLongA(form, kGwlStyle, static_cast<std::int32_t>(kPopup));
  windows.SetFocus(first);
  windows.DefWindowProcA(form, kWmActivate, 0, 0);
  EXPECT_EQ(windows.GetFocus(), first);
  windows.DefWindowProcA(form, kWmActivate, 1, 0);
  EXPECT_EQ(windows.GetFocus(), form);
}

TEST_F(WindowFocusTest, AFormThatEndsWhileItIsToBecomeActiveLeavesNobodyActive) {
  client.On(kWmActivate, [&](WindowHandle window, WParam state, LParam) -> LResult {
    if (window == other && state == 0) windows.DestroyWindow(form);
    return 0;
  });
  EXPECT_FALSE(windows.SetFocus(first));
  EXPECT_FALSE(windows.IsWindow(form));
  EXPECT_EQ(windows.GetActiveWindow(), other);
}

TEST_F(WindowFocusTest, TheNextActiveWindowIsNoToolWindowUnlessThereIsNoOther) {
  const WindowHandle tool =
      windows.CreateWindowExA({"", "", kPopup, kWsExToolWindow, {0, 0, 10, 10}, {}, &client});
  const WindowHandle last = MakeTop("last", {0, 0, 10, 10});
  windows.ShowWindow(last, kSwHide);
  EXPECT_EQ(windows.GetActiveWindow(), other);
  windows.ShowWindow(other, kSwHide);
  windows.ShowWindow(form, kSwHide);
  EXPECT_EQ(windows.GetActiveWindow(), tool);
}

TEST_F(WindowFocusTest, TheNextActiveWindowIsTheOneBehind) {
  const WindowHandle front = MakeTop("front", {0, 0, 10, 10});
  for (const WindowHandle window : {front, other, form}) {
    windows.SetWindowPos(window, {kHwndBottom}, {}, kSwpNoMove | kSwpNoSize | kSwpNoActivate);
  }
  windows.SetActiveWindow(other);
  windows.SetWindowPos(other, front, {}, kSwpNoMove | kSwpNoSize | kSwpNoActivate);  // front, other, form
  windows.ShowWindow(other, kSwHide);
  EXPECT_EQ(windows.GetActiveWindow(), form);
}

}  // namespace
}  // namespace levelwidgets::memory
