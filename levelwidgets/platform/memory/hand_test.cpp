// Pointers that jump out of windows which have them captured.
#include <levelwidgets/platform/hand.h>

#include <levelwidgets/platform/memory/desktop_fixture.h>

namespace levelwidgets::memory {
namespace {

using ::testing::ElementsAre;

class HandTest : public DesktopTest {
 protected:
  HandTest() { desktop.MovePointer({150, 120}); }

  void MoveTo(PixelPoint screen) { MoveByHand(desktop, windows, screen); }

  WindowHandle form = MakeTop("form", {0, 0, 1024, 768});
  WindowHandle child = MakeChild("child", form, {100, 100, 200, 150});
};

TEST_F(HandTest, WithoutACaptureThePointerMovesOnce) {
  Begin();
  MoveTo({300, 300});
  EXPECT_THAT(Take(), ElementsAre("form MouseMove 0 300,300"));
}

TEST_F(HandTest, OutOfAWindowThatCapturesItThePointerGoesOnePixelFartherAndBack) {
  windows.SetCapture(child);
  Begin();
  MoveTo({300, 50});
  EXPECT_THAT(Take(), ElementsAre("child MouseMove 0 200,-50", "child MouseMove 0 201,-51",
                                  "child MouseMove 0 200,-50"));
  MoveTo({50, 300});
  EXPECT_THAT(Take(), ElementsAre("child MouseMove 0 -50,200", "child MouseMove 0 -51,201",
                                  "child MouseMove 0 -50,200"));
}

TEST_F(HandTest, InsideTheWindowThatCapturesItThePointerMovesOnce) {
  windows.SetCapture(child);
  Begin();
  MoveTo({160, 130});
  EXPECT_THAT(Take(), ElementsAre("child MouseMove 0 60,30"));
}

TEST_F(HandTest, WithAButtonDownThePointerMovesOnce) {
  for (const int button : {1, 2, 4}) {
    desktop.MovePointer({150, 120});
    desktop.Press(button);
    ASSERT_EQ(windows.GetCapture(), child);
    Begin();
    MoveTo({300, 50});
    EXPECT_EQ(Take().size(), 1u) << button;
    desktop.Release(button);
  }
}

TEST_F(HandTest, BeyondACornerOfTheScreenItComesBackFromInside) {
  windows.SetCapture(child);
  Begin();
  MoveTo({2000, 2000});
  EXPECT_THAT(Take(), ElementsAre("child MouseMove 0 923,667", "child MouseMove 0 922,666",
                                  "child MouseMove 0 923,667"));
}

TEST_F(HandTest, InACornerOfTheScreenItComesBackFromTheOtherSide) {
  windows.SetCapture(child);
  Begin();
  MoveTo({0, 0});
  EXPECT_THAT(Take(), ElementsAre("child MouseMove 0 -100,-100", "child MouseMove 0 -99,-99",
                                  "child MouseMove 0 -100,-100"));
}

}  // namespace
}  // namespace levelwidgets::memory
