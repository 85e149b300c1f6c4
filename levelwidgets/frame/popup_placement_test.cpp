#include <levelwidgets/frame/popup_placement.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include <levelwidgets/testing/rounds.h>

namespace levelwidgets {
namespace {

constexpr PixelTwips kSquare{15, 15};
constexpr TwipSize kScreen{Twips(1024 * 15), Twips(768 * 15)};
constexpr PixelRect kArea{0, 0, 1024, 768};
constexpr TwipSize kList{Twips(2880), Twips(1560)};    // 192 by 104 pixels
constexpr TwipSize kKeypad{Twips(1815), Twips(2295)};  // 121 by 153

TwipPoint Pixels(int x, int y) { return {Twips(x * 15), Twips(y * 15)}; }

// --- Lists -------------------------------------------------------------------------------------------

TEST(PlaceDropDown, OpensBelowTheControlAtItsLeftEdge) {
  EXPECT_EQ(PlaceDropDown({100, 200, 180, 221}, kList, kScreen, kSquare), Pixels(100, 221));
}

TEST(PlaceDropDown, OpensAboveWhereItWouldRunOffTheBottom) {
  EXPECT_EQ(PlaceDropDown({100, 643, 180, 664}, kList, kScreen, kSquare), Pixels(100, 664));
  EXPECT_EQ(PlaceDropDown({100, 644, 180, 665}, kList, kScreen, kSquare), Pixels(100, 540));
}

TEST(PlaceDropDown, MayBeginAboveTheScreen) {
  EXPECT_EQ(PlaceDropDown({100, 50, 180, 700}, kList, kScreen, kSquare), Pixels(100, -54));
}

TEST(PlaceDropDown, EndsWhereAWiderControlEnds) {
  EXPECT_EQ(PlaceDropDown({100, 200, 292, 221}, kList, kScreen, kSquare), Pixels(100, 221));  // as wide
  EXPECT_EQ(PlaceDropDown({100, 200, 293, 221}, kList, kScreen, kSquare), Pixels(101, 221));
  EXPECT_EQ(PlaceDropDown({800, 200, 1024, 221}, kList, kScreen, kSquare), Pixels(832, 221));
  EXPECT_EQ(PlaceDropDown({800, 200, 1025, 221}, kList, kScreen, kSquare), Pixels(832, 221));
  EXPECT_EQ(PlaceDropDown({-500, 200, -250, 221}, kList, kScreen, kSquare), Pixels(-442, 221));
}

TEST(PlaceDropDown, StaysOnTheScreenBelowANarrowControl) {
  EXPECT_EQ(PlaceDropDown({-1, 200, 60, 221}, kList, kScreen, kSquare), Pixels(0, 221));
  EXPECT_EQ(PlaceDropDown({832, 200, 900, 221}, kList, kScreen, kSquare), Pixels(832, 221));
  EXPECT_EQ(PlaceDropDown({833, 200, 900, 221}, kList, kScreen, kSquare), Pixels(832, 221));
}

TEST(PlaceDropDown, TestsAgainstTheBottomByTheHorizontalSizeOfAPixel) {
  const PixelTwips oblong{15, 20};  // 104 pixels by the one, 78 by the other
  const TwipSize screen{Twips(1024 * 15), Twips(768 * 20)};
  EXPECT_EQ(PlaceDropDown({100, 643, 180, 664}, kList, screen, oblong).y, Twips(664 * 20));
  EXPECT_EQ(PlaceDropDown({100, 644, 180, 665}, kList, screen, oblong).y, Twips((644 - 78) * 20));
}

// --- Panels ------------------------------------------------------------------------------------------

TEST(PlacePanel, OpensBelowAtTheLeftEdgeAndAboveAtTheRightEdge) {
  EXPECT_EQ(PlacePanel({100, 200, 180, 221}, kKeypad, kArea, kSquare), Pixels(100, 221));
  EXPECT_EQ(PlacePanel({300, 594, 380, 615}, kKeypad, kArea, kSquare), Pixels(300, 615));
  EXPECT_EQ(PlacePanel({300, 595, 380, 616}, kKeypad, kArea, kSquare), Pixels(259, 442));
}

TEST(PlacePanel, IsMovedBackFromTheRightEdgeOfTheScreen) {
  EXPECT_EQ(PlacePanel({902, 200, 980, 221}, kKeypad, kArea, kSquare), Pixels(902, 221));
  EXPECT_EQ(PlacePanel({903, 200, 980, 221}, kKeypad, kArea, kSquare),
            Pixels(903, 221));  // it ends at the edge
  EXPECT_EQ(PlacePanel({904, 200, 980, 221}, kKeypad, kArea, kSquare), Pixels(903, 221));
  EXPECT_EQ(PlacePanel({980, 700, 1024, 721}, kKeypad, kArea, kSquare), Pixels(903, 547));
  EXPECT_EQ(PlacePanel({980, 700, 1060, 721}, kKeypad, kArea, kSquare), Pixels(903, 547));
}

TEST(PlacePanel, NeverBeginsToTheLeftOfTheScreen) {
  EXPECT_EQ(PlacePanel({-30, 200, 50, 221}, kKeypad, kArea, kSquare), Pixels(0, 221));
  EXPECT_EQ(PlacePanel({-30, 700, 50, 721}, kKeypad, kArea, kSquare), Pixels(0, 547));
}

TEST(PlacePanel, GoesByTheAreaThatItIsGiven) {
  const PixelRect right_monitor{1024, 0, 2304, 1024};
  EXPECT_EQ(PlacePanel({1000, 200, 1100, 221}, kKeypad, right_monitor, kSquare), Pixels(1024, 221));
  EXPECT_EQ(PlacePanel({2250, 200, 2300, 221}, kKeypad, right_monitor, kSquare), Pixels(2183, 221));
  EXPECT_EQ(PlacePanel({1500, 800, 1600, 821}, kKeypad, right_monitor, kSquare), Pixels(1500, 821));
  EXPECT_EQ(PlacePanel({1500, 1000, 1600, 1021}, kKeypad, right_monitor, kSquare), Pixels(1479, 847));
  const PixelRect left_monitor{-1280, -200, 0, 824};
  EXPECT_EQ(PlacePanel({-1300, 200, -1200, 221}, kKeypad, left_monitor, kSquare), Pixels(-1280, 221));
  EXPECT_EQ(PlacePanel({-60, 200, 10, 221}, kKeypad, left_monitor, kSquare), Pixels(-121, 221));
  EXPECT_EQ(PlacePanel({-1300, 800, -1200, 821}, kKeypad, left_monitor, kSquare), Pixels(-1280, 647));
}

// --- The rules written down once more ------------------------------------------------------------------
// In whole numbers, step by step.

struct Situation {
  int left, top, right, bottom;  // owner, pixels
  int width, height;             // panel, twips
  int screen_width, screen_height;
  int area_left, area_top;  // of the panel's monitor, pixels; the owner of a panel is as far from them
  int tx, ty;
};

// Both are whole already; truncated.
int Div(int a, int b) { return a / b; }

std::pair<int, int> ListByTheRules(const Situation& s) {
  int top = s.bottom * s.ty;
  if (s.bottom + Div(s.height, s.tx) > Div(s.screen_height, s.ty)) top = (s.top - Div(s.height, s.ty)) * s.ty;
  int left = 0;
  if (s.right - s.left > Div(s.width, s.tx)) {
    left = s.right * s.tx - s.width;
    if (s.right > Div(s.screen_width, s.tx)) left = s.screen_width - s.width;
  } else {
    if (s.left >= 0) left = s.left * s.tx;
    if (left + s.width > s.screen_width) left = s.screen_width - s.width;
  }
  return {left, top};
}

std::pair<int, int> PanelByTheRules(const Situation& s) {
  const int height = Div(s.height, s.ty);
  const int first = s.area_left * s.tx;
  const int end = first + s.screen_width;
  const int owner_left = s.area_left + s.left;
  const int owner_right = s.area_left + s.right;
  if (s.bottom + height > Div(s.screen_height, s.ty)) {
    int left = owner_right * s.tx - s.width;
    if (owner_right * s.tx > end) left = end - s.width;
    if (left < first) left = first;
    return {left, (s.area_top + s.top - height) * s.ty};
  }
  int left = owner_left < s.area_left ? first : owner_left * s.tx;
  if (left + s.width >= end) left = end - s.width;
  return {left, (s.area_top + s.bottom) * s.ty};
}

class Situations {
 public:
  Situation Next() {
    static constexpr int kTwips[] = {15, 12, 10, 9, 8, 7, 20};
    Situation s{};
    s.tx = kTwips[Below(7)];
    s.ty = Below(3) == 0 ? kTwips[Below(7)] : s.tx;
    const int columns = 320 + Below(2000);
    const int rows = 240 + Below(1400);
    s.screen_width = columns * s.tx;
    s.screen_height = rows * s.ty;
    s.left = Below(columns + 600) - 300;
    s.top = Below(rows + 400) - 200;
    s.right = s.left + Below(500);
    s.bottom = s.top + Below(60);
    s.width = Below(6000);
    s.height = Below(6000);
    s.area_left = Below(3) == 0 ? 0 : Below(5000) - 2500;
    s.area_top = Below(3) == 0 ? 0 : Below(3000) - 1500;
    return s;
  }

 private:
  int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
  std::mt19937 random_{20240531};
};

TEST(Placement, IsThatOfTheRulesForFiveMillionOwnersPanelsAndScreens) {
  Situations situations;
  for (int i = 0; i < testing::Rounds(5'000'000); ++i) {
    const Situation s = situations.Next();
    const PixelRect owner{s.left, s.top, s.right, s.bottom};
    const TwipSize panel{Twips(s.width), Twips(s.height)};
    const TwipSize screen{Twips(s.screen_width), Twips(s.screen_height)};
    const PixelTwips twips{static_cast<float>(s.tx), static_cast<float>(s.ty)};
    const auto [list_left, list_top] = ListByTheRules(s);
    const TwipPoint list = PlaceDropDown(owner, panel, screen, twips);
    const auto [panel_left, panel_top] = PanelByTheRules(s);
    const PixelRect area =
        PixelRect{0, 0, s.screen_width / s.tx, s.screen_height / s.ty}.Offset(s.area_left, s.area_top);
    const TwipPoint keypad = PlacePanel(owner.Offset(s.area_left, s.area_top), panel, area, twips);
    ASSERT_TRUE(list == (TwipPoint{Twips(list_left), Twips(list_top)}) &&
                keypad == (TwipPoint{Twips(panel_left), Twips(panel_top)}))
        << "owner " << s.left << ", " << s.top << ", " << s.right << ", " << s.bottom << "; panel " << s.width
        << " by " << s.height << "; screen " << s.screen_width << " by " << s.screen_height << "; area from "
        << s.area_left << ", " << s.area_top << "; twips " << s.tx << " by " << s.ty;
  }
}

}  // namespace
}  // namespace levelwidgets
