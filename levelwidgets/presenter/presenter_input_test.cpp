// Input, focus and clipboard on a display without a screen.
#include <SDL.h>

#include <levelwidgets/presenter/presenter_fixture.h>

namespace levelwidgets::presenter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- Pointer -----------------------------------------------------------------------------------------

TEST_F(PresenterTest, ThePointersPlaceInTheWindowIsItsPlaceOnTheDesktop) {
  Begin();
  Handle({Motion(form, 15, 25), Button(form, SDL_MOUSEBUTTONDOWN, 15, 25),
          Button(form, SDL_MOUSEBUTTONUP, 16, 25)});
  EXPECT_THAT(Input(),
              ElementsAre("left MouseMove 0 5,15", "left LButtonDown 1 5,15", "left MouseMove 1 6,15",
                          "left CaptureChanged none", "left LButtonUp 0 6,15"));
}

TEST_F(PresenterTest, OtherMouseButtonsArriveAsThemselves) {
  Handle({Motion(form, 15, 25)});
  Begin();
  Handle({Button(form, SDL_MOUSEBUTTONDOWN, 15, 25, SDL_BUTTON_RIGHT),
          Button(form, SDL_MOUSEBUTTONUP, 15, 25, SDL_BUTTON_RIGHT),
          Button(form, SDL_MOUSEBUTTONDOWN, 15, 25, SDL_BUTTON_MIDDLE),
          Button(form, SDL_MOUSEBUTTONUP, 15, 25, SDL_BUTTON_MIDDLE),
          Button(form, SDL_MOUSEBUTTONDOWN, 15, 25, SDL_BUTTON_X1)});
  EXPECT_THAT(Input(),
              ElementsAre("left RButtonDown 2 5,15", "left CaptureChanged none", "left RButtonUp 0 5,15",
                          "left MButtonDown 16 5,15", "left CaptureChanged none", "left MButtonUp 0 5,15"));
}

TEST_F(PresenterTest, MovesThatFollowEachOtherAreOne) {
  Begin();
  Handle({Motion(form, 15, 25), Motion(form, 18, 26), Motion(form, 20, 27)});
  EXPECT_THAT(Input(), ElementsAre("left MouseMove 0 10,17"));
}

TEST_F(PresenterTest, ADragGoesOnOutside) {
  Handle({Motion(form, 15, 25), Button(form, SDL_MOUSEBUTTONDOWN, 15, 25)});
  Begin();
  Handle({Motion(form, -400, 500), WindowEvent(form, SDL_WINDOWEVENT_LEAVE)});
  EXPECT_THAT(Input(), ElementsAre("left MouseMove 1 -410,490"));
  Handle({Button(form, SDL_MOUSEBUTTONUP, -400, 500)});
  EXPECT_THAT(Input(), ElementsAre("left CaptureChanged none", "left LButtonUp 0 -410,490"));
}

TEST_F(PresenterTest, APointerThatHasLeftIsOverNothing) {
  Handle({Motion(form, 15, 25), WindowEvent(form, SDL_WINDOWEVENT_LEAVE)});
  PixelPoint pointer;
  windows.GetCursorPos(pointer);
  EXPECT_EQ(pointer, NativeDisplay::Nowhere());
  EXPECT_FALSE(windows.WindowAt(pointer).top_level);
}

TEST_F(PresenterTest, MovingToAnotherWindowDoesNotCountAsLeaving) {
  const WindowHandle other = MakeForm("other", {600, 100, 700, 200});
  presenter.Sync();
  Handle({Motion(form, 15, 25)});
  Begin();
  Handle({WindowEvent(form, SDL_WINDOWEVENT_LEAVE), WindowEvent(other, SDL_WINDOWEVENT_ENTER),
          Motion(other, 5, 6)});
  EXPECT_THAT(Input(), ElementsAre("other MouseMove 0 5,6"));
}

TEST_F(PresenterTest, TheNativeOrderDecidesWhichWindowIsHit) {
  MakeForm("front", {100, 100, 400, 300});
  presenter.Sync();
  Begin();
  Handle({Motion(form, 15, 25)});
  EXPECT_THAT(Input(), ElementsAre("left MouseMove 0 5,15"));
}

TEST_F(PresenterTest, APointerThatJumpsBetweenFormsMovesInEach) {
  // In front of the form on the desktop, beside it natively.
  const WindowHandle other = MakeForm("other", {100, 100, 400, 300});
  presenter.Sync();
  Begin();
  Handle({Motion(form, 200, 150), WindowEvent(form, SDL_WINDOWEVENT_LEAVE),
          WindowEvent(other, SDL_WINDOWEVENT_ENTER), Motion(other, 201, 150), Motion(form, 202, 150)});
  EXPECT_THAT(Input(), ElementsAre("form MouseMove 0 200,150", "other MouseMove 0 201,150",
                                   "form MouseMove 0 202,150"));
  Handle({Button(other, SDL_MOUSEBUTTONDOWN, 203, 151), Button(other, SDL_MOUSEBUTTONUP, 203, 151)});
  EXPECT_THAT(Input(), ElementsAre("other MouseMove 0 203,151", "other LButtonDown 1 203,151",
                                   "other CaptureChanged none", "other LButtonUp 0 203,151"));
}

// As controls that are highlighted under the pointer do.
TEST_F(PresenterTest, APressBesideAWindowThatHasHadThePointerIsTheNextWindows) {
  bool over = false;
  client.On(kWmMouseMove, [&](WindowHandle window, WParam, LParam) -> LResult {
    if (window != left) return 0;
    over ? void(windows.ReleaseCapture()) : void(windows.SetCapture(left));
    over = !over;
    return 0;
  });
  client.On(kWmLButtonUp, [&](WindowHandle window, WParam, LParam) -> LResult {
    if (window == left) windows.SetCapture(left);
    over = false;
    return 0;
  });
  for (int round = 0; round < 3; ++round) {
    Handle({Motion(form, 15, 25), Button(form, SDL_MOUSEBUTTONDOWN, 15, 25),
            Button(form, SDL_MOUSEBUTTONUP, 15, 25)});
    Begin();
    // A slow handler has left all of these waiting: one move counts.
    Handle({Motion(form, 40, 25), Motion(form, 60, 25), Motion(form, 75, 25),
            Button(form, SDL_MOUSEBUTTONDOWN, 75, 25), Button(form, SDL_MOUSEBUTTONUP, 75, 25)});
    EXPECT_THAT(Messages("Button"), ElementsAre("right LButtonDown 1 15,15", "right LButtonUp 0 15,15"))
        << round;
  }
}

TEST_F(PresenterTest, APointerThatLeavesTheWindowLeavesTheOneThatHasItCapturedToo) {
  int moves = 0;
  client.On(kWmMouseMove, [&](WindowHandle, WParam, LParam) -> LResult {
    if (++moves == 2) windows.ReleaseCapture();
    return 0;
  });
  Handle({Motion(form, 15, 25)});
  windows.SetCapture(left);
  moves = 0;
  Handle({WindowEvent(form, SDL_WINDOWEVENT_LEAVE)});
  EXPECT_FALSE(windows.GetCapture());
}

TEST_F(PresenterTest, TextOutsideTheCodePageArrivesAsQuestionMarks) {
  const WindowHandle edit = windows.CreateWindowExA(
      {.class_name = "EDIT", .style = kWsChild | kWsVisible, .rect = {10, 70, 200, 90}, .parent = form});
  windows.SetFocus(edit);
  SDL_Event key = Key(SDL_KEYDOWN, 0x43F);
  key.key.keysym.scancode = SDL_SCANCODE_G;
  Handle({key, Text("\xD0\xBF"), Text("\xD1\x80\xC3\xA9"), Text("\xE2\x82\xAC")});
  EXPECT_EQ(windows.GetWindowTextA(edit), "??\xC3\xA9\xE2\x82\xAC");
}

TEST_F(PresenterTest, TheWheelGoesToTheWindowUnderThePointer) {
  windows.SetFocus(right);
  Handle({Motion(form, 15, 25)});
  Begin();
  SDL_Event wheel{};
  wheel.type = SDL_MOUSEWHEEL;
  wheel.wheel.windowID = presenter.NativeIdOf(form);
  wheel.wheel.y = -2;
  Handle({wheel});
  EXPECT_THAT(Messages("MouseWheel"),
              ElementsAre("left MouseWheel -240 115,125", "form MouseWheel -240 115,125"));
}

// --- Keys --------------------------------------------------------------------------------------------

TEST_F(PresenterTest, AKeyTypesItsTextOnce) {
  windows.SetFocus(left);
  Begin();
  Handle({Key(SDL_KEYDOWN, SDLK_a), Text("a"), Key(SDL_KEYUP, SDLK_a)});
  EXPECT_THAT(Input(), ElementsAre("left KeyDown 65", "left Char 97", "left KeyUp 65"));
}

TEST_F(PresenterTest, ShiftIsAKeyOfItsOwnAndHeldWithOthers) {
  windows.SetFocus(left);
  Begin();
  Handle({Key(SDL_KEYDOWN, SDLK_LSHIFT, KMOD_LSHIFT), Key(SDL_KEYDOWN, SDLK_a, KMOD_LSHIFT), Text("A"),
          Key(SDL_KEYUP, SDLK_a, KMOD_LSHIFT)});
  EXPECT_THAT(Input(), ElementsAre("left KeyDown 16", "left KeyDown 65", "left Char 65", "left KeyUp 65"));
  EXPECT_LT(windows.GetKeyState(kKeyShift), 0);
  Handle({Key(SDL_KEYUP, SDLK_LSHIFT)});
  EXPECT_EQ(windows.GetKeyState(kKeyShift), 0);
}

TEST_F(PresenterTest, KeysRepeatWithTheirText) {
  windows.SetFocus(left);
  Begin();
  Handle({Key(SDL_KEYDOWN, SDLK_a), Text("a"), Key(SDL_KEYDOWN, SDLK_a), Text("a"), Key(SDL_KEYUP, SDLK_a)});
  EXPECT_THAT(Input(), ElementsAre("left KeyDown 65", "left Char 97", "left KeyDown 65", "left Char 97",
                                   "left KeyUp 65"));
}

TEST_F(PresenterTest, TextOfAnInputMethodArrivesWithoutKeys) {
  windows.SetFocus(left);
  Begin();
  Handle({Key(SDL_KEYDOWN, SDLK_e), Key(SDL_KEYUP, SDLK_e), Text("\xC3\xA9")});
  EXPECT_THAT(Input(), ElementsAre("left KeyDown 69", "left KeyUp 69", "left Char 233"));
}

// --- Focus -------------------------------------------------------------------------------------------

TEST_F(PresenterTest, AnotherProgramInFrontLeavesNoFormActive) {
  Handle({WindowEvent(form, SDL_WINDOWEVENT_FOCUS_GAINED)});
  Begin();
  Handle({WindowEvent(form, SDL_WINDOWEVENT_FOCUS_LOST)});
  EXPECT_FALSE(windows.GetActiveWindow());
  Handle({WindowEvent(form, SDL_WINDOWEVENT_FOCUS_GAINED)});
  EXPECT_EQ(windows.GetActiveWindow(), form);
  EXPECT_THAT(Messages("Activate"), ElementsAre("form Activate 0 none", "form Activate 1 none"));
}

TEST_F(PresenterTest, BetweenTwoFormsOneFollowsTheOther) {
  const WindowHandle other = MakeForm("other", {600, 100, 700, 200});
  presenter.Sync();
  Handle({WindowEvent(other, SDL_WINDOWEVENT_FOCUS_GAINED)});
  Begin();
  Handle({WindowEvent(other, SDL_WINDOWEVENT_FOCUS_LOST), WindowEvent(form, SDL_WINDOWEVENT_FOCUS_GAINED)});
  EXPECT_THAT(Messages("Activate"), ElementsAre("other Activate 0 form", "form Activate 1 other"));
}

TEST_F(PresenterTest, KeysOfTheTurnInWhichAFormGetsTheKeyboardArriveThere) {
  const WindowHandle other = MakeForm("other", {600, 100, 700, 200});
  presenter.Sync();
  Handle({WindowEvent(form, SDL_WINDOWEVENT_FOCUS_GAINED)});
  Handle({WindowEvent(form, SDL_WINDOWEVENT_FOCUS_LOST)});
  Begin();
  Handle({WindowEvent(other, SDL_WINDOWEVENT_FOCUS_GAINED), Key(SDL_KEYDOWN, SDLK_DOWN)});
  EXPECT_THAT(Input(), ElementsAre("other KeyDown 40"));
  Begin();
  Handle({WindowEvent(other, SDL_WINDOWEVENT_FOCUS_LOST), WindowEvent(form, SDL_WINDOWEVENT_FOCUS_GAINED),
          Key(SDL_KEYDOWN, SDLK_UP)});
  EXPECT_THAT(Input(), ElementsAre("form KeyDown 38"));
}

TEST_F(PresenterTest, AKeyBetweenTwoFormsLeavesNoMomentWithoutAnActiveOne) {
  const WindowHandle other = MakeForm("other", {600, 100, 700, 200});
  presenter.Sync();
  Handle({WindowEvent(other, SDL_WINDOWEVENT_FOCUS_GAINED)});
  Begin();
  Handle({WindowEvent(other, SDL_WINDOWEVENT_FOCUS_LOST), Key(SDL_KEYDOWN, SDLK_UP),
          WindowEvent(form, SDL_WINDOWEVENT_FOCUS_GAINED)});
  EXPECT_THAT(Messages("Activate"), ElementsAre("other Activate 0 form", "form Activate 1 other"));
}

TEST_F(PresenterTest, AnOpenPopupStaysActiveUntilAnotherProgramIs) {
  Handle({WindowEvent(form, SDL_WINDOWEVENT_FOCUS_GAINED)});
  const WindowHandle popup = MakePopup({120, 130, 220, 190});
  windows.SetFocus(popup);
  presenter.Sync();
  Handle({Motion(popup, 5, 6)});
  EXPECT_EQ(windows.GetActiveWindow(), popup);
  Begin();
  Handle({Key(SDL_KEYDOWN, SDLK_DOWN)});  // natively the form has the keyboard
  EXPECT_THAT(Input(), ElementsAre("popup KeyDown 40"));
  Handle({WindowEvent(form, SDL_WINDOWEVENT_FOCUS_LOST)});
  EXPECT_FALSE(windows.GetActiveWindow());
}

// A press in a form without the keyboard comes first, and opens the popup.
TEST_F(PresenterTest, AFormThatGetsTheKeyboardLeavesItsOpenPopupActive) {
  const WindowHandle other = MakeForm("other", {600, 100, 700, 200});
  presenter.Sync();
  Handle({WindowEvent(other, SDL_WINDOWEVENT_FOCUS_GAINED)});
  windows.SetActiveWindow(form);
  const WindowHandle popup = MakePopup({120, 130, 220, 190});
  windows.SetFocus(popup);
  presenter.Sync();
  Handle({WindowEvent(other, SDL_WINDOWEVENT_FOCUS_LOST), WindowEvent(form, SDL_WINDOWEVENT_FOCUS_GAINED)});
  EXPECT_EQ(windows.GetActiveWindow(), popup);
  Handle({WindowEvent(form, SDL_WINDOWEVENT_FOCUS_LOST), WindowEvent(other, SDL_WINDOWEVENT_FOCUS_GAINED)});
  EXPECT_EQ(windows.GetActiveWindow(), other);
}

// What has the capture opens a popup without its form becoming active.
TEST_F(PresenterTest, APopupOfAPressStaysActiveWhenItsFormGetsTheKeyboardBehindAnother) {
  const WindowHandle other = MakeForm("other", {600, 100, 700, 200});
  presenter.Sync();
  Handle({WindowEvent(other, SDL_WINDOWEVENT_FOCUS_GAINED)});
  const WindowHandle popup = MakePopup({120, 130, 220, 190});
  client.On(kWmLButtonDown, [&](WindowHandle, WParam, LParam) -> LResult {
    windows.SetFocus(popup);
    return 0;
  });
  windows.SetCapture(left);
  Handle({Button(form, SDL_MOUSEBUTTONDOWN, 15, 15), Button(form, SDL_MOUSEBUTTONUP, 15, 15)});
  ASSERT_EQ(windows.GetActiveWindow(), popup);
  Handle({WindowEvent(other, SDL_WINDOWEVENT_FOCUS_LOST), WindowEvent(form, SDL_WINDOWEVENT_FOCUS_GAINED)});
  EXPECT_EQ(windows.GetActiveWindow(), popup);
  Handle({WindowEvent(form, SDL_WINDOWEVENT_FOCUS_LOST), WindowEvent(other, SDL_WINDOWEVENT_FOCUS_GAINED)});
  EXPECT_EQ(windows.GetActiveWindow(), other);
}

TEST_F(PresenterTest, AFormThatClosesHandsTheKeyboardToTheNextWithoutADetour) {
  const WindowHandle dialog = MakeForm("dialog", {600, 100, 700, 200});
  presenter.Sync();
  Handle({WindowEvent(dialog, SDL_WINDOWEVENT_FOCUS_GAINED)});
  Begin();
  const std::uint32_t native = presenter.NativeIdOf(dialog);
  windows.DestroyWindow(dialog);
  presenter.Sync();
  SDL_Event lost = WindowEvent(form, SDL_WINDOWEVENT_FOCUS_LOST);
  lost.window.windowID = native;
  Handle({lost});
  Handle({WindowEvent(form, SDL_WINDOWEVENT_FOCUS_GAINED)});
  EXPECT_THAT(Messages("form Activate"), ElementsAre("form Activate 1 dialog"));
}

// --- Clipboard ---------------------------------------------------------------------------------------

TEST_F(PresenterTest, BothSidesShareOneClipboard) {
  desktop.SetClipboard("from here");
  presenter.Sync();
  EXPECT_EQ(NativeClipboard(), "from here");
  SDL_SetClipboardText("from there");
  SDL_Event changed{};
  changed.type = SDL_CLIPBOARDUPDATE;
  Handle({changed});
  EXPECT_EQ(desktop.Clipboard(), "from there");
  SDL_SetClipboardText("while away");
  Handle({WindowEvent(form, SDL_WINDOWEVENT_FOCUS_GAINED)});
  EXPECT_EQ(desktop.Clipboard(), "while away");
}

}  // namespace
}  // namespace levelwidgets::presenter
