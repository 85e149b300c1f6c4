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
  Scale scale(2, 1);
  scale.SetOrigin({-1920, 30});
  EXPECT_EQ(scale.ToNative(PixelPoint{10, 20}), (PixelPoint{-1900, 70}));
  EXPECT_EQ(scale.ToDesktop(PixelPoint{-1900, 70}), (PixelPoint{10, 20}));
  EXPECT_EQ(scale.ToDesktop(PixelPoint{-1899, 71}), (PixelPoint{10, 20}));
}

TEST(Scale, EveryScreenPixelOfASquareIsItsDesktopPixel) {
  const Scale scale(3, 1);
  EXPECT_EQ(scale.InWindow({0, 2}), (PixelPoint{0, 0}));
  EXPECT_EQ(scale.InWindow({3, 5}), (PixelPoint{1, 1}));
  EXPECT_EQ(scale.InWindow({-1, -3}), (PixelPoint{-1, -1}));
  EXPECT_EQ(scale.InWindow({-4, 0}), (PixelPoint{-2, 0}));
}

TEST(Scale, AWindowIsCoveredEvenWhereAPixelIsCut) {
  const Scale scale(2, 1);
  EXPECT_EQ(scale.ToDesktop(PixelSize{101, 100}), (PixelSize{51, 50}));
  EXPECT_EQ(scale.ToNative(PixelSize{51, 50}), (PixelSize{102, 100}));
}

TEST(Scale, AWindowWithoutSizeKeepsOneUnit) {
  EXPECT_EQ(Scale(2, 1).ToNative(PixelSize{0, 0}), (PixelSize{1, 1}));
}

TEST(Scale, UnitsOfTheSystemMayBeSeveralPixels) {
  const Scale same(2, 2);
  EXPECT_EQ(same.ToNative(PixelPoint{10, 20}), (PixelPoint{10, 20}));
  EXPECT_EQ(same.ToDesktop(PixelSize{30, 7}), (PixelSize{30, 7}));
  const Scale larger(3, 2);
  EXPECT_EQ(larger.ToNative(PixelSize{10, 3}), (PixelSize{15, 5}));
  EXPECT_EQ(larger.InWindow({15, 3}), (PixelPoint{10, 2}));
}

TEST(Scale, TheFactorIsWholeAndRoundedDown) {
  EXPECT_EQ(FactorFor(96, 1), 1);
  EXPECT_EQ(FactorFor(191, 1), 1);
  EXPECT_EQ(FactorFor(192, 1), 2);
  EXPECT_EQ(FactorFor(300, 1), 3);
  EXPECT_EQ(FactorFor(60, 1), 1);
  EXPECT_EQ(FactorFor(96, 2), 2);
}

TEST(Scale, AnImpossibleDisplaySizeIsIgnored) {
  EXPECT_EQ(FactorFor(0, 1), 1);
  EXPECT_EQ(FactorFor(-5, 0), 1);
  EXPECT_EQ(FactorFor(25000, 1), 4);
  EXPECT_EQ(FactorFor(std::numeric_limits<double>::infinity(), 1), 1);
}

}  // namespace
}  // namespace levelwidgets::presenter
