// FlatCalculator: the keypad, its keys and what closes it.
#include <levelwidgets/controls/calculator/flat_calculator_fixture.h>
#include <levelwidgets/testing/error_of.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- Opening -----------------------------------------------------------------------------------------

TEST_F(FlatCalculatorTest, TheKeypadIsDetachedByTheSameCallsInTheSameOrderAtEachOpening) {
  Open();
  for (int opening = 0; opening < 2; ++opening) {
    Driver().Key(kKeyEscape);
    std::vector<std::string> texts;
    for (const TracedCall& call : CallsNamed({"SetWindowLongA", "SetParent", "GetWindowRect", "SetTimer"},
                                             [&] { Driver().KeyDown(kKeyF4, 0); })) {
      texts.push_back(call.ToString());
    }
    const std::string panel = std::to_string(Calculator().Panel()->hWnd().value);
    const std::string control = std::to_string(Calculator().hWnd().value);
    ASSERT_EQ(texts.size(), 5u);
    EXPECT_THAT(
        std::vector(texts.begin(), texts.begin() + 4),
        ElementsAre("SetWindowLongA(" + panel + ", -20, 128)", "SetParent(" + panel + ", 0)",
                    "SetWindowLongA(" + panel + ", -16, -2147483648)", "GetWindowRect(" + control + ")"));
    EXPECT_THAT(texts[4], ::testing::StartsWith("SetTimer(100"));
    Driver().KeyUp(kKeyF4, 0);
  }
}

TEST_F(FlatCalculatorTest, TheKeypadHasItsSizeAndNoBorder) {
  Open();
  EXPECT_EQ(PanelRect().width(), 1815 / 15);
  EXPECT_EQ(PanelRect().height(), 2295 / 15);
  PixelRect client;
  Windows().GetClientRect(Calculator().Panel()->hWnd(), client);
  EXPECT_EQ(client, (PixelRect{0, 0, 121, 153}));
}

TEST_F(FlatCalculatorTest, TextThatIsNoNumberBecomes0) {
  Calculator().SetText("abc");
  EXPECT_THAT(EventsOf([this] { Open(); }), ElementsAre("Change()"));
  EXPECT_EQ(Calculator().Text(), "0");
  EXPECT_EQ(After("abc", "+ 5 ="), "5");
}

TEST_F(FlatCalculatorTest, AHandlerOfTheChangeAtTheOpeningMayRemoveOrDisableTheControl) {
  Calculator().SetText("abc");
  Calculator().Change += [this] { Calculator().SetEnabled(false); };
  Driver().Key(kKeyF4);
  EXPECT_FALSE(IsOpen());
  TheForm().Remove("edt");
  auto& doomed = AddLoaded<FlatCalculator>("doomed");
  doomed.SetText("abc");
  doomed.Change += [this] { TheForm().Remove("doomed"); };
  Hosted(doomed).SetFocus();
  Driver().Key(kKeyF4);
  Driver().Advance(300);
  EXPECT_FALSE(TheForm().Find("doomed"));
}

// --- Keys by the pointer -------------------------------------------------------------------------------

TEST_F(FlatCalculatorTest, EveryKeyCanBeClicked) {
  EXPECT_EQ(After("0", "1 2 3 4 5 6 7 8 9 0"), "1234567890");
  EXPECT_EQ(After("6", "8 C 1 . . 5 + 2 ="), "3.5");
  EXPECT_EQ(After("0", "9 - 2 ="), "7");
  EXPECT_EQ(After("0", "9 * 2 ="), "18");
  EXPECT_EQ(After("0", "9 / 2 ="), "4.5");
  EXPECT_EQ(After("0", "9 +-"), "-9");
  EXPECT_EQ(After("0", "9 +- +-"), "9");
  EXPECT_EQ(After("0", "8 * 3 <- ="), "0");
}

TEST_F(FlatCalculatorTest, CalculatesAtOnceFromLeftToRight) {
  EXPECT_EQ(After("0", "2 + 3 * 4 ="), "20");
  EXPECT_EQ(After("0", "7 + +"), "14");
}

TEST_F(FlatCalculatorTest, TheTextOfTheOpeningIsTheLeftOperand) { EXPECT_EQ(After("12", "/ 5 ="), "2.4"); }

TEST_F(FlatCalculatorTest, AKeyCountsWhereItIsReleased) {
  Open();
  Driver().MovePointer(OnKey("7"));
  Driver().Press(kLeftButton);
  EXPECT_EQ(Calculator().Text(), "0");
  Driver().MovePointer(OnKey("8"));
  Driver().Release(kLeftButton);
  EXPECT_EQ(Calculator().Text(), "0");
  Driver().Click(OnKey("8"));
  EXPECT_EQ(Calculator().Text(), "8");
}

TEST_F(FlatCalculatorTest, TheSecondClickCountsOnDigitsAndClearKeysOnly) {
  Open();
  Driver().DoubleClick(OnKey("7"));
  EXPECT_EQ(Calculator().Text(), "77");
  Driver().DoubleClick(OnKey("+"));
  EXPECT_EQ(Calculator().Text(), "77");
  Driver().DoubleClick(OnKey("+-"));
  EXPECT_EQ(Calculator().Text(), "-77");
  int changes = 0;
  Calculator().Change += [&] { ++changes; };
  EXPECT_THAT(EventsOf([this] { Driver().DoubleClick(OnKey("<-")); }),
              ElementsAre("Change()", "PropertyChanged(Text)", "PropertyChanged(Text)"));
  EXPECT_THAT(EventsOf([this] { Driver().DoubleClick(OnKey("C")); }),
              ElementsAre("PropertyChanged(Text)", "PropertyChanged(Text)"));
  EXPECT_EQ(changes, 1);
}

TEST_F(FlatCalculatorTest, OtherButtonsPressNoKey) {
  Open();
  Driver().MovePointer(OnKey("7"));
  for (const int button : {kRightButton, kMiddleButton}) {
    Driver().Press(button);
    Driver().Release(button);
  }
  EXPECT_EQ(Calculator().Text(), "0");
}

TEST_F(FlatCalculatorTest, AKeyRaisesChangeAndTheClearKeysNotifyToo) {
  Calculator().SetText("1");
  Open();
  EXPECT_THAT(EventsOf([this] { ClickKeys("7"); }), ElementsAre("Change()"));
  EXPECT_THAT(EventsOf([this] { ClickKeys("+"); }), ElementsAre());
  EXPECT_THAT(EventsOf([this] { ClickKeys("C"); }), ElementsAre("Change()", "PropertyChanged(Text)"));
}

TEST_F(FlatCalculatorTest, ADigitPutsTheCaretToTheLengthOfTheSelection) {
  Calculator().SetText("1234");
  Open();
  Calculator().SetSelStart(0);
  Calculator().SetSelLength(3);
  int in_handler = 0;
  Calculator().Change += [&] { ++in_handler; };
  ClickKeys("5");
  // The new text has nothing selected.
  EXPECT_EQ(Calculator().SelStart(), 0);
  EXPECT_EQ(Calculator().SelLength(), 0);
  EXPECT_EQ(in_handler, 1);
}

TEST_F(FlatCalculatorTest, ADigitThatChangesNothingPutsTheCaretThereToo) {
  Open();
  ClickKeys("1 .");
  Calculator().SetSelStart(0);
  Calculator().SetSelLength(2);
  EXPECT_THAT(EventsOf([this] { Driver().Key(110); }), IsEmpty());
  EXPECT_EQ(Calculator().Text(), "1.");
  EXPECT_EQ(Calculator().SelStart(), 2);
  EXPECT_EQ(Calculator().SelLength(), 0);
}

// --- Keys of the keyboard ------------------------------------------------------------------------------

TEST_F(FlatCalculatorTest, TheKeyboardDrivesTheOpenKeypad) {
  const struct {
    int code;
    const char* text;
  } rows[] = {
      {48 + 7, "7"},  {96 + 5, "75"}, {110, "75."}, {49, "75.1"},  {107, "75.1"},
      {50, "2"},      {109, "77.1"},  {51, "3"},    {106, "74.1"}, {50, "2"},
      {111, "148.2"}, {52, "4"},      {8, "0"},     {'C', "0"},    {57, "9"},
  };
  Open();
  for (const auto& row : rows) {
    Driver().Key(row.code);
    EXPECT_EQ(Calculator().Text(), row.text) << row.code;
  }
  Driver().Key(kKeyEnter);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Calculator().Text(), "9");
}

TEST_F(FlatCalculatorTest, ShiftStatesMakeNoDifferenceAndOtherKeysDoNothing) {
  AddLoaded<FlatCalculator>("other", {}, {Twips(600), Twips(1500)});
  Open();
  Driver().Key('5', kShiftMask);
  EXPECT_EQ(Calculator().Text(), "5");
  EXPECT_THAT(
      EventsOf([this] {
        for (const int code : {190, 187, 189, 191, int{kKeyTab}, int{kKeyLeft}, int{'A'}, int{kKeyF4}}) {
          Driver().Key(code);
        }
        Driver().Key(kKeyDown, kAltMask);
      }),
      IsEmpty());
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(Calculator().Text(), "5");
  EXPECT_EQ(Windows().GetFocus(), Calculator().Panel()->hWnd());
  Driver().Key(kKeyEscape, kShiftMask);
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatCalculatorTest, KeysThatTheKeypadUsesRaiseNoKeyEventBeforeTheirEnd) {
  Open();
  EXPECT_THAT(EventsOf([this] { Driver().Key('7'); }), ElementsAre("Change()"));
  EXPECT_THAT(EventsOf([this] { Driver().Key(kKeyEnter); }), ElementsAre("CalcUp()", "KeyUp(13, 0)"));
}

// --- Closing -----------------------------------------------------------------------------------------

TEST_F(FlatCalculatorTest, EqualsLeavesTheResultAndRaisesCalcUpOnce) {
  Calculator().SetFormatString("0.00");
  Open();
  ClickKeys("1 / 3");
  EXPECT_THAT(EventsOf([this] { ClickKeys("="); }), ElementsAre("Change()", "CalcUp()"));
  EXPECT_EQ(Calculator().Text(), "0.33");
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatCalculatorTest, TheKeypadIsClosedWhenCalcUpIsRaised) {
  std::vector<bool> open;
  Calculator().CalcUp += [&] { open.push_back(IsOpen()); };
  Open();
  Driver().Key(kKeyEscape);
  Open();
  ClickKeys("=");
  EXPECT_THAT(open, ElementsAre(false, false));
}

TEST_F(FlatCalculatorTest, EscapeKeepsWhatIsShown) {
  Open();
  ClickKeys("5 + 3");
  EXPECT_THAT(EventsOf([this] { Driver().Key(kKeyEscape); }), ElementsAre("CalcUp()", "KeyUp(27, 0)"));
  EXPECT_EQ(Calculator().Text(), "3");
}

TEST_F(FlatCalculatorTest, FailedArithmeticShowsErrorAndCloses) {
  EXPECT_EQ(After("0", "9 / 0 ="), "Error");
  EXPECT_FALSE(IsOpen());
  // An operator fails again, a digit begins anew.
  EXPECT_EQ(After("Error", "5"), "5");
}

TEST_F(FlatCalculatorTest, AFailureRaisesChangeAndThenCalcUp) {
  Open();
  ClickKeys("9 / 0");
  EXPECT_THAT(EventsOf([this] { ClickKeys("="); }), ElementsAre("Change()", "CalcUp()"));
}

TEST_F(FlatCalculatorTest, ALonePointIsTheConversionsErrorOfTheControl) {
  Open();
  EXPECT_EQ(ErrorOf([this] { Driver().Click(OnKey(".")); }), kTypeMismatch);
  Driver().Settle();
  EXPECT_EQ(Calculator().Text(), ".");
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(ErrorOf([this] { Driver().Key(110); }), kTypeMismatch);
}

TEST_F(FlatCalculatorTest, ASecondPressOnTheDropButtonRaisesCalcUpOnce) {
  Subject();
  Driver().Click(Strip());
  ASSERT_TRUE(IsOpen());
  Driver().Advance(600);
  EXPECT_THAT(EventsOf([this] { Driver().Click(Strip()); }), ElementsAre("CalcUp()"));
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatCalculatorTest, AnotherProgramClosesItWithCalcUp) {
  Open();
  EXPECT_THAT(EventsOf([this] {
                Driver().Leave();
                Watched();
              }),
              ElementsAre("CalcUp()"));
  Driver().Enter();
}

// The place is measured against the control's size.
TEST_F(FlatCalculatorTest, APressOnTheBackgroundClosesItOutsideTheSizeOfTheControl) {
  Load({}, {Twips(1200), Twips(2400)});
  const struct {
    int x;
    int y;
    bool closes;
  } rows[] = {
      {1500, 30, true}, {1200, 30, false},  {1215, 30, true},
      {30, 30, false},  {585, 1200, false}, {1650, 2250, true},
  };
  for (const auto& row : rows) {
    Open();
    Driver().MovePointer(OnPanel(row.x, row.y));
    Driver().Press(kLeftButton);
    EXPECT_EQ(IsOpen(), !row.closes) << row.x << " " << row.y;
    Driver().Release(kLeftButton);
    if (IsOpen()) Driver().Key(kKeyEscape);
    Driver().Advance(600);
  }
}

TEST_F(FlatCalculatorTest, ThePressBelowALowControlCloses) {
  Open();
  Driver().MovePointer(OnPanel(30, 315));
  Driver().Press(kLeftButton);
  EXPECT_TRUE(IsOpen());
  Driver().Release(kLeftButton);
  Driver().Advance(600);
  Driver().MovePointer(OnPanel(30, 330));
  Driver().Press(kLeftButton);
  EXPECT_FALSE(IsOpen());
  Driver().Release(kLeftButton);
}

TEST_F(FlatCalculatorTest, AHiddenControlWhoseKeypadIsPressedBeforeItClosesGetsNoFocus) {
  AddLoaded<FlatCalculator>("other", {}, {Twips(600), Twips(1500)});
  Open();
  Hosted(Calculator()).SetVisible(false);
  Driver().MovePointer(OnPanel(30, 2250));
  Driver().Press(kLeftButton);
  EXPECT_FALSE(IsOpen());
  Driver().Release(kLeftButton);
  EXPECT_FALSE(Calculator().Holds(Windows().GetFocus()));
}

TEST_F(FlatCalculatorTest, OtherButtonsOnTheBackgroundDoNotClose) {
  Open();
  Driver().MovePointer(OnPanel(30, 2250));
  Driver().Press(kRightButton);
  EXPECT_TRUE(IsOpen());
  Driver().Release(kRightButton);
}

// --- Handlers of CalcUp --------------------------------------------------------------------------------

TEST_F(FlatCalculatorTest, TheEditBoxGetsTheFocusAfterCalcUpWhateverTheHandlerFocused) {
  auto& other = AddLoaded<FlatCalculator>("other", {}, {Twips(600), Twips(1500)});
  Calculator().CalcUp += [&] { Hosted(other).SetFocus(); };
  Open();
  Driver().Key(kKeyEscape);
  EXPECT_EQ(Windows().GetFocus(), Calculator().ActiveEdit().hWnd());
}

TEST_F(FlatCalculatorTest, AFormThatAHandlerOfCalcUpOpensKeepsTheFocus) {
  const auto second = Form::Create(Tracer(), {.name = "second"});
  Calculator().CalcUp += [&] { second->Show(); };
  Open();
  Driver().Key(kKeyEscape);
  EXPECT_EQ(Windows().GetActiveWindow(), second->hWnd());
  second->Close();
}

TEST_F(FlatCalculatorTest, AnErrorOfAHandlerOfCalcUpLeavesTheKeypadClosed) {
  Calculator().SetText("123");
  Calculator().CalcUp += [] { throw Error(kOverflow); };
  Driver().Click(Strip());
  Calculator().SetSelStart(0);
  Driver().MovePointer({5, 5});
  EXPECT_EQ(ErrorOf([this] { Driver().Key(kKeyEscape); }), kOverflow);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Calculator().SelStart(), 3);
  EXPECT_EQ(StripPixel(), Concrete(Calculator().DropDownBackColor()));
  Watched();
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatCalculatorTest, AHandlerOfChangeMayRemoveTheControlInTheMidstOfAKey) {
  Open();
  Calculator().Change += [this] { TheForm().Remove("edt"); };
  Driver().Click(OnKey("7"));
  Driver().Advance(300);
  EXPECT_FALSE(TheForm().Find("edt"));
}

}  // namespace
}  // namespace levelwidgets::testing
