#include <levelwidgets/controls/grid/grid_bars.h>

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include <levelwidgets/controls/grid/random_grid_fixture.h>
#include <levelwidgets/testing/rounds.h>

namespace levelwidgets {
namespace {

constexpr std::int32_t kMost32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast32 = std::numeric_limits<std::int32_t>::min();

// --- Top row -------------------------------------------------------------------------------------------

TEST(GridBars, TheLastPageStaysFull) {
  const struct {
    std::int32_t top_index;
    std::int32_t row_count;
    std::int32_t visible_rows;
    std::int32_t top;
  } cases[] = {{1, 100, 10, 1},
               {92, 100, 10, 92},
               {93, 100, 10, 92},
               {100, 100, 10, 92},
               {5, 8, 10, 1},
               {5, 9, 10, 1},
               {5, 10, 10, 2},
               {2, 0, 10, 1},
               {1, 0, 10, 1},
               {0, 0, 10, 0},
               {-7, 100, 10, -7},  // not brought back to 1
               {100, 100, 2, 100},
               {101, 100, 2, 100},
               {101, 100, 1, 101},
               {102, 100, 1, 101},  // a picture of one row
               {kMost32, kMost32, 10, kMost32 - 8},
               {kMost32, kMost32, 1, kMost32},
               {kMost32, 0, kMost32, 1},
               {kLeast32, 5, 10, kLeast32}};
  for (const auto& c : cases) {
    EXPECT_EQ(TopOfFullPage(c.top_index, c.row_count, c.visible_rows), c.top)
        << c.top_index << " of " << c.row_count;
  }
}

// --- Vertical bar --------------------------------------------------------------------------------------

TEST(GridBars, TheRowBarIsThereWhenRowsAreOutOfView) {
  EXPECT_FALSE(RowBarFor(1, 8, 10, true)) << "8 of 8";
  EXPECT_TRUE(RowBarFor(1, 9, 10, true));
  EXPECT_TRUE(RowBarFor(2, 8, 10, true)) << "the first row is out of view";
  EXPECT_FALSE(RowBarFor(1, 0, 10, true));
  EXPECT_TRUE(RowBarFor(-2, 8, 10, true)) << "rows below the first page, with a top row that does not exist";
}

TEST(GridBars, ItGoesOneRowFurtherWithAHeader) {
  EXPECT_EQ(RowBarFor(5, 100, 10, true), (RowBar{92, 8, 5}));
  EXPECT_EQ(RowBarFor(5, 100, 10, false), (RowBar{91, 8, 5}));
}

TEST(GridBars, ItsValueIsTheTopRowAsFarAsItGoes) {
  EXPECT_EQ(RowBarFor(92, 100, 10, true)->value, 92);
  EXPECT_EQ(RowBarFor(92, 100, 10, false)->value, 91);
  EXPECT_EQ(RowBarFor(-5, 100, 10, true)->value, 1);
}

TEST(GridBars, ABarThatGoesNowhereHasNoValue) {
  const auto bar = RowBarFor(2, 3, 10, true);
  ASSERT_TRUE(bar);
  EXPECT_EQ(bar->max, -5);
  EXPECT_FALSE(bar->HasValue());
  EXPECT_TRUE(RowBarFor(1, 9, 10, true)->HasValue());
}

TEST(GridBars, InAPictureOfOneRowAPageIsLessThanNone) {
  EXPECT_EQ(RowBarFor(1, 100, 1, true), (RowBar{101, -1, 1}));
}

TEST(GridBars, ItsRangeFits32BitsAlsoWithWhatScrollBarsAdd) {
  EXPECT_EQ(RowBarFor(1, kMost32, 100, true)->max, kMost32 - 98);
  EXPECT_EQ(RowBarFor(1, kMost32, 2, true)->max, kMost32 - 7);
  EXPECT_EQ(RowBarFor(kMost32, kMost32, 1, true)->value, kMost32 - 7);
  EXPECT_EQ(RowBarFor(2, kLeast32, 100, true)->max, kLeast32);
}

TEST(GridBars, OverAMillionRandomGridsTheBarReachesEveryTopRow) {
  RandomGrid grid(2);
  int bars = 0;
  for (int i = 0; i < testing::Rounds(1'000'000); ++i) {
    const GridMeasures& measures = grid.Next();
    const std::int32_t rows = measures.row_count;
    const std::int32_t visible = GridLayout(measures).VisibleRows();
    // The last top row with a full page is looked for from the end.
    std::int32_t last = rows + 1;
    while (last > 1 && rows < last + visible - 2) --last;
    const std::int32_t before = measures.top_index;
    const std::int32_t top = TopOfFullPage(before, rows, visible);
    ASSERT_EQ(top, before >= 2 && before > last ? last : before) << grid.Text();
    const auto bar = RowBarFor(top, rows, visible, measures.header);
    bool all_in_view = top <= 1;  // a grid without rows counts as one with a row 0
    for (std::int32_t row = 0; row <= rows; ++row) all_in_view = all_in_view && row <= top + visible - 3;
    ASSERT_EQ(bar.has_value(), !all_in_view) << grid.Text();
    if (!bar || !bar->HasValue()) continue;
    ++bars;
    ASSERT_EQ(bar->max, rows - visible + 1 + measures.header) << grid.Text();
    ASSERT_GE(bar->value, 1) << grid.Text();
    ASSERT_LE(bar->value, bar->max) << grid.Text();
    if (measures.header && top >= 1) {
      ASSERT_EQ(bar->value, top) << grid.Text();
    }
  }
  EXPECT_GT(bars, testing::Rounds(100'000));
}

// --- Selecting ------------------------------------------------------------------------------------------

TEST(GridBars, ASelectedRowOutOfViewIsScrolledIntoIt) {
  const struct {
    std::int32_t row;
    std::int32_t max;
    int value;  // 0 for none
  } cases[] = {{20, 92, 0}, {27, 92, 0},   {28, 92, 20}, {29, 92, 21}, {100, 92, 92}, {19, 92, 19},
               {1, 92, 1},  {100, 91, 91}, {19, 10, 10}, {1, 0, 0},    {100, -5, 0}};
  for (const auto& c : cases) {
    EXPECT_EQ(BarValueToShow(c.row, 20, 10, c.max).value_or(0), c.value) << c.row << " of " << c.max;
  }
}

TEST(GridBars, ScrollingToARowDoesNotOverflow) {
  EXPECT_EQ(BarValueToShow(kMost32, 1, 10, kMost32 - 8), kMost32 - 8);
  EXPECT_EQ(BarValueToShow(kMost32, kMost32, 1, kMost32 - 7), kMost32 - 7);
  EXPECT_EQ(BarValueToShow(5, kLeast32, 10, 3), 1);
}

TEST(GridBars, OverAMillionRandomGridsASelectedRowComesIntoViewWhereTheBarCanBringIt) {
  RandomGrid grid(3);
  int scrolled = 0;
  for (int i = 0; i < testing::Rounds(1'000'000); ++i) {
    const GridMeasures& measures = grid.Next();
    if (measures.row_count == 0) continue;
    const std::int32_t visible = GridLayout(measures).VisibleRows();
    const std::int32_t row = 1 + grid.UpTo(measures.row_count - 1);
    const std::int32_t max = measures.row_count - visible + 2;
    const std::int32_t top = measures.top_index;
    const auto value = BarValueToShow(row, top, visible, max);
    const bool in_view = row >= top && row - top < visible - 2;
    if (in_view || max < 1) {
      ASSERT_FALSE(value) << grid.Text() << row;
      continue;
    }
    ASSERT_TRUE(value) << grid.Text() << row;
    ++scrolled;
    ASSERT_TRUE(*value >= 1 && *value <= max) << grid.Text() << row;
    // It becomes the first row, or the last but two of V, unless an end of the bar is in the way.
    const std::int32_t wanted = row < top ? row : row - (visible - 2);
    if (wanted >= 1 && wanted <= max) {
      ASSERT_EQ(*value, wanted) << grid.Text() << row;
    }
  }
  EXPECT_GT(scrolled, testing::Rounds(100'000));
}

// --- Horizontal bar ------------------------------------------------------------------------------------

TEST(GridBars, TheColumnBarIsThereWhenTheVisibleColumnsAreWiderThanThePicture) {
  std::vector<GridColumn> columns = {{1000, true}, {5000, false}, {2000, true}};
  EXPECT_FALSE(NeedsColumnBar(columns, Twips(3000)));
  EXPECT_TRUE(NeedsColumnBar(columns, Twips(2999.5f)));
  columns.push_back({-1, true});
  EXPECT_FALSE(NeedsColumnBar(columns, Twips(2999)));
  EXPECT_FALSE(NeedsColumnBar({}, Twips(0)));
  const std::vector<GridColumn> enormous(10, GridColumn{kMost32, true});
  EXPECT_TRUE(NeedsColumnBar(enormous, Twips(2e10f)));
  EXPECT_FALSE(NeedsColumnBar(enormous, Twips(3e10f)));
}

// --- Places --------------------------------------------------------------------------------------------

TEST(GridBars, BarsTakeTheirThicknessFromThePicture) {
  constexpr TwipSize kGrid{Twips(3000), Twips(2000)};
  const GridFrame none = FrameOf(kGrid, false, false);
  EXPECT_EQ(none.picture, kGrid);
  const GridFrame rows = FrameOf(kGrid, true, false);
  EXPECT_EQ(rows.picture, (TwipSize{Twips(2775), Twips(2000)}));
  EXPECT_EQ(rows.row_bar, (PlacedBar{{Twips(2775), Twips(0)}, {Twips(225), Twips(2000)}}));
  const GridFrame columns = FrameOf(kGrid, false, true);
  EXPECT_EQ(columns.picture, (TwipSize{Twips(3000), Twips(1775)}));
  EXPECT_EQ(columns.column_bar, (PlacedBar{{Twips(0), Twips(1775)}, {Twips(3000), Twips(225)}}));
  const GridFrame both = FrameOf(kGrid, true, true);
  EXPECT_EQ(both.picture, (TwipSize{Twips(2775), Twips(1775)}));
  EXPECT_EQ(both.row_bar, (PlacedBar{{Twips(2775), Twips(0)}, {Twips(225), Twips(1775)}}));
  EXPECT_EQ(both.column_bar, (PlacedBar{{Twips(0), Twips(1775)}, {Twips(2775), Twips(225)}}));
}

TEST(GridBars, InAGridSmallerThanABarNoLengthIsNegative) {
  const GridFrame frame = FrameOf({Twips(100), Twips(0)}, true, true);
  EXPECT_EQ(frame.picture, (TwipSize{Twips(0), Twips(0)}));
  EXPECT_EQ(frame.row_bar.size, (TwipSize{Twips(225), Twips(0)}));
  EXPECT_EQ(frame.column_bar.size, (TwipSize{Twips(0), Twips(225)}));
}

}  // namespace
}  // namespace levelwidgets
