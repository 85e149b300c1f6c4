// FlatButton: pointers that jump from one button to the next, as those of touch screens and remote desktops
// do.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/platform/hand.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;

constexpr Color kNormal{0x00CDD9DD};
constexpr Color kMouseOver{0x00D9E5E9};

class FlatButtonJumpTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    for (const auto& [name, left] : {std::pair{"cmdOne", 600}, {"cmdTwo", 2400}, {"cmdBeside", 3600}}) {
      FlatButton& button = AddNew<FlatButton>(name, {Twips(left), Twips(600)});
      button.Click += [this, name = name] { clicked_.emplace_back(name); };
      buttons_.push_back(&button);
    }
    Driver().Settle();
  }
  void JumpTo(const FlatButton& button, int x = 10, int y = 10) {
    MoveByHand(Driver(), Windows(), ScreenPoint(button, PixelPoint{x, y}));
  }
  void Click() {
    Driver().Press(kLeftButton);
    Driver().Release(kLeftButton);
  }
  Journal Clicked() { return std::exchange(clicked_, {}); }
  static Color ColorOf(const FlatButton& button) { return button.GetSurface().BackColor(); }

  std::vector<FlatButton*> buttons_;

 private:
  Journal clicked_;
};

TEST_F(FlatButtonJumpTest, AClickOnOneButtonAfterAnotherClicksEach) {
  for (int round = 0; round < 3; ++round) {
    JumpTo(*buttons_[0]);
    Click();
    JumpTo(*buttons_[1]);
    Click();
    EXPECT_THAT(Clicked(), ElementsAre("cmdOne", "cmdTwo")) << round;
  }
}

// The pixels right of a button count as its own.
TEST_F(FlatButtonJumpTest, AClickOnTheFirstPixelBesideAButtonIsTheNeighboursOwn) {
  const int end = buttons_[1]->GetSurface().ClientPixels().right;
  ASSERT_EQ(ScreenPoint(*buttons_[1], PixelPoint{end, 0}), ScreenPoint(*buttons_[2], PixelPoint{0, 0}))
      << "two buttons that touch";
  JumpTo(*buttons_[1]);
  Click();
  JumpTo(*buttons_[2], 0, 10);
  Click();
  EXPECT_THAT(Clicked(), ElementsAre("cmdTwo", "cmdBeside"));
}

TEST_F(FlatButtonJumpTest, ThePointerIsSeenToBeOverTheButtonThatItHasJumpedTo) {
  JumpTo(*buttons_[0]);
  EXPECT_EQ(ColorOf(*buttons_[0]), kMouseOver);
  JumpTo(*buttons_[1]);
  EXPECT_EQ(ColorOf(*buttons_[0]), kNormal);
  EXPECT_EQ(ColorOf(*buttons_[1]), kMouseOver);
  Click();
  JumpTo(*buttons_[0]);
  EXPECT_EQ(ColorOf(*buttons_[1]), kNormal) << "after a click, too";
  EXPECT_EQ(ColorOf(*buttons_[0]), kMouseOver);
}

TEST_F(FlatButtonJumpTest, APointerThatStaysInsideMovesOnce) {
  JumpTo(*buttons_[0]);
  int moves = 0;
  buttons_[0]->MouseMove += [&](std::int16_t, std::int16_t, Twips, Twips) { ++moves; };
  JumpTo(*buttons_[0], 20, 12);
  EXPECT_EQ(moves, 1);
}

TEST_F(FlatButtonJumpTest, ADragOutOfAButtonMovesOnce) {
  JumpTo(*buttons_[0]);
  Driver().Press(kLeftButton);
  int moves = 0;
  buttons_[0]->MouseMove += [&](std::int16_t, std::int16_t, Twips, Twips) { ++moves; };
  JumpTo(*buttons_[1]);
  EXPECT_EQ(moves, 1);
  Driver().Release(kLeftButton);
}

}  // namespace
}  // namespace levelwidgets::testing
