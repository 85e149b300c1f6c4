#include <levelwidgets/controls/grid/grid_move.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include <levelwidgets/controls/grid/random_grid_fixture.h>
#include <levelwidgets/testing/rounds.h>

namespace levelwidgets {
namespace {

using Then = GridStep::Then;

constexpr std::int32_t kMost32 = std::numeric_limits<std::int32_t>::max();
constexpr GridColumn kFive[] = {{900, false}, {900, true}, {900, false}, {900, true}, {900, false}};

// Twenty rows of five columns, of which the second and the fourth are visible; a page is 4 rows.
GridPosition At(std::int32_t row, std::int32_t column = 2) {
  GridPosition position;
  position.current = {row, column};
  position.row_count = 20;
  position.visible_rows = 6;
  position.columns = kFive;
  return position;
}

// The row that is selected; 0 for a blocked move.
std::int32_t RowAfter(GridMove move, const GridPosition& position) {
  const auto step = StepFor(move, position);
  if (!step) return 0;
  EXPECT_EQ(step->then, Then::kSelectRow);
  EXPECT_EQ(step->cell.column, position.current.column);
  return step->cell.row;
}

TEST(GridMoveTest, RowsMoveByOneByAPageAndToTheEnds) {
  const struct {
    GridMove move;
    std::int32_t row;
    std::int32_t after;
  } cases[] = {{GridMove::kUp, 1, 0},         {GridMove::kUp, 2, 1},         {GridMove::kUp, 20, 19},
               {GridMove::kDown, 1, 2},       {GridMove::kDown, 19, 20},     {GridMove::kDown, 20, 0},
               {GridMove::kPageUp, 1, 0},     {GridMove::kPageUp, 2, 1},     {GridMove::kPageUp, 5, 1},
               {GridMove::kPageUp, 6, 2},     {GridMove::kPageUp, 20, 16},   {GridMove::kPageDown, 1, 5},
               {GridMove::kPageDown, 15, 19}, {GridMove::kPageDown, 16, 20}, {GridMove::kPageDown, 17, 20},
               {GridMove::kPageDown, 20, 0},  {GridMove::kHome, 1, 0},       {GridMove::kHome, 20, 1},
               {GridMove::kEnd, 20, 0},       {GridMove::kEnd, 1, 20}};
  for (const auto& c : cases) {
    EXPECT_EQ(RowAfter(c.move, At(c.row)), c.after) << static_cast<int>(c.move) << " from " << c.row;
  }
}

TEST(GridMoveTest, WithoutRowsEveryMoveOfTheRowIsBlocked) {
  GridPosition position = At(0);
  position.row_count = 0;
  for (const GridMove move : {GridMove::kUp, GridMove::kDown, GridMove::kPageUp, GridMove::kPageDown,
                              GridMove::kHome, GridMove::kEnd}) {
    EXPECT_FALSE(StepFor(move, position)) << static_cast<int>(move);
  }
}

TEST(GridMoveTest, FromNoRowDownHomeAndEndFindOne) {
  EXPECT_EQ(RowAfter(GridMove::kDown, At(0)), 1);
  EXPECT_EQ(RowAfter(GridMove::kHome, At(0)), 1);
  EXPECT_EQ(RowAfter(GridMove::kEnd, At(0)), 20);
  EXPECT_EQ(RowAfter(GridMove::kUp, At(0)), 0);
}

TEST(GridMoveTest, FromALoadedRowThatDoesNotExistOnlyMovesToOnesThatDoAreMade) {
  EXPECT_EQ(RowAfter(GridMove::kUp, At(500)), 0);
  EXPECT_EQ(RowAfter(GridMove::kPageUp, At(500)), 0);
  EXPECT_EQ(RowAfter(GridMove::kUp, At(21)), 20);
  EXPECT_EQ(RowAfter(GridMove::kEnd, At(500)), 20);
  EXPECT_EQ(RowAfter(GridMove::kHome, At(500)), 1);
  EXPECT_EQ(RowAfter(GridMove::kDown, At(500)), 0);
  EXPECT_EQ(RowAfter(GridMove::kDown, At(-5)), 0);
}

TEST(GridMoveTest, APageOfNoRowsStaysAndOneOfFewerTurnsBackward) {
  GridPosition position = At(5);
  position.visible_rows = 2;
  EXPECT_EQ(RowAfter(GridMove::kPageDown, position), 5);
  EXPECT_EQ(RowAfter(GridMove::kPageUp, position), 5);
  position.visible_rows = 1;
  EXPECT_EQ(RowAfter(GridMove::kPageDown, position), 4);
  EXPECT_EQ(RowAfter(GridMove::kPageUp, position), 6);
  position.current.row = 1;
  EXPECT_EQ(RowAfter(GridMove::kPageDown, position), 0) << "there is no row 0";
  position.current.row = 20;
  EXPECT_EQ(RowAfter(GridMove::kPageUp, position), 0) << "there is no row 21";
}

TEST(GridMoveTest, LeftAndRightGoRoundOverTheVisibleColumnsOfTheRow) {
  const struct {
    GridMove move;
    std::int32_t from;
    std::int32_t to;
  } cases[] = {{GridMove::kRight, 2, 4}, {GridMove::kRight, 4, 2},  {GridMove::kRight, 1, 2},
               {GridMove::kRight, 5, 2}, {GridMove::kLeft, 4, 2},   {GridMove::kLeft, 2, 4},
               {GridMove::kLeft, 5, 4},  {GridMove::kLeft, 1, 4},   {GridMove::kLeft, 0, 4},
               {GridMove::kRight, 0, 2}, {GridMove::kRight, 99, 2}, {GridMove::kLeft, 99, 4}};
  for (const auto& c : cases) {
    const GridStep expected{{7, c.to}, Then::kRepaintRow};
    EXPECT_EQ(StepFor(c.move, At(7, c.from)), expected) << static_cast<int>(c.move) << " from " << c.from;
  }
}

TEST(GridMoveTest, FromAColumnThatNoLongerExistsTheLastOneCounts) {
  constexpr GridColumn kThree[] = {{900, true}, {900, true}, {900, true}};
  GridPosition position = At(3, kMost32);
  position.columns = kThree;
  EXPECT_EQ(StepFor(GridMove::kLeft, position), (GridStep{{3, 2}, Then::kRepaintRow}));
  EXPECT_EQ(StepFor(GridMove::kRight, position), (GridStep{{3, 1}, Then::kRepaintRow}));
}

TEST(GridMoveTest, WithOneVisibleColumnItIsRepainted) {
  constexpr GridColumn kOne[] = {{900, true}, {900, false}};
  GridPosition position = At(3, 1);
  position.columns = kOne;
  EXPECT_EQ(StepFor(GridMove::kRight, position), (GridStep{{3, 1}, Then::kRepaintRow}));
  EXPECT_EQ(StepFor(GridMove::kLeft, position), (GridStep{{3, 1}, Then::kRepaintRow}));
}

TEST(GridMoveTest, WithoutAVisibleColumnLeftAndRightAreBlocked) {
  constexpr GridColumn kHidden[] = {{900, false}, {900, false}};
  GridPosition position = At(3, 1);
  position.columns = kHidden;
  EXPECT_FALSE(StepFor(GridMove::kRight, position));
  EXPECT_FALSE(StepFor(GridMove::kLeft, position));
  position.columns = {};
  EXPECT_FALSE(StepFor(GridMove::kRight, position));
  EXPECT_FALSE(StepFor(GridMove::kLeft, position));
}

TEST(GridMoveTest, GoingToACellSelectsItsRowOrRepaintsEverything) {
  const GridPosition from = At(7, 2);
  EXPECT_EQ(StepFor(GridMove::kGoToCell, from, {9, 2}), (GridStep{{9, 2}, Then::kSelectRow}));
  EXPECT_EQ(StepFor(GridMove::kGoToCell, from, {9, 4}), (GridStep{{9, 4}, Then::kSelectRow}));
  EXPECT_EQ(StepFor(GridMove::kGoToCell, from, {7, 4}), (GridStep{{7, 4}, Then::kRepaintAll}));
  EXPECT_EQ(StepFor(GridMove::kGoToCell, from, {7, 3}), (GridStep{{7, 3}, Then::kRepaintAll}))
      << "a hidden column";
}

TEST(GridMoveTest, GoingToTheCurrentCellOrOutsideTheGridIsBlocked) {
  const GridPosition from = At(7, 2);
  for (const GridCell target : {GridCell{7, 2}, {0, 2}, {21, 2}, {-1, 2}, {8, 0}, {8, 6}, {8, -1}, {0, 0}}) {
    EXPECT_FALSE(StepFor(GridMove::kGoToCell, from, target)) << target.row << " " << target.column;
  }
}

TEST(GridMoveTest, AtTheEndOf32BitsNothingOverflows) {
  GridPosition position = At(kMost32);
  position.row_count = kMost32;
  position.visible_rows = kMost32;
  EXPECT_EQ(RowAfter(GridMove::kDown, position), 0);
  EXPECT_EQ(RowAfter(GridMove::kPageUp, position), 2);
  position.current.row = kMost32 - 1;
  EXPECT_EQ(RowAfter(GridMove::kPageDown, position), kMost32);
  position.visible_rows = 1;
  position.current.row = kMost32;
  EXPECT_EQ(RowAfter(GridMove::kPageUp, position), 0);
}

TEST(GridMoveTest, EightKeysMove) {
  const std::pair<std::int16_t, GridMove> keys[] = {
      {38, GridMove::kUp},     {40, GridMove::kDown},     {37, GridMove::kLeft}, {39, GridMove::kRight},
      {33, GridMove::kPageUp}, {34, GridMove::kPageDown}, {36, GridMove::kHome}, {35, GridMove::kEnd}};
  int moves = 0;
  for (std::int16_t code = -10; code < 300; ++code) moves += MoveOfKey(code).has_value();
  EXPECT_EQ(moves, 8);
  for (const auto& [code, move] : keys) EXPECT_EQ(MoveOfKey(code), move) << code;
}

TEST(GridMoveTest, AnyMoveByKeyEndsTheEditingOfARowAndOneToACellOfTheSameRowDoesNot) {
  EXPECT_TRUE(EndsRowEdit(true, 0, 7));
  EXPECT_TRUE(EndsRowEdit(true, 8, 7));
  EXPECT_FALSE(EndsRowEdit(true, 7, 7));
  EXPECT_FALSE(EndsRowEdit(false, 8, 7));
  EXPECT_FALSE(EndsRowEdit(true, 0, 0)) << "a key without a selected row";
}

// --- Against another formulation -----------------------------------------------------------------------

// Lists all cells that a move may lead to, and takes the one that its rule singles out.
class ByLists {
 public:
  explicit ByLists(const GridPosition& position) : of_(position) {
    for (std::int32_t row = 1; row <= of_.row_count; ++row) rows_.push_back(row);
  }

  std::optional<GridStep> Step(GridMove move, GridCell target) const {
    const std::int32_t row = of_.current.row;
    const std::int32_t page = of_.visible_rows - 2;
    switch (static_cast<int>(move)) {
      case 0: return row > 1 ? Select(row - 1) : std::nullopt;
      case 1: return row < of_.row_count ? Select(row + 1) : std::nullopt;
      case 2: return Beside(true);
      case 3: return Beside(false);
      case 4:
        if (row < 2) return {};
        return row - page >= 1 ? Select(row - page) : Select(1);
      case 5:
        if (row >= of_.row_count) return {};
        return row + page <= of_.row_count ? Select(row + page) : Select(of_.row_count);
      case 6: return row == 1 ? std::nullopt : Select(1);
      case 7: return row == of_.row_count ? std::nullopt : Select(of_.row_count);
      default: return GoTo(target);
    }
  }

 private:
  std::optional<GridStep> Select(std::int32_t row) const {
    for (const std::int32_t there : rows_) {
      if (there == row) return GridStep{{row, of_.current.column}, Then::kSelectRow};
    }
    return {};
  }

  // The visible columns in the order in which the move comes by, the current one last.
  std::optional<GridStep> Beside(bool left) const {
    std::vector<std::int32_t> behind;
    std::vector<std::int32_t> before;
    for (std::size_t i = 0; i < of_.columns.size(); ++i) {
      if (!of_.columns[i].visible) continue;
      const auto column = static_cast<std::int32_t>(i + 1);
      (column > of_.current.column ? behind : before).push_back(column);
    }
    std::vector<std::int32_t> ring = behind;  // to the right of the current one, then from the first on to it
    ring.insert(ring.end(), before.begin(), before.end());
    if (ring.empty()) return {};
    std::size_t chosen = 0;
    if (left) {
      const bool at_visible = ring.back() == of_.current.column;
      chosen = at_visible && ring.size() > 1 ? ring.size() - 2 : ring.size() - 1;
    }
    return GridStep{{of_.current.row, ring[chosen]}, Then::kRepaintRow};
  }

  std::optional<GridStep> GoTo(GridCell target) const {
    for (const std::int32_t row : rows_) {
      for (std::size_t i = 1; i <= of_.columns.size(); ++i) {
        const GridCell cell{row, static_cast<std::int32_t>(i)};
        if (cell != target || cell == of_.current) continue;
        return GridStep{cell, row == of_.current.row ? Then::kRepaintAll : Then::kSelectRow};
      }
    }
    return {};
  }

  const GridPosition& of_;
  std::vector<std::int32_t> rows_;
};

TEST(GridMoveTest, AgreesWithListsOverAMillionRandomGrids) {
  RandomGrid grid(5);
  int steps = 0;
  for (int i = 0; i < testing::Rounds(1'000'000); ++i) {
    const GridMeasures& measures = grid.Next();
    const auto columns = static_cast<int>(measures.columns.size());
    GridPosition position;
    position.columns = measures.columns;
    position.row_count = measures.row_count;
    position.visible_rows = GridLayout(measures).VisibleRows();
    position.current.row =
        grid.OneIn(20) ? grid.UpTo(60) : (measures.row_count > 0 ? 1 + grid.UpTo(measures.row_count - 1) : 0);
    position.current.column = columns > 0 ? 1 + grid.UpTo(columns - 1) : 0;
    const auto move = static_cast<GridMove>(i % 9);
    const GridCell target{grid.UpTo(measures.row_count + 2) - 1, grid.UpTo(columns + 2) - 1};
    const auto step = StepFor(move, position, target);
    ASSERT_TRUE(step == ByLists(position).Step(move, target))
        << grid.Text() << "move " << i % 9 << " from " << position.current.row << ","
        << position.current.column << " to " << target.row << "," << target.column;
    if (!step) continue;
    ++steps;
    ASSERT_TRUE(step->then == Then::kRepaintRow ||
                (step->cell.row >= 1 && step->cell.row <= measures.row_count));
    ASSERT_TRUE(step->then != Then::kRepaintRow || (step->cell.column >= 1 && step->cell.column <= columns));
  }
  EXPECT_GT(steps, testing::Rounds(300'000));
}

}  // namespace
}  // namespace levelwidgets
