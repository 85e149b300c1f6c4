// FlatScroll: what a held button repeats, when, and what ends it.
#include <levelwidgets/controls/scroll/flat_scroll.h>
#include <levelwidgets/testing/pointer_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FlatScrollRepeatTest : public PointerTest<FlatScroll> {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    bar_ = &Subject();
    idle_timers_ = Driver().LiveTimers();
    bar_->Change += [this] { ++changes_; };
  }
  void TearDown() override {
    Driver().Release(kLeftButton);
    DesktopTest::TearDown();
  }
  void PressAt(int y) { PressOn(Subject(), 8, y); }
  int Changes() { return std::exchange(changes_, 0); }
  bool TimerRuns() { return Driver().LiveTimers() > idle_timers_; }

  FlatScroll* bar_ = nullptr;

 private:
  // 17 by 200 pixels; buttons to 13 and from 187; Value 50 puts the thumb at 1403 to 1596 twips.
  FlatScroll& Make() override {
    auto& bar = AddNew<FlatScroll>("scr", {Twips(600), Twips(300)}, {Twips(255), Twips(3000)});
    bar.SetValue(50);
    Driver().Settle();
    return bar;
  }

  int changes_ = 0;
  std::size_t idle_timers_ = 0;
};

// --- Times ---------------------------------------------------------------------------------------------

TEST_F(FlatScrollRepeatTest, EveryHoldRepeatsAfterExactly250ThenEvery100Milliseconds) {
  for (int hold = 0; hold < 3; ++hold) {
    bar_->SetValue(50);
    Driver().Advance(1000);
    PressAt(5);
    EXPECT_EQ(bar_->Value(), 49);
    Driver().Advance(249);
    EXPECT_EQ(bar_->Value(), 49) << hold;
    Driver().Advance(1);
    EXPECT_EQ(bar_->Value(), 48) << hold;
    for (int repeat = 1; repeat <= 3; ++repeat) {
      Driver().Advance(99);
      EXPECT_EQ(bar_->Value(), 49 - repeat) << hold;
      Driver().Advance(1);
      EXPECT_EQ(bar_->Value(), 48 - repeat) << hold;
    }
    Driver().Release(kLeftButton);
  }
}

TEST_F(FlatScrollRepeatTest, AHoldSetsATimerOf250AndAtItsTickOneOf100Milliseconds) {
  for (int hold = 0; hold < 2; ++hold) {
    Driver().Advance(1000);
    MoveTo(8, 5);
    auto calls = CallsNamed({"SetTimer"}, [&] { Driver().Press(kLeftButton); });
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].arguments, std::vector<TraceArgument>{std::int64_t{250}});
    calls = CallsNamed({"SetTimer"}, [&] { Driver().Advance(500); });
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].arguments, std::vector<TraceArgument>{std::int64_t{100}});
    Driver().Release(kLeftButton);
  }
}

// --- Where the pointer is ------------------------------------------------------------------------------

TEST_F(FlatScrollRepeatTest, SteppingForwardRestsWhileThePointerIsBeforeTheThumb) {
  PressAt(195);
  MoveTo(8, 60);
  Changes();
  Driver().Advance(600);
  EXPECT_EQ(Changes(), 0);
  EXPECT_EQ(bar_->Value(), 51);
  MoveTo(8, 195);
  Driver().Advance(300);
  EXPECT_GT(bar_->Value(), 51);
}

TEST_F(FlatScrollRepeatTest, SteppingBackGoesOnWhereverThePointerIs) {
  PressAt(5);
  MoveTo(8, 150);
  Driver().Advance(600);
  EXPECT_LT(bar_->Value(), 48);
}

TEST_F(FlatScrollRepeatTest, PagingBackRestsWhileThePointerIsBehindTheThumbsStart) {
  PressAt(50);
  MoveTo(8, 150);
  Changes();
  Driver().Advance(600);
  EXPECT_EQ(Changes(), 0);
  MoveTo(8, 30);
  Driver().Advance(300);
  EXPECT_GT(Changes(), 0);
}

TEST_F(FlatScrollRepeatTest, AHorizontalBarGoesByTheXOfThePointer) {
  auto& wide = AddNew<FlatScroll>("scrWide", {Twips(1200), Twips(300)}, {Twips(3000), Twips(255)});
  wide.SetOrientation(ksxOrientationHorizontal);
  wide.SetValue(50);
  Driver().Settle();
  // Behind the thumb: paging forward goes on until the thumb's start has passed 1800 twips.
  Driver().MovePointer(ScreenPoint(wide, PixelPoint{120, 8}));
  Driver().Press(kLeftButton);
  Driver().Advance(2000);
  EXPECT_EQ(wide.Value(), 65);  // 200 + 24.65 * 65 = 1802
}

TEST_F(FlatScrollRepeatTest, ThePushedSecondButtonHasItsPushedColour) {
  bar_->SetButtonColorPushed(Color(0x00FF0000));
  PressAt(195);
  EXPECT_EQ(PixelAt(*bar_, {2, 188}), ColorRef{0x00FF0000});
  EXPECT_EQ(PixelAt(*bar_, {2, 2}), ColorRef{0x00CEDBDE});
}

// --- What ends it --------------------------------------------------------------------------------------

TEST_F(FlatScrollRepeatTest, AButtonThatThePointerLeavesRepeatsUntilTheLeftButtonIsUp) {
  PressAt(5);
  MoveTo(40, 5);  // leaving gives up the capture, so the bar does not hear of the release
  const std::int32_t value = bar_->Value();
  Driver().Advance(600);
  EXPECT_LT(bar_->Value(), value) << "held still";
  Driver().Release(kLeftButton);
  Changes();
  Driver().Advance(1000);
  EXPECT_EQ(Changes(), 0);
  EXPECT_FALSE(TimerRuns());
}

TEST_F(FlatScrollRepeatTest, ABarDisabledInsideItsOwnChangeStopsWhenTheButtonIsUp) {
  bar_->Change += [this] { bar_->SetEnabled(false); };
  PressAt(5);
  Driver().Release(kLeftButton);
  Changes();
  Driver().Advance(1000);
  EXPECT_EQ(Changes(), 0);
  EXPECT_FALSE(TimerRuns());
}

TEST_F(FlatScrollRepeatTest, ABarThatWasStoppedTakesTheNextPressAsUsual) {
  PressAt(5);
  MoveTo(40, 5);
  Driver().Release(kLeftButton);
  Driver().Advance(1000);
  const std::int32_t value = bar_->Value();
  PressAt(5);
  EXPECT_EQ(bar_->Value(), value - 1);
  Driver().Advance(600);
  EXPECT_LT(bar_->Value(), value - 1);
}

TEST_F(FlatScrollRepeatTest, ATickThatFindsTheButtonUpRaisesAndRepaintsNothing) {
  Watch(*bar_);
  PressAt(5);
  MoveTo(40, 5);
  Driver().Release(kLeftButton);
  TakeJournal();
  Driver().Advance(1000);
  EXPECT_THAT(TakeJournal(), IsEmpty());
}

TEST_F(FlatScrollRepeatTest, AnotherButtonHeldDoesNotKeepItGoing) {
  PressAt(5);
  MoveTo(40, 5);
  Driver().Press(kRightButton);
  Driver().Release(kLeftButton);
  Changes();
  Driver().Advance(1000);
  EXPECT_EQ(Changes(), 0);
  Driver().Release(kRightButton);
}

TEST_F(FlatScrollRepeatTest, APressOnTheThumbStopsWhatIsRepeating) {
  PressAt(5);
  ASSERT_TRUE(TimerRuns());
  bar_->OnMouseDown({kLeftButton, 0, {Twips(120), Twips(1450)}});
  EXPECT_FALSE(TimerRuns());
}

// --- Drags and resizes that change nothing ---------------------------------------------------------------

TEST_F(FlatScrollRepeatTest, ADragToWhereTheValueIsRaisesNoChange) {
  PressAt(100);
  MoveTo(8, 120);
  EXPECT_EQ(Changes(), 1);
  MoveTo(9, 120);
  EXPECT_EQ(Changes(), 0);
}

TEST_F(FlatScrollRepeatTest, ADragThatLeavesTheBarAtOnceRaisesNoChange) {
  PressAt(100);
  MoveTo(-5, 100);
  EXPECT_EQ(Changes(), 0);
  EXPECT_EQ(bar_->Value(), 50);
}

// The anchor of a press at the upper edge is 0, and 0 is a drag.
TEST_F(FlatScrollRepeatTest, AHorizontalThumbPressedAtItsUpperEdgeIsDragged) {
  auto& wide = AddNew<FlatScroll>("scrWide", {Twips(1200), Twips(300)}, {Twips(3000), Twips(255)});
  wide.SetOrientation(ksxOrientationHorizontal);
  wide.SetValue(50);
  wide.OnMouseDown({kLeftButton, 0, {Twips(1500), Twips(0)}});
  wide.OnMouseMove({kLeftButton, 0, {Twips(1500), Twips(0)}});
  EXPECT_EQ(wide.Value(), 100) << "measured from 0, the thumb is beyond the end";
  wide.OnMouseUp({kLeftButton, 0, {Twips(1500), Twips(0)}});
}

TEST_F(FlatScrollRepeatTest, AResizeWithTheValueAboveMaxMakesItMax) {
  bar_->SetMax(0);  // not above Min, so the value stays
  EXPECT_EQ(bar_->Value(), 50);
  Watch(*bar_);
  Hosted(*bar_).Move({Twips(600), Twips(300)}, {Twips(255), Twips(2700)});
  EXPECT_EQ(bar_->Value(), 0);
  const Journal journal = TakeJournal();
  ASSERT_GE(journal.size(), 3u);
  EXPECT_THAT(Journal(journal.begin(), journal.begin() + 3),
              ElementsAre("paint", "PropertyChanged(Value)", "Change()"));
}

class FlatScrollDesignTest : public DesktopTest {};

TEST_F(FlatScrollDesignTest, ABarTakesNoInputInDesignMode) {
  FormOptions design;
  design.design = true;
  MakeForm(design);
  auto& bar = AddNew<FlatScroll>("scr", {Twips(600), Twips(300)}, {Twips(255), Twips(3000)});
  Watch(bar);
  Driver().Click(ScreenPoint(bar, PixelPoint{8, 195}));
  Driver().Key('A');
  EXPECT_THAT(TakeJournal(), IsEmpty());
  EXPECT_EQ(bar.Value(), 1);
  EXPECT_FALSE(Windows().GetCapture());
}

}  // namespace
}  // namespace levelwidgets::testing
