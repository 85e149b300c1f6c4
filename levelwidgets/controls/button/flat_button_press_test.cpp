// FlatButton: presses that end elsewhere, and what disabling it ends.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/testing/pointer_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr Color kNormal{0x00CDD9DD};
constexpr Color kMouseOver{0x00D9E5E9};
constexpr Color kPushed{0x00112233};

class FlatButtonPressTest : public PointerTest<FlatButton> {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    one_ = &Subject();
    other_ = &AddNew<FlatButton>("cmdOther", {Twips(2400), Twips(600)});
    one_->SetBackColorPushed(kPushed);
    one_->Click += [this] { clicked_.emplace_back("one"); };
    other_->Click += [this] { clicked_.emplace_back("other"); };
    Driver().Settle();
  }
  void PressOn(const FlatButton& button) { PointerTest::PressOn(button, 10, 10); }
  // Far enough that the button gives up the capture: its first move outside only highlights.
  void LeaveWithTheButtonDown(const FlatButton& button) {
    MoveTo(button, 10, -20);
    MoveTo(button, 10, -21);
  }
  Journal Clicked() { return std::exchange(clicked_, {}); }

  FlatButton* one_ = nullptr;
  FlatButton* other_ = nullptr;

 private:
  FlatButton& Make() override { return AddNew<FlatButton>("cmdOne"); }

  Journal clicked_;
};

TEST_F(FlatButtonPressTest, APressThatIsDraggedAwayDoesNotMakeTheNextReleaseAClick) {
  PressOn(*one_);
  LeaveWithTheButtonDown(*one_);
  Driver().Release(kLeftButton);
  Driver().Advance(1000);
  PressOn(*other_);
  LeaveWithTheButtonDown(*other_);
  MoveTo(*one_, 12, 12);
  Driver().Release(kLeftButton);
  EXPECT_THAT(Clicked(), IsEmpty());
}

TEST_F(FlatButtonPressTest, APressThatIsDraggedOverAnotherButtonClicksNeither) {
  PressOn(*one_);
  LeaveWithTheButtonDown(*one_);
  MoveTo(*other_, 10, 10);
  Driver().Release(kLeftButton);
  EXPECT_THAT(Clicked(), IsEmpty());
}

TEST_F(FlatButtonPressTest, AReleaseWhoseMoveBackFollowsTheLossOfTheCaptureIsNoClick) {
  PressOn(*one_);
  LeaveWithTheButtonDown(*one_);
  MoveTo(*one_, 12, 12);
  Driver().Release(kLeftButton);
  EXPECT_THAT(Clicked(), IsEmpty());
}

TEST_F(FlatButtonPressTest, APressThatGoesOutByOneMoveAndComesBackIsAClick) {
  PressOn(*one_);
  MoveTo(*one_, 10, -5);
  MoveTo(*one_, 10, 12);
  Driver().Release(kLeftButton);
  EXPECT_THAT(Clicked(), ElementsAre("one"));
}

TEST_F(FlatButtonPressTest, APressAfterOneThatWasDraggedAwayIsAClick) {
  PressOn(*one_);
  LeaveWithTheButtonDown(*one_);
  Driver().Release(kLeftButton);
  Driver().Advance(1000);
  PressOn(*one_);
  Driver().Release(kLeftButton);
  EXPECT_THAT(Clicked(), ElementsAre("one"));
}

TEST_F(FlatButtonPressTest, AReleaseAfterAnotherWindowTookTheCaptureIsNoClick) {
  PressOn(*one_);
  Windows().SetCapture(other_->hWnd());
  Windows().SetCapture(one_->hWnd());
  Driver().Release(kLeftButton);
  EXPECT_THAT(Clicked(), IsEmpty());
}

TEST_F(FlatButtonPressTest, ARightPressWhileTheLeftButtonIsDownLeavesTheClick) {
  PressOn(*one_);
  Driver().Press(kRightButton);
  Driver().Release(kRightButton);
  Driver().Release(kLeftButton);
  EXPECT_THAT(Clicked(), ElementsAre("one"));
}

TEST_F(FlatButtonPressTest, APointOnTheLeftOrTopEdgeIsInside) {
  MoveTo(*one_, 10, 10);
  MoveTo(*one_, 0, 0);
  EXPECT_EQ(one_->BackColor(), kMouseOver);
  EXPECT_EQ(Windows().GetCapture(), one_->hWnd());
}

// --- Access keys ---------------------------------------------------------------------------------------

TEST_F(FlatButtonPressTest, AnAccessKeyRaisesClickAndLeavesColourAndCaptureOfTheHover) {
  MoveTo(*one_, 10, 10);
  Watch(*one_);
  one_->OnAccessKeyPress('x');
  EXPECT_THAT(TakeJournal(), ElementsAre("Click()"));
  EXPECT_EQ(one_->BackColor(), kMouseOver);
  EXPECT_EQ(Windows().GetCapture(), one_->hWnd());
}

// --- Disabling -----------------------------------------------------------------------------------------

TEST_F(FlatButtonPressTest, AButtonDisabledUnderThePointerShowsAndSavesItsNormalColourAndReleasesTheCapture) {
  MoveTo(*one_, 10, 10);
  ASSERT_EQ(one_->BackColor(), kMouseOver);
  Watch(*one_);
  one_->SetEnabled(false);
  EXPECT_THAT(TakeJournal(), ElementsAre("release capture", "paint", "PropertyChanged(Enabled)"));
  EXPECT_EQ(one_->BackColor(), kNormal);
  EXPECT_EQ(PixelAt(*one_, {2, 2}), ColorRef{kNormal.bits()});
  EXPECT_FALSE(Windows().GetCapture());
  EXPECT_FALSE(Hosted(*one_).Properties().Find("BackColor"));
}

TEST_F(FlatButtonPressTest, AButtonDisabledByItsOwnListenersShowsItsNormalColour) {
  for (const char* cause : {"MouseDown", "MouseMove", "MouseUp", "Click"}) {
    MoveTo(*one_, 10, -30);
    MoveTo(*one_, 10, -31);
    one_->SetEnabled(true);
    bool armed = true;
    SubscribeByName(*one_, cause, [&](RaisedEvent&) {
      if (std::exchange(armed, false)) one_->SetEnabled(false);
    });
    Driver().Advance(1000);
    PressOn(*one_);
    Driver().Release(kLeftButton);
    EXPECT_FALSE(armed) << cause;
    EXPECT_EQ(one_->BackColor(), kNormal) << cause;
    EXPECT_NE(Windows().GetCapture(), one_->hWnd()) << cause;
    armed = false;
  }
}

TEST_F(FlatButtonPressTest, DisablingAButtonLeavesTheCaptureOfAnotherControl) {
  MoveTo(*other_, 10, 10);
  ASSERT_EQ(Windows().GetCapture(), other_->hWnd());
  one_->SetEnabled(false);
  EXPECT_EQ(Windows().GetCapture(), other_->hWnd());
}

TEST_F(FlatButtonPressTest, EnablingAButtonThatIsEnabledKeepsTheMouseOverColour) {
  MoveTo(*one_, 10, 10);
  one_->SetEnabled(true);
  EXPECT_EQ(one_->BackColor(), kMouseOver);
  EXPECT_EQ(Windows().GetCapture(), one_->hWnd());
}

TEST_F(FlatButtonPressTest, AButtonEnabledAgainHighlightsAtTheNextMove) {
  MoveTo(*one_, 10, 10);
  one_->SetEnabled(false);
  one_->SetEnabled(true);
  EXPECT_EQ(one_->BackColor(), kNormal);
  MoveTo(*one_, 11, 10);
  EXPECT_EQ(one_->BackColor(), kMouseOver);
}

}  // namespace
}  // namespace levelwidgets::testing
