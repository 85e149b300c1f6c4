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

TEST(RegionTest, ManyHolesLeaveWhatTheyLeaveOneByOne) {
  std::uint32_t random = 1;
  const auto below = [&random](std::uint32_t limit) {
    random = random * 1664525 + 1013904223;
    return static_cast<int>((random >> 16) % limit);
  };
  for (int round = 0; round < 50; ++round) {
    Region one_by_one(PixelRect{10, 10, 90, 70});
    one_by_one.Subtract(PixelRect{30, 30, 40, 45});
    Region at_once = one_by_one;
    std::vector<PixelRect> holes;
    for (int i = 0; i < 9 + round; ++i) {
      const PixelPoint corner{below(100), below(80)};
      holes.push_back({corner.x, corner.y, corner.x + below(20), corner.y + below(20)});
    }
    for (const PixelRect& hole : holes) one_by_one.Subtract(hole);
    at_once.Subtract(holes);
    EXPECT_EQ(Area(at_once), Area(one_by_one)) << round;  // disjoint, too
    EXPECT_EQ(at_once, one_by_one) << round;
    for (const PixelRect& rect : at_once.Rects()) EXPECT_FALSE(rect.empty());
  }
}

TEST(RegionTest, RowsOfHolesLeaveOneRectangleForEachGap) {
  std::vector<PixelRect> holes;
  for (int i = 0; i < 100; ++i) {
    const PixelPoint corner{i % 10 * 10 + 2, i / 10 * 10 + 2};
    holes.push_back({corner.x, corner.y, corner.x + 6, corner.y + 6});
  }
  Region region(PixelRect{0, 0, 100, 100});
  region.Subtract(holes);
  EXPECT_EQ(region.Rects().size(), 11u + 10 * 11);
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

TEST(RegionTest, RegionsMeetWhereTheyHaveAPixelInCommon) {
  Region corners(PixelRect{0, 0, 10, 10});
  corners.Add(PixelRect{20, 20, 30, 30});
  EXPECT_TRUE(corners.Meets(Region(PixelRect{29, 29, 40, 40})));
  EXPECT_FALSE(corners.Meets(Region(PixelRect{10, 0, 20, 20}))) << "beside both";
  EXPECT_FALSE(corners.Meets(Region()));
  EXPECT_FALSE(Region().Meets(corners));
  EXPECT_TRUE(corners.Meets(Region(PixelRect{0, 0, 1, 1}), {29, 20})) << "by the other's origin";
  EXPECT_FALSE(corners.Meets(Region(PixelRect{0, 0, 1, 1}), {30, 20}));
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
