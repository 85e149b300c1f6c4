// FlatButton: the pointer, the keyboard and the focus.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/testing/pointer_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr Color kNormal{0x00CDD9DD};
constexpr Color kMouseOver{0x00D9E5E9};
constexpr Color kPushed{0x00112233};

class FlatButtonInputTest : public PointerTest<FlatButton> {
 protected:
  FlatButton& Button() { return Subject(); }

 private:
  FlatButton& Make() override {
    AddNew<FlatButton>("cmdFirst", {Twips(0), Twips(3000)});
    auto& button = AddNew<FlatButton>("cmdSave");
    button.SetBackColorPushed(kPushed);
    TheForm().Find("cmdFirst")->SetFocus();
    Driver().Settle();
    Watch(button);
    return button;
  }
};

// --- Hover -------------------------------------------------------------------------------------------

TEST_F(FlatButtonInputTest, TheFirstMoveOverAButtonHighlightsRepaintsCapturesThenRaisesMouseMove) {
  MoveTo(10, 10);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "capture", "MouseMove(0, 0, 150, 150)"));
  EXPECT_EQ(Button().BackColor(), kMouseOver);
  EXPECT_EQ(PixelAt(Button(), {2, 2}), ColorRef{kMouseOver.bits()});
  EXPECT_TRUE(HoldsCapture());
}

TEST_F(FlatButtonInputTest, AFurtherMoveInsideAButtonOnlyRaisesMouseMove) {
  MoveTo(10, 10);
  TakeJournal();
  MoveTo(11, 10);
  EXPECT_THAT(TakeJournal(), ElementsAre("MouseMove(0, 0, 165, 150)"));
  EXPECT_EQ(Button().BackColor(), kMouseOver);
}

TEST_F(FlatButtonInputTest, AMoveOutOfAButtonRestoresReleasesTheCaptureRepaintsThenRaisesMouseMove) {
  MoveTo(10, 10);
  TakeJournal();
  MoveTo(10, -1);
  EXPECT_THAT(TakeJournal(), ElementsAre("release capture", "paint", "MouseMove(0, 0, 150, -15)"));
  EXPECT_EQ(Button().BackColor(), kNormal);
  EXPECT_FALSE(HoldsCapture());
}

TEST_F(FlatButtonInputTest, APointOnTheRightOrBottomEdgeIsInside) {
  MoveTo(10, 10);
  MoveTo(80, 10);  // X = ScaleWidth
  EXPECT_EQ(Button().BackColor(), kMouseOver);
  MoveTo(10, 25);  // Y = ScaleHeight
  EXPECT_EQ(Button().BackColor(), kMouseOver);
  EXPECT_TRUE(HoldsCapture());
}

TEST_F(FlatButtonInputTest, OneTwipBeyondTheRightEdgeIsOutside) {
  FlatButton& button = Button();
  MoveTo(10, 10);
  button.OnMouseMove({0, 0, {button.GetSurface().ScaleWidth(), Twips(0)}});
  EXPECT_EQ(button.BackColor(), kMouseOver);
  EXPECT_TRUE(HoldsCapture());
  button.OnMouseMove({0, 0, {button.GetSurface().ScaleWidth() + Twips(1), Twips(0)}});
  EXPECT_EQ(button.BackColor(), kNormal);
  EXPECT_FALSE(HoldsCapture());
}

struct Edge {
  const char* name;
  PixelPoint outside;
};
class FlatButtonEdgeTest : public FlatButtonInputTest, public ::testing::WithParamInterface<Edge> {};

TEST_P(FlatButtonEdgeTest, LeavingRestoresTheNormalColour) {
  MoveTo(40, 12);
  MoveTo(GetParam().outside.x, GetParam().outside.y);
  EXPECT_EQ(Button().BackColor(), kNormal);
  EXPECT_FALSE(HoldsCapture());
}

INSTANTIATE_TEST_SUITE_P(Sides, FlatButtonEdgeTest,
                         ::testing::Values(Edge{"left", {-1, 12}}, Edge{"top", {40, -1}},
                                           Edge{"right", {81, 12}}, Edge{"bottom", {40, 26}}),
                         [](const auto& edge) { return edge.param.name; });

TEST_F(FlatButtonInputTest, AMouseOverColourEqualToTheNormalOneMakesEveryMoveOneOverAHighlightedButton) {
  FlatButton& button = Button();
  button.SetBackColorMouseOver(kNormal);
  TakeJournal();
  MoveTo(10, 10);
  EXPECT_THAT(TakeJournal(), ElementsAre("MouseMove(0, 0, 150, 150)"));
  EXPECT_FALSE(HoldsCapture());
}

TEST_F(FlatButtonInputTest, BackColorSetWhileHoveringShowsAtOnceAndHoveringGoesOn) {
  FlatButton& button = Button();
  MoveTo(10, 10);
  button.SetBackColor(Color(0x00004000));
  EXPECT_EQ(PixelAt(button, {2, 2}), ColorRef{0x00004000});
  MoveTo(11, 10);  // looks normal, so it highlights again
  EXPECT_EQ(button.BackColor(), kMouseOver);
  MoveTo(-1, 10);
  EXPECT_EQ(button.BackColor(), Color(0x00004000));
}

TEST_F(FlatButtonInputTest, MovingFromOneButtonToAnotherRestoresTheFirst) {
  FlatButton& button = Button();
  auto& other = AddNew<FlatButton>("cmdOther", {Twips(1800), Twips(600)});
  MoveTo(10, 10);
  // The first move beyond the edge still belongs to the capturing button.
  Driver().MovePointer(ScreenPoint(other, PixelPoint{10, 10}));
  EXPECT_EQ(button.BackColor(), kNormal);
  EXPECT_EQ(other.BackColor(), kNormal);
  Driver().MovePointer(ScreenPoint(other, PixelPoint{11, 10}));
  EXPECT_EQ(other.BackColor(), kMouseOver);
}

// --- Press and release -------------------------------------------------------------------------------

TEST_F(FlatButtonInputTest, ALeftPressPushesTheButtonRepaintsThenRaisesMouseDown) {
  MoveTo(10, 10);
  TakeJournal();
  Driver().Press(kLeftButton);
  // The second repaint is the focus arriving.
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "MouseDown(1, 0, 150, 150)", "paint"));
  EXPECT_EQ(Button().BackColor(), kPushed);
  EXPECT_EQ(PixelAt(Button(), {2, 2}), ColorRef{kPushed.bits()});
}

TEST_F(FlatButtonInputTest, ALeftPressShowsTheFocusFrameBeforeTheFocusArrives) {
  FlatButton& button = Button();
  const Journal calls = DrawingCallsOf(button, [&] {
    button.OnMouseDown({kLeftButton, 0, {Twips(150), Twips(150)}});
  });
  EXPECT_EQ(calls.at(2), "DrawFocusRect 4 4 76 21");
  EXPECT_NE(Windows().GetFocus(), button.hWnd());
}

TEST_F(FlatButtonInputTest, OtherMouseButtonsOnlyRaiseTheirEvents) {
  FlatButton& button = Button();
  for (const std::int16_t pressed : {kRightButton, kMiddleButton, std::int16_t{3}, std::int16_t{5}}) {
    button.OnMouseDown({pressed, 0, {Twips(150), Twips(150)}});
    EXPECT_EQ(button.BackColor(), kNormal) << pressed;
  }
  EXPECT_THAT(TakeJournal(), ElementsAre("MouseDown(2, 0, 150, 150)", "MouseDown(4, 0, 150, 150)",
                                         "MouseDown(3, 0, 150, 150)", "MouseDown(5, 0, 150, 150)"));
}

TEST_F(FlatButtonInputTest, APushedButtonReturnsToTheMouseOverColourAtTheFirstMove) {
  MoveTo(10, 10);
  Driver().Press(kLeftButton);
  TakeJournal();
  MoveTo(11, 10);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "capture", "MouseMove(1, 0, 165, 150)"));
  EXPECT_EQ(Button().BackColor(), kMouseOver);
}

TEST_F(FlatButtonInputTest, APushedButtonMovedOutsideTurnsToTheMouseOverColourToo) {
  MoveTo(10, 10);
  Driver().Press(kLeftButton);
  MoveTo(10, -5);
  EXPECT_EQ(Button().BackColor(), kMouseOver);
}

TEST_F(FlatButtonInputTest, AClickIsReleaseThenClickThenNormalColours) {
  MoveTo(10, 10);
  Driver().Press(kLeftButton);
  TakeJournal();
  Driver().Release(kLeftButton);
  EXPECT_THAT(TakeJournal(),
              ElementsAre("paint", "capture", "MouseUp(1, 0, 150, 150)", "paint", "capture", "Click()"));
  EXPECT_EQ(Button().BackColor(), kNormal);
  EXPECT_TRUE(HoldsCapture());
}

TEST_F(FlatButtonInputTest, AfterAClickTheNextMoveHighlightsAgain) {
  Driver().Click(ScreenPoint(Button(), PixelPoint{10, 10}));
  EXPECT_EQ(Button().BackColor(), kNormal);
  MoveTo(11, 10);
  EXPECT_EQ(Button().BackColor(), kMouseOver);
}

TEST_F(FlatButtonInputTest, AReleaseOutsideDoesNotClickAndKeepsTheMouseOverColourUntilTheNextMove) {
  MoveTo(10, 10);
  Driver().Press(kLeftButton);
  MoveTo(10, -5);
  TakeJournal();
  Driver().Release(kLeftButton);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "capture", "MouseUp(1, 0, 150, -75)"));
  EXPECT_EQ(Button().BackColor(), kMouseOver);
  EXPECT_TRUE(HoldsCapture());
  MoveTo(10, -6);
  EXPECT_EQ(Button().BackColor(), kNormal);
  EXPECT_FALSE(HoldsCapture());
}

TEST_F(FlatButtonInputTest, AnyButtonsReleaseHighlightsAndCaptures) {
  MoveTo(10, 10);
  Driver().Press(kRightButton);
  TakeJournal();
  Driver().Release(kRightButton);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "capture", "MouseUp(2, 0, 150, 150)"));
  EXPECT_EQ(Button().BackColor(), kMouseOver);
}

TEST_F(FlatButtonInputTest, AClickThatFindsTheNormalColoursOnlyRaisesClick) {
  FlatButton& button = Button();
  button.OnClick();
  EXPECT_THAT(TakeJournal(), ElementsAre("Click()"));
}

TEST_F(FlatButtonInputTest, AClickRestoresAForeColourThatDiffersOnTheSurface) {
  FlatButton& button = Button();
  button.GetSurface().SetForeColor(Color(0x00123456));
  button.OnClick();
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "capture", "Click()"));
  EXPECT_EQ(button.ForeColor(), Color(0x80000012));
}

TEST_F(FlatButtonInputTest, ADoubleClickRaisesOneClickAndTwoMouseUps) {
  MoveTo(10, 10);
  TakeJournal();
  Driver().DoubleClick(ScreenPoint(Button(), PixelPoint{10, 10}));
  Journal events;
  for (const std::string& entry : TakeJournal()) {
    if (entry.find('(') != std::string::npos) events.push_back(entry);
  }
  EXPECT_THAT(events, ElementsAre("MouseDown(1, 0, 150, 150)", "MouseUp(1, 0, 150, 150)", "Click()",
                                  "MouseUp(1, 0, 150, 150)"));
}

TEST_F(FlatButtonInputTest, ADisabledButtonGetsNoPointerInput) {
  Button().SetEnabled(false);
  TakeJournal();
  Driver().Click(ScreenPoint(Button(), PixelPoint{10, 10}));
  EXPECT_THAT(TakeJournal(), IsEmpty());
  EXPECT_EQ(Button().BackColor(), kNormal);
}

TEST_F(FlatButtonInputTest, InDesignModeThereIsNoFeedbackAndNoEvent) {
  FormOptions design;
  design.design = true;
  MakeForm(design);
  auto& button = AddNew<FlatButton>("cmdDesigned");
  Watch(button);
  Driver().Click(ScreenPoint(button, PixelPoint{10, 10}));
  Driver().Key('A');
  EXPECT_THAT(TakeJournal(), IsEmpty());
  EXPECT_EQ(button.BackColor(), kNormal);
  EXPECT_FALSE(Windows().GetCapture());
}

// --- Keyboard and focus ------------------------------------------------------------------------------

TEST_F(FlatButtonInputTest, TheButtonRepaintsWhenItGetsAndLosesTheFocus) {
  FlatButton& button = Button();
  Hosted(button).SetFocus();
  Driver().Settle();
  EXPECT_THAT(TakeJournal(), ElementsAre("paint"));
  EXPECT_EQ(Windows().GetFocus(), button.hWnd());
  TheForm().Find("cmdFirst")->SetFocus();
  Driver().Settle();
  EXPECT_THAT(TakeJournal(), ElementsAre("paint"));
}

TEST_F(FlatButtonInputTest, KeysArePassedOnInOrder) {
  Hosted(Button()).SetFocus();
  Driver().Settle();
  TakeJournal();
  Driver().Key('A', kShiftMask);
  EXPECT_THAT(TakeJournal(), ElementsAre("KeyDown(65, 1)", "KeyPress(65)", "KeyUp(65, 1)"));
}

TEST_F(FlatButtonInputTest, SpaceAndEnterOnlyRaiseTheKeyEvents) {
  Hosted(Button()).SetFocus();
  Driver().Settle();
  TakeJournal();
  Driver().Key(kKeySpace);
  EXPECT_THAT(TakeJournal(), ElementsAre("KeyDown(32, 0)", "KeyPress(32)", "KeyUp(32, 0)"));
  Driver().Key(kKeyEnter);
  EXPECT_THAT(TakeJournal(), ElementsAre("KeyDown(13, 0)", "KeyPress(13)", "KeyUp(13, 0)"));
}

TEST_F(FlatButtonInputTest, KeyPressHandsItsCharacterByReference) {
  FlatButton& button = Button();
  button.KeyPress += [](std::int16_t& key_ascii) { key_ascii = 'b'; };
  std::int16_t key_ascii = 'a';
  button.OnKeyPress(key_ascii);
  EXPECT_EQ(key_ascii, 'b');
}

TEST_F(FlatButtonInputTest, AnyAccessKeyPressRaisesExactlyOneClickAndChangesNoColour) {
  FlatButton& button = Button();
  for (const std::int16_t key : {std::int16_t{'s'}, kKeyEnter, kKeyEscape}) {
    button.OnAccessKeyPress(key);
    EXPECT_THAT(TakeJournal(), ElementsAre("Click()")) << key;
  }
  EXPECT_EQ(button.BackColor(), kNormal);
}

// --- Listeners that destroy the sender ---------------------------------------------------------------

class FlatButtonDestroyTest : public FlatButtonInputTest,
                              public ::testing::WithParamInterface<const char*> {};

TEST_P(FlatButtonDestroyTest, AListenerMayRemoveTheButton) {
  auto& button = AddNew<FlatButton>("cmdDoomed", {Twips(600), Twips(1200)});
  button.SetCaption("&Doomed");
  const WindowHandle window = button.hWnd();
  bool raised = false;
  SubscribeByName(button, GetParam(), [&](RaisedEvent&) {
    raised = true;
    TheForm().Remove("cmdDoomed");
  });
  Hosted(button).SetFocus();
  Driver().Settle();
  Driver().Click(ScreenPoint(button, PixelPoint{10, 10}));
  if (Windows().IsWindow(window)) Driver().Key('A');
  EXPECT_TRUE(raised);
  EXPECT_FALSE(Windows().IsWindow(window));
  EXPECT_FALSE(TheForm().Find("cmdDoomed"));
}

INSTANTIATE_TEST_SUITE_P(Events, FlatButtonDestroyTest,
                         ::testing::Values("Click", "KeyDown", "KeyPress", "KeyUp", "MouseDown", "MouseMove",
                                           "MouseUp"),
                         [](const auto& event) { return event.param; });

TEST_F(FlatButtonInputTest, AListenerOfPropertyChangedMayRemoveTheButton) {
  auto& button = AddNew<FlatButton>("cmdDoomed");
  const auto keep = button.shared_from_this();  // as a call by name holds one
  TheForm().PropertyChanged.Add([&](std::string_view, std::string_view) { TheForm().Remove("cmdDoomed"); });
  button.SetCaption("x");
  EXPECT_FALSE(TheForm().Find("cmdDoomed"));
}

TEST_F(FlatButtonInputTest, AnExceptionFromAListenerPassesThroughAndLeavesTheButtonWorking) {
  FlatButton& button = Button();
  bool failing = true;
  button.Click += [&failing] {
    if (failing) throw std::runtime_error("listener");
  };
  EXPECT_THROW(Driver().Click(ScreenPoint(button, PixelPoint{10, 10})), std::runtime_error);
  EXPECT_EQ(button.BackColor(), kNormal);
  failing = false;
  TakeJournal();
  MoveTo(11, 10);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "capture", "MouseMove(0, 0, 165, 150)"));
}

}  // namespace
}  // namespace levelwidgets::testing
