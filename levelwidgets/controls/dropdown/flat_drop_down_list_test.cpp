// FlatDropDown: opening, keys, pointer and closing of its list.
#include <levelwidgets/controls/dropdown/flat_drop_down_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- Opening -----------------------------------------------------------------------------------------

TEST_F(FlatDropDownTest, F4AltDownAndTheStripOpenTheList) {
  Make(3);
  Driver().Key(kKeyF4);
  EXPECT_TRUE(IsOpen());
  Driver().Key(kKeyEscape);
  EXPECT_FALSE(IsOpen());
  Driver().Key(kKeyDown, kAltMask);
  EXPECT_TRUE(IsOpen());
  Driver().Key(kKeyEscape);
  Driver().Key(kKeyDown);
  EXPECT_FALSE(IsOpen());
  Driver().Click(Strip());
  EXPECT_TRUE(IsOpen());
  Driver().Advance(kLongerThanADoubleClick);
  Driver().Click(Strip());
  EXPECT_FALSE(IsOpen());
}

// The second press of a double click is no press.
TEST_F(FlatDropDownTest, ADoubleClickOnTheStripOpensTheListAndLeavesItOpen) {
  Make(3);
  Driver().DoubleClick(Strip());
  Driver().Advance(110);
  EXPECT_TRUE(IsOpen());
}

TEST_F(FlatDropDownTest, AnEmptyListDoesNotOpen) {
  Make(0);
  Driver().Key(kKeyF4);
  Driver().Key(kKeyDown, kAltMask);
  Driver().Click(Strip());
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatDropDownTest, ThePanelIsDetachedByTheSameCallsInTheSameOrderAtEachOpening) {
  Make(3);
  for (int opening = 0; opening < 2; ++opening) {
    const auto calls = CallsNamed({"SetWindowLongA", "SetParent", "GetWindowRect"}, [&] { Open(); });
    std::vector<std::string> texts;
    for (const TracedCall& call : calls) texts.push_back(call.ToString());
    const std::string panel = std::to_string(Drop().Panel().hWnd().value);
    const std::string control = std::to_string(Drop().hWnd().value);
    ASSERT_GE(texts.size(), 4u);
    EXPECT_THAT(std::vector(texts.begin(), texts.begin() + 4),
                ElementsAre("SetWindowLongA(" + panel + ", -20, 128)", "SetParent(" + panel + ", 0)",
                            "SetWindowLongA(" + panel + ", -16, -2139095040)",
                            "GetWindowRect(" + control + ")"))
        << opening;
    Driver().Key(kKeyEscape);
  }
}

TEST_F(FlatDropDownTest, ThePanelStandsBelowTheControlWithARowForEachItemUpToEight) {
  Make(3);
  Open();
  const PixelRect control = ControlRect();
  EXPECT_EQ(PanelRect().left, control.left);
  EXPECT_EQ(PanelRect().top, control.bottom);
  EXPECT_EQ(PanelRect().width(), 2880 / 15);
  const int three = PanelRect().height();
  Driver().Key(kKeyEscape);
  for (int i = 0; i < 20; ++i) Add("more");
  Open();
  EXPECT_EQ((PanelRect().height() - 2) * 3, (three - 2) * 8);
}

TEST_F(FlatDropDownTest, ThePanelHasTheFocusAndTheControlIsNotLeft) {
  Make(3);
  int left = 0;
  Hosted(Drop()).LostFocus += [&] { ++left; };
  Open();
  EXPECT_EQ(Windows().GetFocus(), Drop().Panel().hWnd());
  Driver().Key(kKeyEscape);
  EXPECT_EQ(Windows().GetFocus(), Drop().ActiveEdit().hWnd());
  EXPECT_EQ(left, 0);
}

TEST_F(FlatDropDownTest, NothingOpensInDesignMode) {
  MakeForm({.design = true});
  Make(3);
  Driver().Click(Strip());
  Driver().Key(kKeyF4);
  EXPECT_FALSE(IsOpen());
}

// --- Keys --------------------------------------------------------------------------------------------

TEST_F(FlatDropDownTest, KeysMoveTheHighlight) {
  Make(20);
  Open();
  struct Step {
    std::int16_t key;
    std::int16_t index;
  };
  for (const Step step : {Step{kKeyDown, 1}, Step{kKeyDown, 2}, Step{kKeyUp, 1}, Step{kKeyUp, 1}, Step{kKeyPageDown, 8},
                          Step{kKeyPageDown, 15}, Step{kKeyPageDown, 20}, Step{kKeyDown, 20}, Step{kKeyPageUp, 13},
                          Step{kKeyPageUp, 6}, Step{kKeyPageUp, 1}, Step{kKeyEnd, 20}, Step{kKeyHome, 0}}) {
    Driver().Key(step.key);
    EXPECT_EQ(Drop().ListIndex(), step.index) << step.key;
  }
  EXPECT_EQ(Drop().TopIndex(), 1);
}

TEST_F(FlatDropDownTest, EnterTakesTheHighlightedItemAndEscapeNone) {
  Make(3);
  Open();
  Driver().Key(kKeyDown);
  Driver().Key(kKeyEscape);
  EXPECT_EQ(Drop().Text(), "");
  EXPECT_EQ(Drop().ListIndex(), 1);
  Open();
  Driver().Key(kKeyDown);
  EXPECT_THAT(EventsOf([&] { Driver().Key(kKeyEnter); }),
              ElementsAre("PropertyChanged(Text)", "Change()", "KeyUp(13, 0)"));
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Drop().Text(), "2");
}

TEST_F(FlatDropDownTest, EnterWithNothingHighlightedClosesTheListAndFailsInTheLookUp) {
  Make(3);
  Drop().SetText("kept");
  Open();
  Driver().Key(kKeyHome);
  try {
    Driver().Key(kKeyEnter);
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), kSubscriptOutOfRange);
  }
  Driver().Settle();
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Drop().Text(), "kept");
}

TEST_F(FlatDropDownTest, TheDefaultAndTheCancelButtonGetNoKeyOfAnOpenList) {
  Make(3);
  auto& ok = AddNew<FlatButton>("ok", {Twips(600), Twips(1500)});
  auto& cancel = AddNew<FlatButton>("cancel", {Twips(600), Twips(2100)});
  Hosted(ok).SetDefault(true);
  Hosted(cancel).SetCancel(true);
  std::vector<std::string> clicks;
  ok.Click += [&] { clicks.push_back("ok"); };
  cancel.Click += [&] { clicks.push_back("cancel"); };
  Open();
  Driver().Key(kKeyEscape);
  Open();
  Driver().Key(kKeyDown);
  Driver().Key(kKeyEnter);
  EXPECT_THAT(clicks, IsEmpty());
  Driver().Key(kKeyEnter);
  Driver().Key(kKeyEscape);
  EXPECT_THAT(clicks, ElementsAre("ok", "cancel"));
}

// --- Pointer -----------------------------------------------------------------------------------------

TEST_F(FlatDropDownTest, ThePointerHighlightsAndAPressTakesTheRow) {
  Make(20);
  Open();
  Driver().MovePointer(Row(2));
  EXPECT_EQ(Drop().ListIndex(), 3);
  EXPECT_EQ(Drop().Text(), "");
  Driver().Press(kLeftButton);
  EXPECT_EQ(Drop().Text(), "3");
  EXPECT_FALSE(IsOpen());
  Driver().Release(kLeftButton);
}

TEST_F(FlatDropDownTest, AnyButtonTakesTheRow) {
  Make(3);
  Open();
  Driver().MovePointer(Row(1));
  Driver().Press(kRightButton);
  Driver().Release(kRightButton);
  EXPECT_EQ(Drop().Text(), "2");
}

TEST_F(FlatDropDownTest, TheWheelOverAnOpenListLeavesTheHighlightAlone) {
  Make(20);
  Open();
  Drop().SetListIndex(1);
  Driver().Wheel(-1);
  EXPECT_EQ(Drop().ListIndex(), 1);
}

TEST_F(FlatDropDownTest, TheStripShowsThePointer) {
  Make(3);
  const auto fill = [&] { return PixelAt(Drop(), {ControlRect().width() - 2, 1}); };
  EXPECT_EQ(fill(), Concrete(Drop().DropDownBackColor()));
  Driver().MovePointer(Strip());
  EXPECT_EQ(fill(), Concrete(Drop().DropDownBackColorMouseOver()));
  EXPECT_EQ(Windows().GetCapture(), Drop().hWnd());
  Driver().MovePointer({ControlRect().left + 10, ControlRect().top + 5});
  EXPECT_EQ(fill(), Concrete(Drop().DropDownBackColor()));
  EXPECT_FALSE(Windows().GetCapture());
  Driver().MovePointer(Strip());
  Driver().MovePointer({ControlRect().right, ControlRect().top + 5});  // its width is outside
  EXPECT_EQ(fill(), Concrete(Drop().DropDownBackColor()));
  EXPECT_FALSE(Windows().GetCapture());
}

TEST_F(FlatDropDownTest, APressDraggedShowsThePushedColour) {
  Make(0);
  const auto fill = [&] { return PixelAt(Drop(), {ControlRect().width() - 2, 1}); };
  Driver().MovePointer(Strip());
  Driver().Press(kLeftButton);
  EXPECT_EQ(fill(), Concrete(Drop().DropDownBackColor()));
  Driver().MovePointer({Strip().x - 1, Strip().y});
  EXPECT_EQ(fill(), Concrete(Drop().DropDownBackColorPushed()));
  Driver().Release(kLeftButton);
  EXPECT_EQ(fill(), Concrete(Drop().DropDownBackColorMouseOver()));
  EXPECT_EQ(Windows().GetCapture(), Drop().hWnd());
}

TEST_F(FlatDropDownTest, AnotherButtonOnTheStripDoesNothing) {
  Make(3);
  Driver().MovePointer(Strip());
  Driver().Press(kRightButton);
  EXPECT_FALSE(IsOpen());
  Driver().Release(kRightButton);
}

// --- Closing -----------------------------------------------------------------------------------------

TEST_F(FlatDropDownTest, AnotherWindowThatBecomesActiveClosesTheListWithinATick) {
  Make(3);
  const auto second = Form::Create(Tracer(), {.name = "second"});
  second->Show();
  TheForm().Show();
  Hosted(Drop()).SetFocus();
  Open();
  second->Show();
  Driver().Advance(110);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Windows().GetActiveWindow(), second->hWnd());
  second->Close();
}

TEST_F(FlatDropDownTest, AFormThatMovesOrHidesClosesTheList) {
  Make(3);
  Open();
  TheForm().MoveTo({250, 250});
  Driver().Advance(110);
  EXPECT_FALSE(IsOpen());
  Open();
  TheForm().Hide();
  Driver().Advance(110);
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatDropDownTest, ADisabledControlHasNoOpenList) {
  Make(3);
  Open();
  Drop().SetEnabled(false);
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatDropDownTest, NothingIsLeftOfAListWhoseControlIsRemovedByItsOwnHandler) {
  Make(3);
  Open();
  Drop().Change += [this] { TheForm().Remove("cbo"); };
  Driver().Key(kKeyDown);
  Driver().Key(kKeyEnter);
  Driver().Advance(300);
  EXPECT_TRUE(TheForm().Controls().empty());
}

TEST_F(FlatDropDownTest, NothingIsLeftOfAnOpenListWhoseFormCloses) {
  Make(3);
  Open();
  TheForm().Close();
  Driver().Advance(300);
  EXPECT_TRUE(TheForm().Closed());
}

TEST_F(FlatDropDownTest, AThousandOpeningsLeaveNothingBehind) {
  Make(20);
  Open();
  Driver().Key(kKeyEscape);
  const std::size_t objects = Driver().LiveObjects();
  const std::size_t windows = Driver().LiveWindows();
  const std::size_t timers = Driver().LiveTimers();
  for (int i = 0; i < 1000; ++i) {
    Open();
    Driver().Key(kKeyEscape);
  }
  EXPECT_EQ(Driver().LiveObjects(), objects);
  EXPECT_EQ(Driver().LiveWindows(), windows);
  EXPECT_EQ(Driver().LiveTimers(), timers);
}

}  // namespace
}  // namespace levelwidgets::testing
