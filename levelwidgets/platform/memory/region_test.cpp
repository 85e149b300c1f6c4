#include <gtest/gtest.h>

#include <levelwidgets/platform/memory/region.h>

namespace levelwidgets::memory {
namespace {

int Area(const Region& region) {
  int area = 0;
  for (const PixelRect& r : region.Rects()) area += r.width() * r.height();
  return area;
}

TEST(RegionTest, AnEmptyRectangleAddsNothing) {
  Region region(PixelRect{5, 5, 5, 9});
  EXPECT_TRUE(region.Empty());
  region.Add(PixelRect{3, 3, 1, 1});
  EXPECT_TRUE(region.Empty());
  EXPECT_EQ(region.Bounds(), PixelRect{});
}

TEST(RegionTest, OverlappingRectanglesCountOnce) {
  Region region(PixelRect{0, 0, 10, 10});
  region.Add(PixelRect{5, 5, 15, 15});
  EXPECT_EQ(Area(region), 175);
  EXPECT_EQ(region.Bounds(), (PixelRect{0, 0, 15, 15}));
}

TEST(RegionTest, AHoleLeavesFourSides) {
  Region region(PixelRect{0, 0, 10, 10});
  region.Subtract(PixelRect{3, 4, 6, 8});
  EXPECT_EQ(Area(region), 100 - 12);
  EXPECT_FALSE(region.Contains({3, 4}));
  EXPECT_FALSE(region.Contains({5, 7}));
  EXPECT_TRUE(region.Contains({6, 4}));
  EXPECT_TRUE(region.Contains({2, 4}));
  EXPECT_TRUE(region.Contains({3, 3}));
  EXPECT_TRUE(region.Contains({3, 8}));
  EXPECT_FALSE(region.Contains({10, 9}));
}

TEST(RegionTest, RegionsAreEqualHoweverTheyAreDivided) {
  Region rows(PixelRect{0, 0, 10, 5});
  rows.Add(PixelRect{0, 5, 10, 10});
  Region columns(PixelRect{0, 0, 5, 10});
  columns.Add(PixelRect{5, 0, 10, 10});
  EXPECT_EQ(rows, columns);
  columns.Subtract(PixelRect{9, 9, 10, 10});
  EXPECT_FALSE(rows == columns);
}

TEST(RegionTest, CommonAndDifferenceDivideARegion) {
  Region region(PixelRect{0, 0, 10, 10});
  region.Subtract(PixelRect{2, 2, 4, 4});
  const Region other(PixelRect{3, 0, 20, 20});
  Region both = Common(region, other);
  EXPECT_EQ(Area(both) + Area(Difference(region, other)), Area(region));
  both.Add(Difference(region, other));
  EXPECT_EQ(both, region);
}

TEST(RegionTest, ClippingAndMovingKeepTheShape) {
  Region region(PixelRect{0, 0, 10, 10});
  region.Subtract(PixelRect{0, 0, 5, 5});
  region.ClipTo(PixelRect{4, 4, 8, 8});
  region.Offset(10, 20);
  Region expected(PixelRect{14, 24, 18, 28});
  expected.Subtract(PixelRect{14, 24, 15, 25});
  EXPECT_EQ(region, expected);
}

}  // namespace
}  // namespace levelwidgets::memory
