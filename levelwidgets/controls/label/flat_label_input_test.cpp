// FlatLabel: the pointer, the polling timer, the keyboard and the focus.
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/testing/pointer_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr Color kNormalBack{0x00CEDBDE};
constexpr Color kNormalFore{0x80000012};
constexpr Color kOverBack{0x00EFF7F7};
constexpr Color kOverFore{0x00112244};
constexpr Color kPushedBack{0x00BDCBCE};
constexpr Color kPushedFore{0x00551122};
constexpr std::uint32_t kTick = 100;

class FlatLabelInputTest : public PointerTest<FlatLabel> {
 protected:
  FlatLabel& Label() { return Subject(); }
  void ExpectColors(Color back, Color fore) {
    EXPECT_EQ(Label().BackColor(), back);
    EXPECT_EQ(Label().ForeColor(), fore);
  }
  bool Underlined() { return Label().GetFont()->Underline(); }

 private:
  FlatLabel& Make() override {
    PropertyBag saved;
    saved.WriteProperty("ForeColorMouseOver", kOverFore, Variant());
    saved.WriteProperty("ForeColorPushed", kPushedFore, Variant());
    saved.WriteProperty("Caption", "Help", Variant());
    auto& label = AddLoaded<FlatLabel>("lblHelp", saved);
    AddNew<FlatLabel>("lblOther", {Twips(0), Twips(3000)});
    TheForm().Find("lblOther")->SetFocus();
    Driver().Settle();
    Watch(label);
    return label;
  }
};

// --- Hover -------------------------------------------------------------------------------------------

TEST_F(FlatLabelInputTest, TheFirstMoveOverALabelUnderlinesHighlightsStartsPollingThenRaisesMouseMove) {
  Label();
  const std::size_t timers = Driver().LiveTimers();
  MoveTo(10, 10);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "MouseMove(0, 0, 150, 150)"));
  ExpectColors(kOverBack, kOverFore);
  EXPECT_TRUE(Underlined());
  EXPECT_EQ(Driver().LiveTimers(), timers + 1);
  EXPECT_FALSE(Windows().GetCapture());
}

TEST_F(FlatLabelInputTest, AFurtherMoveOverALabelOnlyRaisesMouseMove) {
  MoveTo(10, 10);
  TakeJournal();
  MoveTo(11, 10);
  EXPECT_THAT(TakeJournal(), ElementsAre("MouseMove(0, 0, 165, 150)"));
}

TEST_F(FlatLabelInputTest, ATickWithThePointerInsideDoesNothing) {
  MoveTo(10, 10);
  TakeJournal();
  Driver().Advance(3 * kTick);
  EXPECT_THAT(TakeJournal(), IsEmpty());
  ExpectColors(kOverBack, kOverFore);
}

TEST_F(FlatLabelInputTest, ATickThatFindsThePointerOutsideRestoresAndStops) {
  Label();
  const std::size_t timers = Driver().LiveTimers();
  MoveTo(10, 10);
  MoveTo(-20, 10);
  TakeJournal();
  ExpectColors(kOverBack, kOverFore);  // nothing has notified the label yet
  Driver().Advance(2 * kTick);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint"));
  ExpectColors(kNormalBack, kNormalFore);
  EXPECT_FALSE(Underlined());
  EXPECT_EQ(Driver().LiveTimers(), timers);
}

struct RestingPlace {
  const char* name;
  PixelPoint at;
  bool inside;
};
class FlatLabelPollingTest : public FlatLabelInputTest, public ::testing::WithParamInterface<RestingPlace> {};

TEST_P(FlatLabelPollingTest, TheEdgesCountAsInside) {
  MoveTo(10, 10);
  MoveTo(GetParam().at.x, GetParam().at.y);
  Driver().Advance(2 * kTick);
  EXPECT_EQ(Label().BackColor(), GetParam().inside ? kOverBack : kNormalBack);
}

// 1200 by 375 twips are 80 by 25 pixels.
INSTANTIATE_TEST_SUITE_P(
    Places, FlatLabelPollingTest,
    ::testing::Values(RestingPlace{"right_edge", {80, 10}, true}, RestingPlace{"bottom_edge", {10, 25}, true},
                      RestingPlace{"corner", {80, 25}, true}, RestingPlace{"origin", {0, 0}, true},
                      RestingPlace{"right_of_it", {81, 10}, false}, RestingPlace{"below_it", {10, 26}, false},
                      RestingPlace{"left_of_it", {-1, 10}, false}, RestingPlace{"above_it", {10, -1}, false}),
    [](const auto& place) { return place.param.name; });

TEST_F(FlatLabelInputTest, MouseOverColoursEqualToTheNormalOnesStartNoTimer) {
  FlatLabel& label = Label();
  label.SetBackColorMouseOver(kNormalBack);
  label.SetForeColorMouseOver(kNormalFore);
  TakeJournal();
  const std::size_t timers = Driver().LiveTimers();
  MoveTo(10, 10);
  EXPECT_THAT(TakeJournal(), ElementsAre("MouseMove(0, 0, 150, 150)"));
  EXPECT_EQ(Driver().LiveTimers(), timers);
}

TEST_F(FlatLabelInputTest, OneDifferingColourIsEnoughToHighlight) {
  FlatLabel& label = Label();
  label.SetBackColorMouseOver(kNormalBack);
  TakeJournal();
  MoveTo(10, 10);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "MouseMove(0, 0, 150, 150)"));
  ExpectColors(kNormalBack, kOverFore);
}

TEST_F(FlatLabelInputTest, WithoutMouseUnderlineHoveringNeverUnderlines) {
  Label().SetMouseUnderline(false);
  MoveTo(10, 10);
  EXPECT_FALSE(Underlined());
}

TEST_F(FlatLabelInputTest, AFontThatWasUnderlinedBeforeHoveringStaysUnderlined) {
  Label().SetFont(MakeFont({.underline = true}));
  MoveTo(10, 10);
  EXPECT_TRUE(Underlined());
  Driver().Press(kLeftButton);
  Driver().Release(kLeftButton);
  EXPECT_TRUE(Underlined());
  MoveTo(-20, 10);
  Driver().Advance(2 * kTick);
  EXPECT_TRUE(Underlined());
}

TEST_F(FlatLabelInputTest, HoveringOverALabelUnderlinesNoOtherLabel) {
  Label();
  MoveTo(10, 10);
  EXPECT_TRUE(Underlined());
  const auto* other = dynamic_cast<FlatLabel*>(TheForm().Find("lblOther")->GetControl().get());
  EXPECT_FALSE(other->GetFont()->Underline());
}

TEST_F(FlatLabelInputTest, LeavingForAnotherLabelRestoresEachByItsOwnTimer) {
  Label();
  auto* other = dynamic_cast<FlatLabel*>(TheForm().Find("lblOther")->GetControl().get());
  MoveTo(10, 10);
  Driver().MovePointer(ScreenPoint(*other, PixelPoint{10, 10}));
  EXPECT_EQ(Label().BackColor(), kOverBack);
  Driver().Advance(2 * kTick);
  ExpectColors(kNormalBack, kNormalFore);
  EXPECT_EQ(other->ForeColor(), other->ForeColorMouseOver());
}

// --- Press and release -------------------------------------------------------------------------------

TEST_F(FlatLabelInputTest, ALeftPressShowsThePushedColoursThenRaisesMouseDown) {
  MoveTo(10, 10);
  TakeJournal();
  Driver().Press(kLeftButton);
  // The second repaint is the focus arriving.
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "MouseDown(1, 0, 150, 150)", "paint"));
  ExpectColors(kPushedBack, kPushedFore);
}

TEST_F(FlatLabelInputTest, OtherMouseButtonsOnlyRaiseTheirEvents) {
  FlatLabel& label = Label();
  for (const std::int16_t pressed : {kRightButton, kMiddleButton, std::int16_t{3}}) {
    label.OnMouseDown({pressed, 0, {Twips(150), Twips(150)}});
  }
  EXPECT_THAT(TakeJournal(), ElementsAre("MouseDown(2, 0, 150, 150)", "MouseDown(4, 0, 150, 150)",
                                         "MouseDown(3, 0, 150, 150)"));
  ExpectColors(kNormalBack, kNormalFore);
}

TEST_F(FlatLabelInputTest, AReleaseInsideShowsTheMouseOverColoursWithoutTheUnderlineThenClicks) {
  MoveTo(10, 10);
  Driver().Press(kLeftButton);
  TakeJournal();
  EXPECT_TRUE(Underlined());
  Driver().Release(kLeftButton);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "MouseUp(1, 0, 150, 150)", "Click()"));
  ExpectColors(kOverBack, kOverFore);
  EXPECT_FALSE(Underlined());
  MoveTo(11, 10);
  EXPECT_TRUE(Underlined());
}

TEST_F(FlatLabelInputTest, AReleaseOutsideShowsTheNormalColoursAndDoesNotClick) {
  MoveTo(10, 10);
  Driver().Press(kLeftButton);
  MoveTo(10, -5);
  TakeJournal();
  Driver().Release(kLeftButton);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "MouseUp(1, 0, 150, -75)"));
  ExpectColors(kNormalBack, kNormalFore);
}

TEST_F(FlatLabelInputTest, AReleaseOnTheEdgeIsInside) {
  FlatLabel& label = Label();
  label.OnMouseUp({kLeftButton, 0, {label.GetSurface().ScaleWidth(), label.GetSurface().ScaleHeight()}});
  ExpectColors(kOverBack, kOverFore);
  label.OnMouseUp({kLeftButton, 0, {label.GetSurface().ScaleWidth() + Twips(1), Twips(0)}});
  ExpectColors(kNormalBack, kNormalFore);
}

TEST_F(FlatLabelInputTest, AnyButtonsReleaseHighlights) {
  MoveTo(10, 10);
  Driver().Press(kRightButton);
  TakeJournal();
  Driver().Release(kRightButton);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "MouseUp(2, 0, 150, 150)"));
  EXPECT_FALSE(Underlined());
}

TEST_F(FlatLabelInputTest, ADoubleClickIsAClickThenADoubleClick) {
  MoveTo(10, 10);
  TakeJournal();
  Driver().DoubleClick(ScreenPoint(Label(), PixelPoint{10, 10}));
  Journal events;
  for (const std::string& entry : TakeJournal()) {
    if (entry.find('(') != std::string::npos) events.push_back(entry);
  }
  EXPECT_THAT(events, ElementsAre("MouseDown(1, 0, 150, 150)", "MouseUp(1, 0, 150, 150)", "Click()",
                                  "DblClick()", "MouseUp(1, 0, 150, 150)"));
}

TEST_F(FlatLabelInputTest, ADisabledLabelGetsNoPointerInput) {
  Label().SetEnabled(false);
  TakeJournal();
  Driver().Click(ScreenPoint(Label(), PixelPoint{10, 10}));
  EXPECT_THAT(TakeJournal(), IsEmpty());
}

// --- Keyboard and focus ------------------------------------------------------------------------------

TEST_F(FlatLabelInputTest, TheLabelRepaintsWhenItGetsAndLosesTheFocus) {
  Hosted(Label()).SetFocus();
  Driver().Settle();
  EXPECT_THAT(TakeJournal(), ElementsAre("paint"));
  TheForm().Find("lblOther")->SetFocus();
  Driver().Settle();
  EXPECT_THAT(TakeJournal(), ElementsAre("paint"));
}

TEST_F(FlatLabelInputTest, KeysArePassedOnInOrder) {
  Hosted(Label()).SetFocus();
  Driver().Settle();
  TakeJournal();
  Driver().Key('B');
  EXPECT_THAT(TakeJournal(), ElementsAre("KeyDown(66, 0)", "KeyPress(98)", "KeyUp(66, 0)"));
}

TEST_F(FlatLabelInputTest, AnAccessKeyRaisesOneClick) {
  Label().OnAccessKeyPress('h');
  EXPECT_THAT(TakeJournal(), ElementsAre("Click()"));
}

// --- Listeners that destroy the sender ---------------------------------------------------------------

class FlatLabelDestroyTest : public FlatLabelInputTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(FlatLabelDestroyTest, AListenerMayRemoveTheLabel) {
  auto& label = AddNew<FlatLabel>("lblDoomed", {Twips(600), Twips(1200)});
  const WindowHandle window = label.hWnd();
  bool raised = false;
  SubscribeByName(label, GetParam(), [&](RaisedEvent&) {
    raised = true;
    TheForm().Remove("lblDoomed");
  });
  Hosted(label).SetFocus();
  Driver().Settle();
  Driver().DoubleClick(ScreenPoint(label, PixelPoint{10, 10}));
  if (Windows().IsWindow(window)) Driver().Key('A');
  EXPECT_TRUE(raised);
  EXPECT_FALSE(Windows().IsWindow(window));
}

INSTANTIATE_TEST_SUITE_P(Events, FlatLabelDestroyTest,
                         ::testing::Values("Click", "DblClick", "KeyDown", "KeyPress", "KeyUp", "MouseDown",
                                           "MouseMove", "MouseUp"),
                         [](const auto& event) { return event.param; });

TEST_F(FlatLabelInputTest, RemovingALabelUnderThePointerStopsItsTimer) {
  Label();
  const std::size_t timers = Driver().LiveTimers();
  auto& label = AddNew<FlatLabel>("lblDoomed", {Twips(600), Twips(1200)});
  Driver().MovePointer(ScreenPoint(label, PixelPoint{10, 10}));
  EXPECT_EQ(Driver().LiveTimers(), timers + 1);
  TheForm().Remove("lblDoomed");
  EXPECT_EQ(Driver().LiveTimers(), timers);
}

}  // namespace
}  // namespace levelwidgets::testing
