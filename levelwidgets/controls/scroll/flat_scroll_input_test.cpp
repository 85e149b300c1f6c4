// FlatScroll: pressing, repeating, dragging and hovering.
#include <levelwidgets/controls/scroll/flat_scroll.h>
#include <levelwidgets/testing/pointer_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FlatScrollInputTest : public PointerTest<FlatScroll> {
 protected:
  FlatScroll& Bar() { return Subject(); }
  void PressAt(int y) {
    MoveTo(8, y);
    TakeJournal();
    Driver().Press(kLeftButton);
  }
  // Waits for the bar to have another value; bounded.
  bool ComesTo(std::int32_t value) {
    for (int i = 0; i < 100 && Bar().Value() != value; ++i) Driver().Advance(10);
    return Bar().Value() == value;
  }
  // The bar has the value also after a time. On Windows a busy machine may let more than that time pass, of
  // which nothing can be said.
  void ExpectStill(std::int32_t value, std::uint32_t ms) {
    constexpr std::uint64_t kLateness = 30;
    ClockApi& clock = Driver().GetPlatform().Clock();
    const std::uint64_t before = clock.GetTickCount();
    Driver().Advance(ms);
    if (clock.GetTickCount() - before > ms + kLateness) return;
    EXPECT_EQ(Bar().Value(), value);
  }

  std::size_t timers_when_idle_ = 0;

 private:
  // 17 by 200 pixels; buttons to 13 and from 187; Value 50 puts the thumb at 1403 to 1596 twips.
  FlatScroll& Make() override {
    auto& bar = AddNew<FlatScroll>("scr", {Twips(600), Twips(300)}, {Twips(255), Twips(3000)});
    bar.SetValue(50);
    Driver().Settle();
    timers_when_idle_ = Driver().LiveTimers();
    Watch(bar);
    return bar;
  }
};

// --- Press -------------------------------------------------------------------------------------------

TEST_F(FlatScrollInputTest, TheFirstButtonStepsBackThenRaisesMouseDown) {
  PressAt(5);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "paint", "PropertyChanged(Value)", "Change()",
                                         "MouseDown(1, 0, 120, 75)"));
  EXPECT_EQ(Bar().Value(), 49);
  Driver().Release(kLeftButton);
}

TEST_F(FlatScrollInputTest, TheSecondButtonStepsForward) {
  PressAt(195);
  EXPECT_EQ(Bar().Value(), 51);
  Driver().Release(kLeftButton);
}

TEST_F(FlatScrollInputTest, APressOnTheTrackPages) {
  PressAt(50);
  EXPECT_THAT(TakeJournal(),
              ElementsAre("paint", "PropertyChanged(Value)", "Change()", "MouseDown(1, 0, 120, 750)"));
  EXPECT_EQ(Bar().Value(), 47);
  Driver().Release(kLeftButton);
  PressAt(150);
  EXPECT_EQ(Bar().Value(), 50);
  Driver().Release(kLeftButton);
}

TEST_F(FlatScrollInputTest, StepsStopAtTheEndsAndStillRaiseChange) {
  Bar().SetValue(0);
  PressAt(5);
  EXPECT_EQ(Bar().Value(), 0);
  const Journal journal = TakeJournal();
  EXPECT_EQ(std::ranges::count(journal, "Change()"), 1);
  Driver().Release(kLeftButton);
}

TEST_F(FlatScrollInputTest, PressingTheThumbCapturesAndRaisesNothing) {
  Bar();
  MoveTo(8, 100);
  TakeJournal();
  Bar().OnMouseDown({kLeftButton, 0, {Twips(120), Twips(1500)}});
  EXPECT_THAT(TakeJournal(), ElementsAre("capture"));
  EXPECT_TRUE(HoldsCapture());
  EXPECT_EQ(Bar().Value(), 50);
}

TEST_F(FlatScrollInputTest, APressDoesNotSetACaptureThatTheBarHas) {
  Bar();
  MoveTo(8, 100);
  Windows().SetCapture(Bar().hWnd());
  TakeJournal();
  Bar().OnMouseDown({kLeftButton, 0, {Twips(120), Twips(1500)}});
  EXPECT_THAT(TakeJournal(), IsEmpty());
}

TEST_F(FlatScrollInputTest, OtherMouseButtonsOnlyRaiseTheirEvents) {
  Bar().OnMouseDown({kRightButton, 0, {Twips(120), Twips(75)}});
  Bar().OnMouseDown({3, 0, {Twips(120), Twips(75)}});
  EXPECT_THAT(TakeJournal(), ElementsAre("MouseDown(2, 0, 120, 75)", "MouseDown(3, 0, 120, 75)"));
  EXPECT_EQ(Bar().Value(), 50);
}

TEST_F(FlatScrollInputTest, AStepThatLeavesTheRangeRaisesInvalidValue) {
  Bar().SetSmallChange(-200);
  EXPECT_THROW(Bar().OnMouseDown({kLeftButton, 0, {Twips(120), Twips(75)}}), Error);
  EXPECT_EQ(Bar().Value(), 50);
}

TEST_F(FlatScrollInputTest, ADoubleClickIsOneStep) {
  Bar();
  MoveTo(8, 5);
  TakeJournal();
  Driver().DoubleClick(ScreenPoint(Bar(), PixelPoint{8, 5}));
  Journal events;
  for (const std::string& entry : TakeJournal()) {
    if (entry.find('(') != std::string::npos) events.push_back(entry);
  }
  EXPECT_THAT(events,
              ElementsAre("PropertyChanged(Value)", "Change()", "MouseDown(1, 0, 120, 75)",
                          "MouseUp(1, 0, 120, 75)", "Click()", "DblClick()", "MouseUp(1, 0, 120, 75)"));
  EXPECT_EQ(Bar().Value(), 49);
}

TEST_F(FlatScrollInputTest, AListenerThatHasSeenTheReleaseLeavesNothingRepeating) {
  FlatScroll& bar = Bar();
  bool released = false;
  bar.Change += [&] {
    if (!std::exchange(released, true)) bar.OnMouseUp({kLeftButton, 0, {Twips(120), Twips(75)}});
  };
  PressAt(5);
  EXPECT_EQ(bar.Value(), 49);
  Driver().Advance(600);
  EXPECT_EQ(bar.Value(), 49);
  EXPECT_EQ(Driver().LiveTimers(), timers_when_idle_);
  Driver().Release(kLeftButton);
}

// --- Repeat ------------------------------------------------------------------------------------------

TEST_F(FlatScrollInputTest, AHeldButtonRepeatsAfter250ThenEvery100Milliseconds) {
  PressAt(5);
  EXPECT_EQ(Bar().Value(), 49);
  ExpectStill(49, 200);
  EXPECT_TRUE(ComesTo(48));
  ExpectStill(48, 60);
  EXPECT_TRUE(ComesTo(47));
  Driver().Release(kLeftButton);
  Driver().Advance(400);
  EXPECT_EQ(Bar().Value(), 47);
}

TEST_F(FlatScrollInputTest, PagingBackStopsWhenTheThumbHasPassedThePointer) {
  PressAt(90);  // 1350 twips; three pages of 3 bring the thumb's start below it
  Driver().Advance(1500);
  EXPECT_EQ(Bar().Value(), 47);  // at 1331
  EXPECT_LT(200 + (3000 - 400 - 193) * 0.47, 1350);
  Driver().Release(kLeftButton);
}

TEST_F(FlatScrollInputTest, PagingForwardGoesOnUntilTheThumbsStartPassesThePointer) {
  PressAt(112);  // 1680 twips
  Driver().Advance(1500);
  // The first start beyond 1680 is that of 62: 200 + 24.07 * 62 = 1692.
  EXPECT_EQ(Bar().Value(), 62);
  Driver().Release(kLeftButton);
}

TEST_F(FlatScrollInputTest, OverTheSecondButtonSteppingNeverStops) {
  Bar().SetValue(98);
  PressAt(195);
  Driver().Advance(1000);
  EXPECT_EQ(Bar().Value(), 100);
  TakeJournal();
  Driver().Advance(250);
  const Journal journal = TakeJournal();
  EXPECT_GE(std::ranges::count(journal, "Change()"), 2);
  Driver().Release(kLeftButton);
}

// --- Drag --------------------------------------------------------------------------------------------

TEST_F(FlatScrollInputTest, DraggingFollowsThePointerAndRaisesChangeAtEveryStep) {
  PressAt(100);
  TakeJournal();
  MoveTo(8, 120);
  // (1800 - 200) / 2490 of 100 is 64.3.
  EXPECT_EQ(Bar().Value(), 64);
  EXPECT_THAT(TakeJournal(),
              ElementsAre("paint", "PropertyChanged(Value)", "Change()", "MouseMove(1, 0, 120, 1800)"));
  MoveTo(8, 140);
  EXPECT_EQ(Bar().Value(), 76);
  Driver().Release(kLeftButton);
}

TEST_F(FlatScrollInputTest, DraggingOutsideGoesBackToTheValueAtThePress) {
  PressAt(100);
  MoveTo(8, 120);
  MoveTo(-5, 130);
  EXPECT_EQ(Bar().Value(), 50);
  MoveTo(8, 121);
  EXPECT_EQ(Bar().Value(), 65);
  Driver().Release(kLeftButton);
}

TEST_F(FlatScrollInputTest, DraggingToTheEndsGivesMinAndMax) {
  PressAt(100);
  MoveTo(8, 198);
  EXPECT_EQ(Bar().Value(), 100);
  MoveTo(8, 2);
  EXPECT_EQ(Bar().Value(), 0);
  Driver().Release(kLeftButton);
}

TEST_F(FlatScrollInputTest, TheFirstStepOfAHorizontalDragIsMeasuredFromThePointersY) {
  auto& bar = AddNew<FlatScroll>("scrWide", {Twips(1200), Twips(300)}, {Twips(3000), Twips(255)});
  bar.SetOrientation(ksxOrientationHorizontal);
  bar.SetValue(50);
  const float thumb = 200 + (3000 - 400 - 135) * 0.5f;
  bar.OnMouseDown({kLeftButton, 0, {Twips(thumb + 10), Twips(100)}});
  // From the anchor 100 the thumb seems to have been moved far beyond the end.
  bar.OnMouseMove({kLeftButton, 0, {Twips(thumb + 11), Twips(100)}});
  EXPECT_EQ(bar.Value(), 100);
  // From the second step on the anchor is the X coordinate.
  bar.OnMouseMove({kLeftButton, 0, {Twips(thumb - 100), Twips(100)}});
  EXPECT_EQ(bar.Value(), RoundToWhole((thumb - 100 - 200) / 2490 * 100));
  bar.OnMouseUp({kLeftButton, 0, {Twips(thumb), Twips(100)}});
}

TEST_F(FlatScrollInputTest, AListenerThatHasSeenTheReleaseEndsTheDrag) {
  FlatScroll& bar = Bar();
  PressAt(100);
  bar.Change += [&] { bar.OnMouseUp({kLeftButton, 0, {Twips(120), Twips(1800)}}); };
  MoveTo(8, 120);
  EXPECT_EQ(bar.Value(), 64);
  MoveTo(8, 140);
  EXPECT_EQ(bar.Value(), 64);
  Driver().Release(kLeftButton);
}

TEST_F(FlatScrollInputTest, ADragNeedsTheLeftButtonAlone) {
  FlatScroll& bar = Bar();
  PressAt(100);
  TakeJournal();
  bar.OnMouseMove({kLeftButton | kRightButton, 0, {Twips(120), Twips(1800)}});
  EXPECT_THAT(TakeJournal(), ElementsAre("MouseMove(3, 0, 120, 1800)"));
  Driver().Release(kLeftButton);
}

TEST_F(FlatScrollInputTest, AThumbReleasedRaisesMouseUpAndClickWithoutAMouseDown) {
  PressAt(100);
  EXPECT_THAT(TakeJournal(), IsEmpty());
  Driver().Release(kLeftButton);
  EXPECT_THAT(TakeJournal(), ElementsAre("release capture", "MouseUp(1, 0, 120, 1500)", "Click()"));
}

// --- Hover and release -------------------------------------------------------------------------------

TEST_F(FlatScrollInputTest, AButtonUnderThePointerIsHighlightedAndCaptures) {
  Bar().SetButtonColorMouseOver(Color(0x000000FF));
  TakeJournal();
  MoveTo(8, 5);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "capture", "MouseMove(0, 0, 120, 75)"));
  EXPECT_EQ(PixelAt(Bar(), {2, 2}), ColorRef{0x000000FF});
  MoveTo(9, 5);
  EXPECT_THAT(TakeJournal(), ElementsAre("MouseMove(0, 0, 135, 75)"));
  MoveTo(8, 60);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "MouseMove(0, 0, 120, 900)"));
  EXPECT_EQ(PixelAt(Bar(), {2, 2}), ColorRef{0x00CEDBDE});
  MoveTo(8, 195);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "MouseMove(0, 0, 120, 2925)"));
  EXPECT_EQ(PixelAt(Bar(), {2, 188}), ColorRef{0x000000FF});
}

TEST_F(FlatScrollInputTest, LeavingRestoresRepaintsAndReleasesTheCapture) {
  MoveTo(8, 5);
  TakeJournal();
  MoveTo(8, -3);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "release capture", "MouseMove(0, 0, 120, -45)"));
  EXPECT_FALSE(HoldsCapture());
}

TEST_F(FlatScrollInputTest, TheCaptureLastsOverTheTrackUntilThePointerLeaves) {
  MoveTo(8, 5);
  MoveTo(8, 60);
  EXPECT_TRUE(HoldsCapture());
  MoveTo(30, 60);
  EXPECT_FALSE(HoldsCapture());
}

TEST_F(FlatScrollInputTest, ThePointerOverTheTrackAloneCapturesNothing) {
  Bar();
  MoveTo(8, 60);
  EXPECT_THAT(TakeJournal(), ElementsAre("MouseMove(0, 0, 120, 900)"));
}

TEST_F(FlatScrollInputTest, APressOnABarOfNoSizeCountsAsOneOnItsSecondButton) {
  auto& bar = AddNew<FlatScroll>("scrNone", {Twips(1200), Twips(300)}, {Twips(0), Twips(0)});
  bar.OnMouseDown({kLeftButton, 0, {}});
  EXPECT_EQ(bar.Value(), 2);
  bar.OnMouseMove({kLeftButton, 0, {}});
  bar.OnMouseUp({kLeftButton, 0, {}});
  EXPECT_EQ(bar.Value(), 2);
}

TEST_F(FlatScrollInputTest, APushedButtonKeepsItsColourAfterTheReleaseUntilThePointerMoves) {
  Bar().SetButtonColorPushed(Color(0x00FF0000));
  PressAt(5);
  EXPECT_EQ(PixelAt(Bar(), {2, 2}), ColorRef{0x00FF0000});
  TakeJournal();
  Driver().Release(kLeftButton);
  EXPECT_THAT(TakeJournal(), ElementsAre("release capture", "MouseUp(1, 0, 120, 75)", "Click()"));
  EXPECT_EQ(PixelAt(Bar(), {2, 2}), ColorRef{0x00FF0000});
  MoveTo(9, 5);
  EXPECT_EQ(PixelAt(Bar(), {2, 2}), ColorRef{0x00DEE7EF});
}

TEST_F(FlatScrollInputTest, TheReleaseOfAnyMouseButtonEndsTheActionUnderWay) {
  PressAt(5);
  Bar().OnMouseUp({kRightButton, 0, {Twips(120), Twips(75)}});
  const std::int32_t value = Bar().Value();
  Driver().Advance(500);
  EXPECT_EQ(Bar().Value(), value);
  Driver().Release(kLeftButton);
}

TEST_F(FlatScrollInputTest, KeysArePassedOnAndMoveNothing) {
  Hosted(Bar()).SetFocus();
  Driver().Settle();
  TakeJournal();
  Driver().Key(kKeyDown);
  EXPECT_THAT(TakeJournal(), ElementsAre("KeyDown(40, 0)", "KeyUp(40, 0)"));
  EXPECT_EQ(Bar().Value(), 50);
}

// --- Listeners that destroy the sender ---------------------------------------------------------------

class FlatScrollDestroyTest : public FlatScrollInputTest,
                              public ::testing::WithParamInterface<const char*> {};

TEST_P(FlatScrollDestroyTest, AListenerMayRemoveTheBar) {
  auto& bar = AddNew<FlatScroll>("scrDoomed", {Twips(1200), Twips(300)}, {Twips(255), Twips(3000)});
  const WindowHandle window = bar.hWnd();
  SubscribeByName(bar, GetParam(), [&](RaisedEvent&) { TheForm().Remove("scrDoomed"); });
  Hosted(bar).SetFocus();
  Driver().Settle();
  const PixelPoint arrow = ScreenPoint(bar, PixelPoint{8, 5});
  Driver().DoubleClick(arrow);
  if (Windows().IsWindow(window)) Driver().Key('A');
  EXPECT_FALSE(Windows().IsWindow(window));
}

INSTANTIATE_TEST_SUITE_P(Events, FlatScrollDestroyTest,
                         ::testing::Values("Change", "Click", "DblClick", "KeyDown", "KeyPress", "KeyUp",
                                           "MouseDown", "MouseMove", "MouseUp"),
                         [](const auto& event) { return event.param; });

TEST_F(FlatScrollInputTest, AListenerOfARepeatedChangeMayRemoveTheBar) {
  auto& bar = AddNew<FlatScroll>("scrDoomed", {Twips(1200), Twips(300)}, {Twips(255), Twips(3000)});
  bar.SetValue(50);
  const WindowHandle window = bar.hWnd();
  Driver().MovePointer(ScreenPoint(bar, PixelPoint{8, 5}));
  Driver().Press(kLeftButton);
  bar.Change += [&] { TheForm().Remove("scrDoomed"); };
  Driver().Advance(600);
  EXPECT_FALSE(Windows().IsWindow(window));
  Driver().Release(kLeftButton);
}

}  // namespace
}  // namespace levelwidgets::testing
