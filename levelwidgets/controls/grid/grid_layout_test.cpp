#include <levelwidgets/controls/grid/grid_layout.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include <levelwidgets/controls/grid/random_grid_fixture.h>
#include <levelwidgets/frame/reach.h>
#include <levelwidgets/testing/rounds.h>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::int32_t kMost32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast32 = std::numeric_limits<std::int32_t>::min();

std::string Text(const PixelRect& rect) {
  return std::to_string(rect.left) + "," + std::to_string(rect.top) + "," + std::to_string(rect.right) + "," +
         std::to_string(rect.bottom);
}

// A picture of 200 by 100 pixels, rows of 15.
GridMeasures Measures() {
  GridMeasures measures;
  measures.client = {0, 0, 200, 100};
  measures.height = Twips(1500);
  measures.row_height = Twips(225);
  measures.header = true;
  measures.row_count = 10;
  return measures;
}

// --- Rows --------------------------------------------------------------------------------------------

TEST(GridLayout, TheHeaderIsOnePixelHigherThanARow) {
  const GridLayout layout(Measures());
  EXPECT_EQ(layout.RowHeight(), 15);
  EXPECT_EQ(layout.Header(), (PixelRect{0, 0, 200, 16}));
}

TEST(GridLayout, RowsStartBelowTheHeaderAndShareTheirLines) {
  const GridLayout layout(Measures());
  EXPECT_EQ(layout.Row(1), (PixelRect{0, 15, 200, 31}));
  EXPECT_EQ(layout.Row(2), (PixelRect{0, 30, 200, 46}));
  EXPECT_EQ(layout.Row(0), (PixelRect{0, 0, 200, 16}));
}

TEST(GridLayout, WithoutAHeaderTheFirstRowStartsAtTheTop) {
  GridMeasures measures = Measures();
  measures.header = false;
  measures.top_index = 4;
  EXPECT_EQ(GridLayout(measures).Row(4), (PixelRect{0, 0, 200, 16}));
}

TEST(GridLayout, ThePictureNeedNotBeginAt0) {
  GridMeasures measures = Measures();
  measures.client = {5, 7, 205, 107};
  const GridColumn columns[] = {{1500, true}};
  measures.columns = columns;
  const GridLayout layout(measures);
  EXPECT_EQ(layout.Header(), (PixelRect{5, 7, 205, 23}));
  EXPECT_EQ(layout.Row(1), (PixelRect{5, 22, 205, 38}));
  EXPECT_EQ(layout.Columns().at(0).left, 5);
}

struct RowHeightCase {
  float row_height;
  float twips_per_pixel;
  int pixels;
  std::int32_t visible_rows;  // in 1500 twips
};
class GridRowHeightTest : public ::testing::TestWithParam<RowHeightCase> {};

TEST_P(GridRowHeightTest, IsWholePixelsAndAtLeastOneAndTheVisibleRowsAreCountedInTwips) {
  GridMeasures measures = Measures();
  measures.row_height = Twips(GetParam().row_height);
  measures.twips_per_pixel_y = GetParam().twips_per_pixel;
  const GridLayout layout(measures);
  EXPECT_EQ(layout.RowHeight(), GetParam().pixels);
  EXPECT_EQ(layout.VisibleRows(), GetParam().visible_rows);
}

INSTANTIATE_TEST_SUITE_P(RowHeights, GridRowHeightTest,
                         ::testing::Values(RowHeightCase{225, 15, 15, 7},  // 6.67
                                           RowHeightCase{239.4f, 15, 15, 7},
                                           RowHeightCase{240, 15, 16, 7},    // 6.25
                                           RowHeightCase{22, 15, 1, 69},     // 68.2
                                           RowHeightCase{1500, 15, 100, 2},  // one row fills it
                                           RowHeightCase{1501, 15, 100, 1}, RowHeightCase{30000, 15, 2000, 1},
                                           RowHeightCase{14, 15, 1, 101}, RowHeightCase{0, 15, 1, 101},
                                           RowHeightCase{-225, 15, 1, 101}, RowHeightCase{NAN, 15, 1, 101},
                                           RowHeightCase{INFINITY, 15, kFarthestPixel, 1},
                                           RowHeightCase{225, 12, 18, 7}, RowHeightCase{5, 12, 1, 126},
                                           RowHeightCase{22.5f, 11.5f, 1, 69}));  // both ties, to even

TEST(GridLayout, VisibleRowsCountFromWholeTwipsOfThePicture) {
  GridMeasures measures = Measures();
  measures.row_height = Twips(1500);
  for (const auto& [height, rows] :
       {std::pair{1499.4f, 1}, {1499.6f, 2}, {0.0f, 1}, {-5.0f, 1}, {1e30f, 1431656}}) {
    measures.height = Twips(height);
    EXPECT_EQ(GridLayout(measures).VisibleRows(), rows) << height;
  }
}

TEST(GridLayout, RowsFromTheTopToTheOneBehindTheVisibleOnesArePainted) {
  GridMeasures measures = Measures();  // V is 7
  measures.top_index = 3;
  const GridLayout layout(measures);
  EXPECT_FALSE(layout.IsShown(2));
  EXPECT_TRUE(layout.IsShown(3));
  EXPECT_TRUE(layout.IsShown(10));
  EXPECT_FALSE(layout.IsShown(11));
}

TEST(GridLayout, NumbersAtTheEndsOf32BitsDoNotOverflow) {
  GridMeasures measures = Measures();
  measures.row_count = kMost32;
  measures.top_index = kMost32;
  const GridLayout at_the_end(measures);
  EXPECT_TRUE(at_the_end.IsShown(kMost32));
  EXPECT_FALSE(at_the_end.IsShown(kMost32 - 1));
  EXPECT_TRUE(at_the_end.IsShown(std::int64_t{kMost32} + 7));
  EXPECT_EQ(at_the_end.Row(kMost32), (PixelRect{0, 15, 200, 31}));
  EXPECT_EQ(at_the_end.Row(kLeast32).top, -kFarthestPixel);
  measures.top_index = kLeast32;
  measures.row_height = Twips(INFINITY);
  EXPECT_EQ(GridLayout(measures).Row(kMost32).bottom, kFarthestPixel);
}

// --- Columns -----------------------------------------------------------------------------------------

std::vector<GridLayout::Place> ColumnsOf(std::vector<GridColumn> columns, std::int32_t first = 1) {
  GridMeasures measures = Measures();
  measures.columns = columns;
  measures.first_column = first;
  return GridLayout(measures).Columns();
}

using Place = GridLayout::Place;

TEST(GridLayout, ColumnsFollowEachOtherByTheirWidthsInPixels) {
  EXPECT_THAT(ColumnsOf({{300, true}, {157, true}, {450, true}}),
              ElementsAre(Place{1, 0, 20}, Place{2, 20, 10}, Place{3, 30, 30}));
}

TEST(GridLayout, AColumnThatIsNotVisibleTakesNoRoom) {
  EXPECT_THAT(ColumnsOf({{300, true}, {450, false}, {300, true}}),
              ElementsAre(Place{1, 0, 20}, Place{3, 20, 20}));
  EXPECT_THAT(ColumnsOf({{300, false}, {450, false}}), IsEmpty());
}

TEST(GridLayout, TheFirstColumnShownIsAtTheLeftEdge) {
  const std::vector<GridColumn> columns(4, GridColumn{300, true});
  EXPECT_THAT(ColumnsOf(columns, 3), ElementsAre(Place{3, 0, 20}, Place{4, 20, 20}));
  EXPECT_THAT(ColumnsOf(columns, 5), IsEmpty());
  EXPECT_EQ(ColumnsOf(columns, 0).size(), 4u) << "columns count from 1";
  EXPECT_EQ(ColumnsOf(columns, kLeast32).size(), 4u);
  EXPECT_THAT(ColumnsOf(columns, kMost32), IsEmpty());
}

TEST(GridLayout, WithoutColumnsThereIsNothingToPlace) { EXPECT_THAT(ColumnsOf({}), IsEmpty()); }

TEST(GridLayout, ColumnsOutsideThePictureAreLeftOut) {
  EXPECT_THAT(ColumnsOf({{3000, true}, {300, true}}), ElementsAre(Place{1, 0, 200}));
  EXPECT_THAT(ColumnsOf({{2985, true}, {300, true}, {300, true}}),
              ElementsAre(Place{1, 0, 199}, Place{2, 199, 20}));
}

TEST(GridLayout, AColumnWithoutWidthIsALine) {
  EXPECT_THAT(ColumnsOf({{300, true}, {0, true}, {14, true}, {300, true}}),
              ElementsAre(Place{1, 0, 20}, Place{2, 20, 0}, Place{3, 20, 0}, Place{4, 20, 20}));
}

TEST(GridLayout, BehindAColumnOfNegativeWidthColumnsComeBack) {
  EXPECT_THAT(ColumnsOf({{3000, true}, {300, true}, {-600, true}, {300, true}}),
              ElementsAre(Place{1, 0, 200}, Place{3, 220, -40}, Place{4, 180, 20}));
  EXPECT_THAT(ColumnsOf({{-300, true}, {300, true}}), ElementsAre(Place{1, 0, -20}, Place{2, -20, 20}));
}

TEST(GridLayout, EnormousWidthsDoNotOverflow) {
  constexpr int kFar = kFarthestPixel;
  EXPECT_THAT(ColumnsOf({{kMost32, true}, {kMost32, true}, {kLeast32, true}, {kLeast32, true}, {300, true}}),
              ElementsAre(Place{1, 0, kFar}, Place{4, kFar, -kFar}, Place{5, 0, 20}));
  const std::vector<GridColumn> many(1000, GridColumn{kMost32, true});
  EXPECT_EQ(ColumnsOf(many).size(), 1u);
}

// --- Cells -------------------------------------------------------------------------------------------

TEST(GridLayout, ACellReachesOntoTheLineOfTheNextOne) {
  const GridLayout layout(Measures());
  EXPECT_EQ(layout.Cell(2, {1, 20, 30}), (PixelRect{20, 30, 51, 46}));
  EXPECT_EQ(layout.Cell(2, {1, 20, 0}), (PixelRect{20, 30, 21, 46}));
  EXPECT_EQ(layout.Cell(2, {1, 20, -30}), (PixelRect{20, 30, -9, 46}));
}

TEST(GridLayout, ACaptionKeepsTwoPixelsFromBothSides) {
  EXPECT_EQ(GridLayout(Measures()).Caption({1, 20, 30}), (PixelRect{22, 0, 48, 16}));
}

TEST(GridLayout, WhatNoCellCoversIsRightOfTheColumnsUnlessRowsOrColumnsLeaveMore) {
  const std::vector<GridColumn> two{{900, true}, {450, true}};
  GridMeasures measures{
      .client = {0, 0, 200, 100}, .height = Twips(1500), .row_height = Twips(225), .columns = two};
  const auto uncovered = [&] {
    const GridLayout layout(measures);
    return layout.Uncovered(layout.Columns());
  };
  EXPECT_EQ(uncovered(), (PixelRect{91, 0, 200, 100}));
  measures.client.right = 91;
  EXPECT_TRUE(uncovered().empty());
  measures.row_height = Twips(239);  // 15 pixels, but 38 rows are counted
  measures.client.bottom = 600;
  measures.height = Twips(9000);
  EXPECT_EQ(uncovered(), measures.client);
  measures.row_height = Twips(225);
  const std::vector<GridColumn> backward{{900, true}, {-450, true}, {450, true}};
  measures.columns = backward;
  EXPECT_EQ(uncovered(), measures.client);
  measures.columns = {};
  EXPECT_EQ(uncovered(), measures.client);
}

TEST(GridLayout, InsideACellItsLeftTopAndBottomLinesStay) {
  constexpr PixelRect kCell{20, 30, 51, 46};
  EXPECT_EQ(CellInterior(kCell), (PixelRect{21, 31, 51, 45}));
  EXPECT_EQ(CellTextArea(kCell), (PixelRect{23, 31, 48, 45}));
  EXPECT_EQ(CellFocusFrame(kCell), (PixelRect{21, 31, 50, 45}));
}

// --- Against another formulation -----------------------------------------------------------------------

// Row by row and pixel by pixel, as one would do it with a ruler.
class Ruler {
 public:
  explicit Ruler(const GridMeasures& measures) : of_(measures) {}

  int RowPixels() const {
    int pixels = 0;
    for (int twips = Whole(of_.row_height.value); twips >= Whole(of_.twips_per_pixel_y);
         twips -= Whole(of_.twips_per_pixel_y)) {
      ++pixels;
    }
    return pixels == 0 ? 1 : pixels;
  }

  std::int32_t VisibleRows() const {
    int step = Whole(of_.row_height.value);
    if (step < Whole(of_.twips_per_pixel_y)) step = Whole(of_.twips_per_pixel_y);
    std::int32_t rows = 1;
    for (int rest = Whole(of_.height.value); rest >= step; rest -= step) ++rows;
    return rows;
  }

  // The top of each row from the first one on, and the bottom of the last.
  std::vector<int> Tops() const {
    std::vector<int> tops;
    const int row_pixels = RowPixels();
    const std::int32_t rows = VisibleRows() + 1;
    int y = of_.client.top;
    if (of_.header) y += row_pixels;
    for (std::int32_t i = 0; i <= rows; ++i, y += row_pixels) tops.push_back(y);
    return tops;
  }

  std::vector<Place> Columns() const {
    std::vector<Place> places;
    int x = of_.client.left;
    std::int32_t number = 0;
    for (const GridColumn& column : of_.columns) {
      if (++number < of_.first_column || !column.visible) continue;
      const int width = static_cast<int>(column.width / Whole(of_.twips_per_pixel_x));
      if (Touches(x, width)) places.push_back({number, x, width});
      x += width;
    }
    return places;
  }

 private:
  static int Whole(float value) { return static_cast<int>(std::lrint(value)); }

  // Whether any of the pixels from the first line of a cell to its last is on the picture.
  bool Touches(int x, int width) const {
    const int last = x + width;
    if (x >= of_.client.left && x < of_.client.right) return true;
    if (last >= of_.client.left && last < of_.client.right) return true;
    const bool before = x < of_.client.left && last < of_.client.left;
    const bool behind = x >= of_.client.right && last >= of_.client.right;
    return !before && !behind && of_.client.left < of_.client.right;
  }

  const GridMeasures& of_;
};

TEST(GridLayout, AgreesWithARulerOverAMillionRandomGrids) {
  RandomGrid grid(1);
  for (int i = 0; i < testing::Rounds(1'000'000); ++i) {
    const GridMeasures& measures = grid.Next();
    const GridLayout layout(measures);
    const Ruler ruler(measures);
    ASSERT_EQ(layout.RowHeight(), ruler.RowPixels()) << grid.Text();
    ASSERT_EQ(layout.VisibleRows(), ruler.VisibleRows()) << grid.Text();
    const auto places = layout.Columns();
    ASSERT_TRUE(places == ruler.Columns()) << grid.Text();
    const std::vector<int> tops = ruler.Tops();
    // One row of each grid: over so many grids it is every one.
    const int nth = i % static_cast<int>(tops.size() - 1);
    const std::int64_t row = std::int64_t{measures.top_index} + nth;
    ASSERT_TRUE(layout.IsShown(row)) << grid.Text();
    const PixelRect expected{measures.client.left, tops[static_cast<std::size_t>(nth)], measures.client.right,
                             tops[static_cast<std::size_t>(nth) + 1] + 1};
    ASSERT_EQ(layout.Row(row), expected) << grid.Text() << Text(layout.Row(row));
    // One pixel of each picture.
    const PixelRect& client = measures.client;
    if (!client.empty()) {
      const PixelPoint pixel{client.left + i % client.width(), client.top + i / 7 % client.height()};
      const bool in_rows = pixel.y < tops.back() + 1;
      const bool in_cell = std::ranges::any_of(places, [&](const Place& place) {
        return pixel.x >= place.left && pixel.x <= place.left + place.width;
      });
      ASSERT_TRUE((in_rows && in_cell) || layout.Uncovered(places).Contains(pixel)) << grid.Text();
    }
    for (const Place& place : places) {
      const PixelRect cell{place.left, expected.top, place.left + place.width + 1, expected.bottom};
      ASSERT_EQ(layout.Cell(row, place), cell) << grid.Text();
    }
  }
}

}  // namespace
}  // namespace levelwidgets
