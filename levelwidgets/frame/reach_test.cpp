#include <levelwidgets/frame/reach.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace levelwidgets {
namespace {

constexpr std::int32_t kLeast32 = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost32 = std::numeric_limits<std::int32_t>::max();

TEST(Reach, PlacesBeyondTheFarthestPixelAreMovedThere) {
  EXPECT_EQ(WithinReach(0), 0);
  EXPECT_EQ(WithinReach(-17), -17);
  EXPECT_EQ(WithinReach(kFarthestPixel), kFarthestPixel);
  EXPECT_EQ(WithinReach(std::int64_t{kFarthestPixel} + 1), kFarthestPixel);
  EXPECT_EQ(WithinReach(std::numeric_limits<std::int64_t>::min()), -kFarthestPixel);
}

TEST(Reach, LengthsBecomePixelsByTheIntegerDivisionWithinReach) {
  const struct {
    float twips;
    float twips_per_pixel;
    int pixels;
  } rows[] = {{1440, 15, 96},
              {1454.4f, 15, 96},
              {1454.6f, 15, 97},
              {22.5f, 15, 1},
              {1440, 12.4f, 120},
              {-1454, 15, -96},
              {0, 15, 0},
              {NAN, 15, 0},
              {1e30f, 15, kFarthestPixel},
              {-1e30f, 15, -kFarthestPixel},
              {INFINITY, 15, kFarthestPixel}};
  for (const auto& row : rows) {
    EXPECT_EQ(PixelsWithinReach(Twips(row.twips), row.twips_per_pixel), row.pixels) << row.twips;
  }
}

TEST(Reach, NumbersAreRoundedTiesToEvenWithin32Bits) {
  EXPECT_EQ(NearestWhole(2.5), 2);
  EXPECT_EQ(NearestWhole(3.5), 4);
  EXPECT_EQ(NearestWhole(-2.6), -3);
  EXPECT_EQ(NearestWhole(3e9), kMost32);
  EXPECT_EQ(NearestWhole(-INFINITY), kLeast32);
  EXPECT_EQ(NearestWhole(NAN), 0);
}

TEST(Reach, SumsAreBroughtWithin32Bits) {
  EXPECT_EQ(Within32Bits(-5), -5);
  EXPECT_EQ(Within32Bits(std::int64_t{kMost32} + 1), kMost32);
  EXPECT_EQ(Within32Bits(std::int64_t{kLeast32} - 1), kLeast32);
}

}  // namespace
}  // namespace levelwidgets
