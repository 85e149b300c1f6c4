#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/controls/scroll/flat_scroll_layout.h>
#include <levelwidgets/frame/error.h>

namespace levelwidgets {
namespace {

constexpr bool kVertical = false;
constexpr bool kHorizontal = true;

FlatScrollLayout Bar(float length, bool horizontal, ScrollRange range = {0, 100}, float thickness = 255) {
  FlatScrollLayout layout;
  const TwipSize size =
      horizontal ? TwipSize{Twips(length), Twips(thickness)} : TwipSize{Twips(thickness), Twips(length)};
  layout.SetSurface(size, horizontal, 15, 15);
  layout.UpdateThumbLength(range);
  return layout;
}

template <typename Call>
std::int32_t NumberRaisedBy(Call call) {
  try {
    call();
  } catch (const Error& error) {
    return error.Number();
  }
  return 0;
}

struct LengthCase {
  float length;
  float button;
};
class ButtonLengthTest : public ::testing::TestWithParam<LengthCase> {};

TEST_P(ButtonLengthTest, Is200TwipsOrHalfOfABarBelow400) {
  EXPECT_EQ(Bar(GetParam().length, kVertical).ButtonLength(), Twips(GetParam().button));
  EXPECT_EQ(Bar(GetParam().length, kHorizontal).ButtonLength(), Twips(GetParam().button));
}

INSTANTIATE_TEST_SUITE_P(Lengths, ButtonLengthTest,
                         ::testing::Values(LengthCase{0, 0}, LengthCase{1, 0}, LengthCase{2.5f, 1},
                                           LengthCase{399, 199}, LengthCase{399.5f, 200},
                                           LengthCase{400, 200}, LengthCase{3000, 200}));

TEST(FlatScrollLayout, VerticalButtonsLieAtTopAndBottom) {
  const FlatScrollLayout bar = Bar(3000, kVertical);
  EXPECT_EQ(bar.FirstButton(), (PixelRect{0, 0, 17, 13}));
  EXPECT_EQ(bar.SecondButton(), (PixelRect{0, 186, 17, 200}));
}

TEST(FlatScrollLayout, HorizontalButtonsLieAtLeftAndRight) {
  const FlatScrollLayout bar = Bar(3000, kHorizontal);
  EXPECT_EQ(bar.FirstButton(), (PixelRect{0, 0, 13, 17}));
  EXPECT_EQ(bar.SecondButton(), (PixelRect{186, 0, 200, 17}));
}

TEST(FlatScrollLayout, ABarBelow600TwipsShowsNoThumb) {
  EXPECT_FALSE(Bar(599, kVertical).ShowsThumb());
  EXPECT_TRUE(Bar(600, kVertical).ShowsThumb());
}

// --- Thumb length ------------------------------------------------------------------------------------

TEST(ThumbLength, IsProportionalAndAtLeast135Twips) {
  EXPECT_EQ(Bar(1000, kVertical).ThumbLength(), Twips(135));  // 8/108 of 600 is 44
  EXPECT_EQ(Bar(3000, kVertical).ThumbLength(), Twips(193));  // 8/108 of 2600 is 192.6
  EXPECT_EQ(Bar(3000, kVertical, {1, 1}).ThumbLength(), Twips(2600));
  EXPECT_EQ(Bar(3000, kVertical, {0, 8}).ThumbLength(), Twips(1300));
}

TEST(ThumbLength, OfAHorizontalBarIsTakenFromItsHeightToo) {
  EXPECT_EQ(Bar(9000, kHorizontal, {1, 1}).ThumbLength(), Twips(135));
  // Only a bar as high as it is long gets another thumb.
  EXPECT_EQ(Bar(3000, kHorizontal, {1, 1}, 3000).ThumbLength(), Twips(2600));
}

TEST(ThumbLength, IsNeverMoreThanTheRoomBetweenTheButtons) {
  EXPECT_EQ(Bar(500, kVertical).ThumbLength(), Twips(100));
  EXPECT_EQ(Bar(400, kVertical).ThumbLength(), Twips(0));
  EXPECT_EQ(Bar(0, kVertical).ThumbLength(), Twips(0));
}

TEST(ThumbLength, OfAnInvertedRangeIsTheLeastAndOfMinusEightAllTheRoom) {
  EXPECT_EQ(Bar(3000, kVertical, {100, 0}).ThumbLength(), Twips(135));
  EXPECT_EQ(Bar(3000, kVertical, {8, 0}).ThumbLength(), Twips(2600));
}

TEST(ThumbLength, ReportsWhetherItChanged) {
  FlatScrollLayout bar = Bar(3000, kVertical);
  EXPECT_FALSE(bar.UpdateThumbLength({0, 100}));
  EXPECT_TRUE(bar.UpdateThumbLength({0, 10}));
}

TEST(ThumbLength, OfARangeBeyond32BitsRaises6) {
  FlatScrollLayout bar = Bar(3000, kVertical);
  EXPECT_EQ(NumberRaisedBy([&] { bar.UpdateThumbLength({-1, 2147483647}); }), kOverflow);
  EXPECT_EQ(NumberRaisedBy([&] { bar.UpdateThumbLength({0, 2147483640}); }), kOverflow);
  EXPECT_EQ(NumberRaisedBy([&] { bar.UpdateThumbLength({0, 2147483639}); }), 0);
  EXPECT_EQ(NumberRaisedBy([&] { bar.UpdateThumbLength({2147483647, -2147483647 - 1}); }), kOverflow);
}

// --- Thumb position ----------------------------------------------------------------------------------

TEST(ThumbPosition, IsAtTheEndsForMinAndMax) {
  const FlatScrollLayout bar = Bar(3000, kVertical);
  EXPECT_EQ(bar.PositionFor(0, {0, 100}), Twips(200));
  EXPECT_EQ(bar.PositionFor(100, {0, 100}), Twips(3000 - 200 - 193));
}

TEST(ThumbPosition, OfANewBarIsOneHundredthOfTheWayAlong) {
  EXPECT_FLOAT_EQ(Bar(3000, kVertical).PositionFor(1, {0, 100}).value, 200 + (3000 - 400 - 193) * 0.01f);
}

TEST(ThumbPosition, TakesTheValueItselfNotItsDistanceFromMin) {
  const FlatScrollLayout bar = Bar(3000, kVertical, {50, 100});
  const float track = 3000 - 400 - bar.ThumbLength().value;
  EXPECT_FLOAT_EQ(bar.PositionFor(75, {50, 100}).value, 200 + track * 1.5f);
  EXPECT_EQ(bar.PositionFor(100, {50, 100}), Twips(3000 - 200) - bar.ThumbLength());
}

TEST(ThumbPosition, OfARangeBeyond32BitsRaises6ButNotAtItsEnds) {
  const FlatScrollLayout bar = Bar(3000, kVertical);
  const ScrollRange all{-2147483647 - 1, 2147483647};
  EXPECT_EQ(NumberRaisedBy([&] { bar.PositionFor(0, all); }), kOverflow);
  EXPECT_EQ(bar.PositionFor(all.min, all), Twips(200));
}

TEST(ThumbRectangle, IsOnePixelLongerThanItsLength) {
  FlatScrollLayout bar = Bar(3000, kVertical);
  bar.SetThumbPosition(Twips(230));
  EXPECT_EQ(bar.Thumb(), (PixelRect{0, 15, 17, 15 + 12 + 1}));  // 230 \ 15, 193 \ 15
  bar = Bar(3000, kHorizontal);
  bar.SetThumbPosition(Twips(230));
  EXPECT_EQ(bar.Thumb(), (PixelRect{15, 0, 15 + 9 + 1, 17}));
}

TEST(ThumbLength, StaysUntilItIsComputedAnew) {
  FlatScrollLayout bar = Bar(3000, kVertical);
  bar.SetSurface({Twips(255), Twips(6000)}, kVertical, 15, 15);
  EXPECT_EQ(bar.ThumbLength(), Twips(193));
  EXPECT_TRUE(bar.UpdateThumbLength({0, 100}));
  EXPECT_EQ(bar.ThumbLength(), Twips(415));
}

TEST(ThumbLength, IsLimitedByTheRoomBetweenTheButtons) {
  FlatScrollLayout bar = Bar(3000, kVertical);
  bar.SetSurface({Twips(255), Twips(500)}, kVertical, 15, 15);
  EXPECT_EQ(bar.ThumbLength(), Twips(100));
  bar.SetSurface({Twips(255), Twips(399.5f)}, kVertical, 15, 15);
  EXPECT_EQ(bar.ThumbLength(), Twips(0));
  bar.SetSurface({Twips(255), Twips(3000)}, kVertical, 15, 15);
  EXPECT_EQ(bar.ThumbLength(), Twips(193));
}

TEST(ThumbLength, OfABarTurnedHorizontalIsTheLeastNoMatterWhenTheRangeWasSet) {
  FlatScrollLayout bar = Bar(255, kVertical, {0, 100}, 3000);
  EXPECT_EQ(bar.ThumbLength(), Twips(1));  // hardly any room
  bar.SetSurface({Twips(3000), Twips(255)}, kHorizontal, 15, 15);
  EXPECT_EQ(bar.ThumbLength(), Twips(135));
}

TEST(ThumbRectangle, OfAFarPositionFits32Bits) {
  FlatScrollLayout bar = Bar(3000, kVertical);
  bar.SetThumbPosition(bar.PositionFor(1000000001, {1000000000, 1000000002}));
  EXPECT_GT(bar.ThumbPosition(), Twips(1e12f));
  EXPECT_EQ(bar.Thumb().top, 1000000000 / 15);
  bar.SetThumbPosition(bar.PositionFor(-1000000001, {-1000000002, -1000000000}));
  EXPECT_EQ(bar.Thumb().top, -1000000000 / 15);
}

// --- Zones -------------------------------------------------------------------------------------------

TEST(ScrollZone, DividesTheBarIntoFivePartsWithExactEdges) {
  FlatScrollLayout bar = Bar(3000, kVertical);
  bar.SetThumbPosition(Twips(1000));  // to 1193
  EXPECT_EQ(bar.ZoneAt(Twips(0)), ScrollZone::kFirstButton);
  EXPECT_EQ(bar.ZoneAt(Twips(199)), ScrollZone::kFirstButton);
  EXPECT_EQ(bar.ZoneAt(Twips(200)), ScrollZone::kTrackBefore);
  EXPECT_EQ(bar.ZoneAt(Twips(999)), ScrollZone::kTrackBefore);
  EXPECT_EQ(bar.ZoneAt(Twips(1000)), ScrollZone::kThumb);
  EXPECT_EQ(bar.ZoneAt(Twips(1193)), ScrollZone::kThumb);
  EXPECT_EQ(bar.ZoneAt(Twips(1194)), ScrollZone::kTrackAfter);
  EXPECT_EQ(bar.ZoneAt(Twips(2799)), ScrollZone::kTrackAfter);
  EXPECT_EQ(bar.ZoneAt(Twips(2800)), ScrollZone::kSecondButton);
}

TEST(ScrollZone, OfAShortBarIsAlwaysAButton) {
  const FlatScrollLayout bar = Bar(300, kHorizontal);
  EXPECT_EQ(bar.ZoneAt(Twips(149)), ScrollZone::kFirstButton);
  EXPECT_EQ(bar.ZoneAt(Twips(150)), ScrollZone::kSecondButton);
}

// --- Dragging ----------------------------------------------------------------------------------------

TEST(DragValue, FollowsThePointerItselfWith510TwipsAllowed) {
  FlatScrollLayout bar = Bar(3000, kVertical);
  bar.SetThumbPosition(Twips(1000));
  // (1500 - 200) / 2490 of 100 is 52.2.
  EXPECT_EQ(bar.DragValue(Twips(1500), Twips(1050), {0, 100}), 52);
  EXPECT_EQ(bar.DragValue(Twips(1500), Twips(1050), {50, 150}), 102);
}

TEST(DragValue, IsAnEndWhenTheThumbReachesIt) {
  FlatScrollLayout bar = Bar(3000, kVertical);
  bar.SetThumbPosition(Twips(1000));
  EXPECT_EQ(bar.DragValue(Twips(300), Twips(1100), {0, 100}), 0);  // the thumb would start at 200
  EXPECT_EQ(bar.DragValue(Twips(301), Twips(1100), {0, 100}), 4);
  EXPECT_EQ(bar.DragValue(Twips(2707), Twips(1100), {0, 100}), 100);
  EXPECT_EQ(bar.DragValue(Twips(2708), Twips(1100), {0, 100}), 100);
}

TEST(DragValue, FollowsThePointerWhileTheThumbStartsExactlyAtItsLastPlace) {
  FlatScrollLayout bar = Bar(3000, kVertical);  // a thumb of 193 starts at 2607 at most
  bar.SetThumbPosition(Twips(1200));
  EXPECT_EQ(bar.DragValue(Twips(2407), Twips(1000), {0, 100}), 89);
  EXPECT_EQ(bar.DragValue(Twips(2408), Twips(1000), {0, 100}), 100);
}

TEST(DragValue, IsKeptWithinTheRange) {
  FlatScrollLayout bar = Bar(3000, kVertical);
  bar.SetThumbPosition(Twips(1000));
  EXPECT_EQ(bar.DragValue(Twips(2790), Twips(2700), {0, 100}), 100);  // 104 by the formula
  EXPECT_EQ(bar.DragValue(Twips(100), Twips(-100), {0, 100}), 0);     // -4 by the formula
}

TEST(DragValue, OfABarOf510TwipsIsAlwaysAnEnd) {
  FlatScrollLayout bar = Bar(510, kVertical);
  bar.SetThumbPosition(Twips(200));
  EXPECT_EQ(bar.DragValue(Twips(255), Twips(255), {0, 100}), 0);
  EXPECT_EQ(bar.DragValue(Twips(256), Twips(255), {0, 100}), 100);
}

TEST(DragValue, IsCutToTheRangeBeforeItMustFit32Bits) {
  FlatScrollLayout bar = Bar(3000, kVertical);
  bar.SetThumbPosition(Twips(1000));
  EXPECT_EQ(bar.DragValue(Twips(2790), Twips(2700), {0, 2147483647}), 2147483647);
}

TEST(DragValue, OfARangeBeyond32BitsRaises6ButNotAtItsEnds) {
  FlatScrollLayout bar = Bar(3000, kVertical);
  bar.SetThumbPosition(Twips(1000));
  const ScrollRange all{-2147483647 - 1, 2147483647};
  EXPECT_EQ(NumberRaisedBy([&] { bar.DragValue(Twips(1500), Twips(1050), all); }), kOverflow);
  EXPECT_EQ(bar.DragValue(Twips(300), Twips(1100), all), all.min);
}

// --- Steps -------------------------------------------------------------------------------------------

TEST(Step, StopsAtTheEnds) {
  EXPECT_EQ(StepBack(5, 3, {0, 10}), 2);
  EXPECT_EQ(StepBack(3, 3, {0, 10}), 0);
  EXPECT_EQ(StepBack(2, 3, {0, 10}), 0);
  EXPECT_EQ(StepForward(5, 3, {0, 10}), 8);
  EXPECT_EQ(StepForward(7, 3, {0, 10}), 10);
  EXPECT_EQ(StepForward(8, 3, {0, 10}), 10);
}

TEST(Step, OfZeroStaysAndANegativeOneGoesTheOtherWay) {
  EXPECT_EQ(StepBack(5, 0, {0, 10}), 5);
  EXPECT_EQ(StepForward(5, 0, {0, 10}), 5);
  EXPECT_EQ(StepBack(5, -3, {0, 10}), 8);
  EXPECT_EQ(StepForward(5, -3, {0, 10}), 2);
}

TEST(Step, BeyondThirtyTwoBitsRaises6) {
  constexpr std::int32_t kLeast = -2147483647 - 1;
  constexpr std::int32_t kMost = 2147483647;
  EXPECT_EQ(NumberRaisedBy([] { StepBack(kMost, 1, {kMost, kMost}); }), kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { StepForward(kLeast, 1, {kLeast, kLeast}); }), kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { StepBack(kMost, -1, {0, kMost}); }), kOverflow);
}

}  // namespace
}  // namespace levelwidgets
