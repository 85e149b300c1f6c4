// CheckBox: what the pointer, the keys and the focus do to it.
#include <levelwidgets/frame/parts/check_box_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CheckBoxInputTest : public CheckBoxTest {};

// --- Pointer -------------------------------------------------------------------------------------------

TEST_F(CheckBoxInputTest, AClickPressesFocusesAndChangesTheValueAfterTheRelease) {
  MoveTo(5, 5);
  Watch();
  Driver().Press(kLeftButton);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "MouseDown(1, 0, 75, 75)", "paint"));
  EXPECT_EQ(Windows().GetFocus(), Box().hWnd());
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
  Driver().Release(kLeftButton);
  EXPECT_THAT(TakeJournal(),
              ElementsAre("paint", "MouseUp(1, 0, 75, 75)", "paint", "PropertyChanged(Value)", "Click()"));
  EXPECT_EQ(Box().Value(), CheckBox::kChecked);
}

TEST_F(CheckBoxInputTest, AClickOnTheCaptionChangesTheValueToo) {
  PressOnBox(kWidth - 1, kHeight - 1);
  Driver().Release(kLeftButton);
  EXPECT_EQ(Box().Value(), CheckBox::kChecked);
}

TEST_F(CheckBoxInputTest, TwoQuickClicksChangeTheValueTwice) {
  MoveTo(5, 5);
  Watch();
  Driver().DoubleClick(ScreenPoint(Box(), PixelPoint{5, 5}));
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
  Journal events = TakeJournal();
  std::erase(events, "paint");
  EXPECT_THAT(events, ElementsAre("MouseDown(1, 0, 75, 75)", "MouseUp(1, 0, 75, 75)",
                                  "PropertyChanged(Value)", "Click()", "MouseDown(1, 0, 75, 75)",
                                  "MouseUp(1, 0, 75, 75)", "PropertyChanged(Value)", "Click()"));
}

TEST_F(CheckBoxInputTest, AReleaseOutsideChangesNothing) {
  PressOnBox();
  MoveTo(5, kHeight);  // the first row below
  Driver().Release(kLeftButton);
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
  EXPECT_EQ(FillOf(Box()), Concrete(Color(0x80000005)));
}

TEST_F(CheckBoxInputTest, APressThatComesBackBeforeTheReleaseChangesTheValue) {
  PressOnBox();
  MoveTo(5, -20);
  MoveTo(6, 6);
  Driver().Release(kLeftButton);
  EXPECT_EQ(Box().Value(), CheckBox::kChecked);
}

TEST_F(CheckBoxInputTest, ThePressShowsOnlyWhileThePointerIsInside) {
  const ColorRef rest = FillOf(Box());
  MoveTo(5, 5);
  const ColorRef under_pointer = FillOf(Box());
  Driver().Press(kLeftButton);
  const ColorRef pressed = FillOf(Box());
  EXPECT_NE(rest, under_pointer);
  EXPECT_NE(under_pointer, pressed);
  EXPECT_NE(rest, pressed);
  MoveTo(kWidth, 5);  // the first column to the right
  EXPECT_EQ(FillOf(Box()), rest);
  MoveTo(kWidth - 1, 5);
  EXPECT_EQ(FillOf(Box()), pressed);
  Driver().Release(kLeftButton);
  EXPECT_EQ(FillOf(Box()), under_pointer);
}

TEST_F(CheckBoxInputTest, OnlyTheLeftButtonPresses) {
  MoveTo(5, 5);
  Watch();
  for (const int button : {kRightButton, kMiddleButton}) {
    Driver().Press(button);
    Driver().Release(button);
  }
  Journal events = TakeJournal();
  EXPECT_THAT(events, ElementsAre("MouseDown(2, 0, 75, 75)", "paint", "MouseUp(2, 0, 75, 75)",
                                  "MouseDown(4, 0, 75, 75)", "MouseUp(4, 0, 75, 75)"));
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
}

TEST_F(CheckBoxInputTest, TheReleaseOfTheRightButtonLeavesThePressOfTheLeft) {
  PressOnBox();
  const ColorRef pressed = FillOf(Box());
  Driver().Press(kRightButton);
  Driver().Release(kRightButton);
  EXPECT_EQ(FillOf(Box()), pressed);
  Driver().Release(kLeftButton);
  EXPECT_EQ(Box().Value(), CheckBox::kChecked);
}

TEST_F(CheckBoxInputTest, ALeftReleaseEndsThePressWhileTheRightButtonIsStillDown) {
  MoveTo(5, 5);
  const ColorRef under_pointer = FillOf(Box());
  Driver().Press(kLeftButton);
  Driver().Press(kRightButton);
  Driver().Release(kLeftButton);
  EXPECT_EQ(FillOf(Box()), under_pointer);
  EXPECT_EQ(Box().Value(), CheckBox::kChecked);
  Driver().Release(kRightButton);
  EXPECT_EQ(Box().Value(), CheckBox::kChecked);
}

TEST_F(CheckBoxInputTest, ABoxThatAppearsUnderARestingPointerShowsThePress) {
  MoveTo(5, 5);
  Driver().Press(kLeftButton);
  const ColorRef pressed = FillOf(Box());
  MoveTo(5, -30);
  Driver().Release(kLeftButton);
  Driver().Advance(150);
  Hosted(Box()).SetVisible(false);
  MoveTo(5, 5);
  Hosted(Box()).SetVisible(true);
  Driver().Press(kLeftButton);
  EXPECT_EQ(FillOf(Box()), pressed);
  Driver().Release(kLeftButton);
  EXPECT_EQ(Box().Value(), CheckBox::kChecked);
}

TEST_F(CheckBoxInputTest, APressWhoseCaptureAnotherWindowTakesIsOver) {
  PressOnBox();
  Windows().SetCapture(Other().hWnd());
  const ColorRef shown = FillOf(Box());
  Windows().SetCapture(Box().hWnd());
  Driver().Release(kLeftButton);
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
  MoveTo(6, 6);
  EXPECT_EQ(shown, FillOf(Box()));
}

TEST_F(CheckBoxInputTest, ThePointerChangesTheFillOnceAndATickAfterItHasGoneRestoresIt) {
  MoveTo(5, -30);
  const ColorRef rest = FillOf(Box());
  Watch();
  MoveTo(5, 5);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "MouseMove(0, 0, 75, 75)"));
  MoveTo(6, 5);
  EXPECT_THAT(TakeJournal(), ElementsAre("MouseMove(0, 0, 90, 75)"));
  const ColorRef under_pointer = FillOf(Box());
  Driver().Advance(200);
  EXPECT_THAT(TakeJournal(), IsEmpty());
  MoveTo(5, -30);
  EXPECT_EQ(FillOf(Box()), under_pointer);
  Driver().Advance(150);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint"));
  EXPECT_EQ(FillOf(Box()), rest);
  Driver().Advance(300);
  EXPECT_THAT(TakeJournal(), IsEmpty());
}

// --- Keys ----------------------------------------------------------------------------------------------

TEST_F(CheckBoxInputTest, SpacePressesWhenItGoesDownAndChangesTheValueWhenItGoesUp) {
  const ColorRef rest = FillOf(Box());
  GiveFocus(Box());
  Watch();
  Driver().KeyDown(kKeySpace, 0);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "KeyDown(32, 0)", "KeyPress(32)"));
  EXPECT_NE(FillOf(Box()), rest);
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
  Driver().KeyUp(kKeySpace, 0);
  EXPECT_THAT(TakeJournal(),
              ElementsAre("paint", "KeyUp(32, 0)", "paint", "PropertyChanged(Value)", "Click()"));
  EXPECT_EQ(FillOf(Box()), rest);
  EXPECT_EQ(Box().Value(), CheckBox::kChecked);
}

TEST_F(CheckBoxInputTest, SpaceThatIsHeldChangesTheValueOnce) {
  GiveFocus(Box());
  Watch();
  for (int i = 0; i < 3; ++i) Driver().KeyDown(kKeySpace, 0);
  Driver().KeyUp(kKeySpace, 0);
  Journal events = TakeJournal();
  EXPECT_EQ(std::ranges::count(events, "Click()"), 1);
  EXPECT_EQ(Box().Value(), CheckBox::kChecked);
}

TEST_F(CheckBoxInputTest, OtherKeysAreReportedAndDoNothing) {
  GiveFocus(Box());
  Watch();
  Driver().Key(kKeyDown);
  Driver().Key('A');
  EXPECT_THAT(TakeJournal(), ElementsAre("KeyDown(40, 0)", "KeyUp(40, 0)", "KeyDown(65, 0)", "KeyPress(97)",
                                         "KeyUp(65, 0)"));
}

TEST_F(CheckBoxInputTest, AnotherKeyThatGoesUpWhileSpaceIsDownDoesNothing) {
  GiveFocus(Box());
  Driver().KeyDown(kKeySpace, 0);
  Driver().Key('A');
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
  Driver().KeyUp(kKeySpace, 0);
  EXPECT_EQ(Box().Value(), CheckBox::kChecked);
}

TEST_F(CheckBoxInputTest, SpaceThatWentDownElsewhereChangesNothing) {
  GiveFocus(Other());
  Driver().KeyDown(kKeySpace, 0);
  GiveFocus(Box());
  Driver().KeyUp(kKeySpace, 0);
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
  EXPECT_EQ(Other().Value(), CheckBox::kUnchecked);
}

TEST_F(CheckBoxInputTest, LosingTheFocusWhileSpaceIsDownEndsThePress) {
  const ColorRef rest = FillOf(Box());
  GiveFocus(Box());
  Driver().KeyDown(kKeySpace, 0);
  GiveFocus(Other());
  EXPECT_EQ(FillOf(Box()), rest);
  GiveFocus(Box());
  EXPECT_EQ(FillOf(Box()), rest);
  Driver().KeyUp(kKeySpace, 0);
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
}

TEST_F(CheckBoxInputTest, SpaceWithAltBelongsToTheSystem) {
  GiveFocus(Box());
  Box().OnKeyDown(kKeySpace, kAltMask);
  Box().OnKeyUp(kKeySpace, 0);
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
}

TEST_F(CheckBoxInputTest, ASpaceThatTheFormUsesNeverReachesIt) {
  TheForm().SetKeyPreview(true);
  TheForm().KeyDown += [](std::int16_t& code, std::int16_t) { code = 0; };
  GiveFocus(Box());
  Driver().Key(kKeySpace);
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
}

TEST_F(CheckBoxInputTest, TheAccessKeyGivesTheFocusAndChangesTheValue) {
  GiveFocus(Other());
  Watch();
  Driver().Key('S', kAltMask);
  Journal events = TakeJournal();
  EXPECT_EQ(Box().Value(), CheckBox::kChecked);
  EXPECT_EQ(Windows().GetFocus(), Box().hWnd());
  EXPECT_EQ(std::ranges::count(events, "Click()"), 1);
  Driver().Key('S', kAltMask);
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
}

// --- Focus, disabled, hidden ---------------------------------------------------------------------------

TEST_F(CheckBoxInputTest, GettingAndLosingTheFocusRepaints) {
  GiveFocus(Other());
  Watch();
  GiveFocus(Box());
  EXPECT_THAT(TakeJournal(), ElementsAre("paint"));
  GiveFocus(Other());
  EXPECT_THAT(TakeJournal(), ElementsAre("paint"));
}

TEST_F(CheckBoxInputTest, ADisabledCheckBoxTakesNoInput) {
  Box().SetEnabled(false);
  Watch();
  ClickOnBox();
  Driver().Key('S', kAltMask);
  Box().OnAccessKeyPress('s');
  EXPECT_THAT(TakeJournal(), IsEmpty());
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
  EXPECT_EQ(Windows().GetFocus(), Other().hWnd());
}

TEST_F(CheckBoxInputTest, DisablingItEndsAPressAndEnablingDoesNotBringItBack) {
  const ColorRef rest = FillOf(Box());
  PressOnBox();
  Box().SetEnabled(false);
  MoveTo(5, -30);
  Driver().Advance(150);
  Box().SetEnabled(true);
  EXPECT_EQ(FillOf(Box()), rest);
  MoveTo(5, 5);
  Driver().Release(kLeftButton);
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
}

TEST_F(CheckBoxInputTest, DisablingItWhileSpaceIsDownEndsThatToo) {
  const ColorRef rest = FillOf(Box());
  GiveFocus(Box());
  Driver().KeyDown(kKeySpace, 0);
  Box().SetEnabled(false);
  Box().SetEnabled(true);
  EXPECT_EQ(FillOf(Box()), rest);
  GiveFocus(Box());
  Driver().KeyUp(kKeySpace, 0);
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
}

TEST_F(CheckBoxInputTest, AListenerOfTheReleaseThatDisablesItKeepsTheValue) {
  Box().MouseUp += [this](auto...) { Box().SetEnabled(false); };
  ClickOnBox();
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
}

TEST_F(CheckBoxInputTest, AListenerOfKeyUpThatMovesTheFocusKeepsTheValue) {
  Box().KeyUp += [this](auto...) { GiveFocus(Other()); };
  GiveFocus(Box());
  Driver().Key(kKeySpace);
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
  EXPECT_EQ(Other().Value(), CheckBox::kUnchecked);
}

TEST_F(CheckBoxInputTest, AListenerOfKeyUpThatRemovesItKeepsTheValue) {
  const auto kept = TheForm().Find(Hosted(Box()).Name())->GetControl();
  Box().KeyUp += [this](auto...) { TheForm().Remove("chkSave"); };
  GiveFocus(Box());
  Driver().Key(kKeySpace);
  EXPECT_FALSE(TheForm().Find("chkSave"));
  EXPECT_EQ(dynamic_cast<CheckBox&>(*kept).Value(), CheckBox::kUnchecked);
}

TEST_F(CheckBoxInputTest, AnErrorOfAListenerOfKeyUpEndsThePressAllTheSame) {
  const ColorRef rest = FillOf(Box());
  GiveFocus(Box());
  Box().KeyUp += [](auto...) { throw Error(kInvalidCall); };
  Driver().KeyDown(kKeySpace, 0);
  EXPECT_EQ(ErrorOf([&] { Driver().KeyUp(kKeySpace, 0); }), kInvalidCall);
  EXPECT_EQ(FillOf(Box()), rest);
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
}

TEST_F(CheckBoxInputTest, AHiddenCheckBoxTakesNoAccessKey) {
  Hosted(Box()).SetVisible(false);
  Driver().Key('S', kAltMask);
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
  EXPECT_EQ(Windows().GetFocus(), Other().hWnd());
}

TEST_F(CheckBoxInputTest, InDesignModeItTakesNoInput) {
  MakeForm({.design = true});
  ClickOnBox();
  EXPECT_EQ(Box().Value(), CheckBox::kUnchecked);
}

}  // namespace
}  // namespace levelwidgets::testing
