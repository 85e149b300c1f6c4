#include <levelwidgets/controls/grid/grid_hit.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include <levelwidgets/controls/grid/random_grid_fixture.h>
#include <levelwidgets/testing/rounds.h>

namespace levelwidgets {
namespace {

constexpr std::int32_t kMost32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast32 = std::numeric_limits<std::int32_t>::min();

constexpr GridColumn kThree[] = {{1000, true}, {500, false}, {2000, true}};

// Rows of 225 twips, top row 4 of 10.
GridMeasures Measures(bool header) {
  GridMeasures measures;
  measures.row_height = Twips(225);
  measures.header = header;
  measures.row_count = 10;
  measures.top_index = 4;
  measures.columns = kThree;
  return measures;
}

GridHit HitAt(const GridMeasures& measures, float x, float y) {
  return HitTestGrid({Twips(x), Twips(y)}, measures);
}

// --- Rows --------------------------------------------------------------------------------------------

TEST(GridHitTest, UnderAHeaderRowsAreCountedFromTheSecondBand) {
  const struct {
    float y;
    std::int32_t row;
  } cases[] = {{0, 0},      {224, 0}, {224.5f, 0},  // ties to even
               {224.6f, 4}, {225, 4}, {449, 4},    {450, 5},   {1575, 10},     {1799, 10}, {1800, -1},
               {1e9f, -1},  {-1, 0},  {-225, 0},   {-1e9f, 0}, {INFINITY, -1}, {NAN, 0}};
  for (const auto& c : cases) EXPECT_EQ(HitAt(Measures(true), 0, c.y).row, c.row) << c.y;
}

TEST(GridHitTest, WithoutAHeaderTheyAreCountedFromTheFirst) {
  const struct {
    float y;
    std::int32_t row;
  } cases[] = {{0, 4}, {224, 4}, {225, 5}, {1574, 10}, {1575, -1}, {-224, 4}, {-225, 3}, {-1125, -1}};
  for (const auto& c : cases) EXPECT_EQ(HitAt(Measures(false), 0, c.y).row, c.row) << c.y;
}

TEST(GridHitTest, TheHeightOfARowIsThatOfItsWholePixels) {
  GridMeasures measures = Measures(false);
  measures.row_height = Twips(239);  // 15 pixels of 15 twips
  EXPECT_EQ(HitAt(measures, 0, 225).row, 5);
  measures.row_height = Twips(3);  // counts as a pixel
  EXPECT_EQ(HitAt(measures, 0, 14).row, 4);
  EXPECT_EQ(HitAt(measures, 0, 15).row, 5);
  measures.row_height = Twips(INFINITY);
  EXPECT_EQ(HitAt(measures, 0, 1e9f).row, 4);
}

TEST(GridHitTest, WithoutRowsThereIsTheHeaderAndNothingBelow) {
  GridMeasures measures = Measures(true);
  measures.row_count = 0;
  measures.top_index = 1;
  EXPECT_EQ(HitAt(measures, 0, 100).row, 0);
  EXPECT_EQ(HitAt(measures, 0, 300).row, -1);
}

TEST(GridHitTest, RowsAtTheEndsOf32BitsDoNotOverflow) {
  GridMeasures measures = Measures(false);
  measures.row_count = kMost32;
  measures.top_index = kMost32;
  EXPECT_EQ(HitAt(measures, 0, 0).row, kMost32);
  EXPECT_EQ(HitAt(measures, 0, 1e9f).row, -1);
  measures.top_index = kLeast32;
  EXPECT_EQ(HitAt(measures, 0, -1e9f).row, kLeast32);
}

// --- Columns -----------------------------------------------------------------------------------------

TEST(GridHitTest, AColumnThatIsNotVisibleIsNeverHit) {
  const struct {
    float x;
    std::int32_t column;
  } cases[] = {{0, 1}, {999, 1}, {999.5f, 1}, {1000, 3}, {2999, 3}, {3000, 4}, {1e30f, 4}, {-5, 1}, {NAN, 4}};
  for (const auto& c : cases) EXPECT_EQ(HitAt(Measures(true), c.x, 0).column, c.column) << c.x;
}

TEST(GridHitTest, TheFirstColumnShownDoesNotCount) {
  GridMeasures measures = Measures(true);
  measures.first_column = 3;
  EXPECT_EQ(HitAt(measures, 0, 0).column, 1);
}

TEST(GridHitTest, WithoutColumnsEveryPointIsRightOfAll) {
  GridMeasures measures = Measures(true);
  measures.columns = {};
  EXPECT_EQ(HitAt(measures, 0, 0).column, 1);
}

TEST(GridHitTest, WidthsThatAreNegativeOrEnormousDoNotOverflow) {
  const GridColumn columns[] = {{-100, true}, {50, true}, {100, true}, {kMost32, true}, {kMost32, true}};
  GridMeasures measures = Measures(true);
  measures.columns = columns;
  EXPECT_EQ(HitAt(measures, -101, 0).column, 1);
  EXPECT_EQ(HitAt(measures, -70, 0).column, 2);
  EXPECT_EQ(HitAt(measures, 0, 0).column, 3);
  EXPECT_EQ(HitAt(measures, 4e9f, 0).column, 5);
}

// --- Header clicks -----------------------------------------------------------------------------------

TEST(GridHeaderClick, CountsColumnsThatAreNotVisibleWithTheirWidths) {
  const struct {
    float x;
    std::int32_t column;
  } cases[] = {{0, 1}, {999.5f, 1}, {1000, 2}, {1499, 2}, {1500, 3}, {3499, 3}, {3500, 0}, {-1, 1}, {NAN, 0}};
  for (const auto& c : cases) EXPECT_EQ(HeaderColumnAt(Twips(c.x), kThree), c.column) << c.x;
  EXPECT_EQ(HeaderColumnAt(Twips(0), {}), 0);
}

TEST(GridHeaderClick, IsOnTheFirstColumnThatReachesBeyondThePoint) {
  const GridColumn columns[] = {{-100, true}, {50, true}, {0, false}, {kMost32, true}, {kMost32, true}};
  EXPECT_EQ(HeaderColumnAt(Twips(-101), columns), 1);
  EXPECT_EQ(HeaderColumnAt(Twips(-60), columns), 2);
  EXPECT_EQ(HeaderColumnAt(Twips(-50), columns), 4);
  EXPECT_EQ(HeaderColumnAt(Twips(4e9f), columns), 5);
  EXPECT_EQ(HeaderColumnAt(Twips(1e10f), columns), 0);
}

// --- Against another formulation -----------------------------------------------------------------------

// Twip by twip from 0: the row of a point whose coordinate is whole and not negative.
std::int32_t RowByCounting(int y, const GridMeasures& measures) {
  const int height = RowPixels(measures.row_height, measures.twips_per_pixel_y);
  const int band = static_cast<int>(std::lrint(static_cast<float>(height) * measures.twips_per_pixel_y));
  std::int32_t row = measures.top_index;
  bool in_header = measures.header;
  for (; y >= band; y -= band) {
    if (!in_header) ++row;
    in_header = false;
  }
  if (in_header) row = 0;
  return row > measures.row_count ? -1 : row;
}

// Where each column ends, then the first end behind the point.
std::int32_t ColumnByEnds(int x, std::span<const GridColumn> columns, bool count_all) {
  std::vector<std::pair<std::int32_t, std::int64_t>> ends;
  std::int64_t end = 0;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (!columns[i].visible && !count_all) continue;
    end += columns[i].width;
    ends.emplace_back(static_cast<std::int32_t>(i + 1), end);
  }
  for (const auto& [column, its_end] : ends) {
    if (its_end > x) return column;
  }
  return count_all ? 0 : static_cast<std::int32_t>(columns.size() + 1);
}

TEST(GridHitTest, AgreesWithCountingOverAMillionRandomGrids) {
  RandomGrid grid(4);
  for (int i = 0; i < testing::Rounds(1'000'000); ++i) {
    const GridMeasures& measures = grid.Next();
    const int x = grid.UpTo(2000) - 200;
    const int y = grid.UpTo(2000);
    const GridHit hit = HitAt(measures, static_cast<float>(x), static_cast<float>(y));
    ASSERT_EQ(hit.row, RowByCounting(y, measures)) << grid.Text() << y;
    ASSERT_EQ(hit.column, ColumnByEnds(x, measures.columns, false)) << grid.Text() << x;
    ASSERT_EQ(HeaderColumnAt(Twips(x), measures.columns), ColumnByEnds(x, measures.columns, true))
        << grid.Text() << x;
  }
}

}  // namespace
}  // namespace levelwidgets
