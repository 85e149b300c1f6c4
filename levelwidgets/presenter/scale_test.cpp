#include <levelwidgets/presenter/scale.h>

#include <limits>

#include <gtest/gtest.h>

namespace levelwidgets::presenter {
namespace {

TEST(Scale, LeavesPlacesAsTheyAreWithoutScaling) {
  const Scale scale;
  EXPECT_EQ(scale.ToNative(PixelPoint{-3, 7}), (PixelPoint{-3, 7}));
  EXPECT_EQ(scale.ToDesktop(PixelPoint{-3, 7}), (PixelPoint{-3, 7}));
  EXPECT_EQ(scale.ToNative(PixelSize{30, 7}), (PixelSize{30, 7}));
  EXPECT_EQ(scale.ToDesktop(PixelSize{30, 7}), (PixelSize{30, 7}));
}

TEST(Scale, PlacesCountFromTheOrigin) {
  Scale scale(2);
  scale.SetOrigin({-960, 30});
  EXPECT_EQ(scale.ToNative(PixelPoint{20, 40}), (PixelPoint{-950, 50}));
  EXPECT_EQ(scale.ToDesktop(PixelPoint{-950, 50}), (PixelPoint{20, 40}));
  EXPECT_EQ(scale.ToNative(PixelPoint{21, 41}), (PixelPoint{-950, 50}));
}

TEST(Scale, UnitsOfTheSystemMayBeSeveralPixels) {
  const Scale scale(2);
  EXPECT_EQ(scale.InWindow({3, -2}), (PixelPoint{6, -4}));
  EXPECT_EQ(scale.ToDesktop(PixelSize{15, 5}), (PixelSize{30, 10}));
  EXPECT_EQ(scale.ToNative(PixelSize{31, 7}), (PixelSize{16, 4}));
  const Scale between(1.5);
  EXPECT_EQ(between.InWindow({15, 3}), (PixelPoint{22, 4}));
  EXPECT_EQ(between.InWindow({-1, -3}), (PixelPoint{-2, -5}));
  EXPECT_EQ(between.ToDesktop(PixelSize{15, 3}), (PixelSize{23, 5}));
}

TEST(Scale, AWindowWithoutSizeKeepsOneUnit) {
  EXPECT_EQ(Scale(2).ToNative(PixelSize{0, 0}), (PixelSize{1, 1}));
}

TEST(Scale, ADisplaysOwnScaleIsInQuartersAndRoundedDown) {
  EXPECT_EQ(OwnScale(96, 1), 1);
  EXPECT_EQ(OwnScale(109, 1), 1);
  EXPECT_EQ(OwnScale(120, 1), 1.25);
  EXPECT_EQ(OwnScale(163, 1), 1.5);
  EXPECT_EQ(OwnScale(168, 1), 1.75);
  EXPECT_EQ(OwnScale(192, 1), 2);
  EXPECT_EQ(OwnScale(191.5, 1), 2) << "sizes come in whole millimetres";
  EXPECT_EQ(OwnScale(60, 1), 1);
  EXPECT_EQ(OwnScale(96, 2), 2);
}

TEST(Scale, AnImpossibleDisplaySizeIsIgnored) {
  EXPECT_EQ(OwnScale(0, 1), 1);
  EXPECT_EQ(OwnScale(-5, 0), 1);
  EXPECT_EQ(OwnScale(25000, 1), 4);
  EXPECT_EQ(OwnScale(std::numeric_limits<double>::infinity(), 1), 1);
}

TEST(Scale, IsWholeDotsPerInch) {
  EXPECT_EQ(DotsPerInchAt(1), 96);
  EXPECT_EQ(DotsPerInchAt(1.25), 120);
  EXPECT_EQ(DotsPerInchAt(1.1), 106);
}

}  // namespace
}  // namespace levelwidgets::presenter
