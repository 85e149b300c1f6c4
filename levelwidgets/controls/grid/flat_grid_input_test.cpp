// FlatGrid: the keyboard and the pointer.
#include <levelwidgets/controls/grid/flat_grid_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FlatGridInputTest : public GridTest {
 protected:
  // Two visible columns of 60 pixels with a hidden one of 60 between them; watched, with the focus.
  FlatGrid& Watched() {
    FlatGrid& grid = GridOf({900, 900, 900});
    grid.Columns()->Item(2)->SetVisible(false);
    Focus();
    Watch(grid);
    return grid;
  }
  // The journal without the grid's own repaints, which the tests of painting are about.
  Journal Taken() {
    Journal journal = TakeJournal();
    std::erase(journal, "paint");
    return journal;
  }
  void ClickAt(int x, int y) { Driver().Click(ScreenPoint(Grid(), PixelPoint{x, y})); }
};

// --- Keys ------------------------------------------------------------------------------------------------

TEST_F(FlatGridInputTest, KeysMoveTheRowThenRaiseKeyDown) {
  FlatGrid& grid = Watched();
  Driver().Key(kKeyDown);
  EXPECT_THAT(Taken(), ElementsAre("PropertyChanged(RowIndex)", "RowColChange(1, 1)", "KeyDown(40, 0)",
                                   "KeyUp(40, 0)"));
  Driver().Key(kKeyEnd);
  EXPECT_EQ(grid.RowIndex(), 10);
  Driver().Key(kKeyPageUp);
  EXPECT_EQ(grid.RowIndex(), 5);
  Driver().Key(kKeyPageDown);
  EXPECT_EQ(grid.RowIndex(), 10) << "the last row exactly";
  Driver().Key(kKeyHome);
  EXPECT_EQ(grid.RowIndex(), 1);
}

TEST_F(FlatGridInputTest, BlockedMovesStillRaiseKeyDown) {
  Watched();
  Driver().Key(kKeyUp);
  EXPECT_THAT(Taken(), ElementsAre("KeyDown(38, 0)", "KeyUp(38, 0)"));
}

TEST_F(FlatGridInputTest, RightOnTheLastVisibleColumnWrapsWithoutAnEvent) {
  FlatGrid& grid = Watched();
  Driver().Key(kKeyRight);
  Driver().Key(kKeyRight);
  EXPECT_THAT(Taken(), ElementsAre("KeyDown(39, 0)", "KeyUp(39, 0)", "KeyDown(39, 0)", "KeyUp(39, 0)"));
  Driver().Key(kKeyLeft);
  Taken();
  Driver().Key(kKeyDown);
  EXPECT_EQ(Taken().at(1), "RowColChange(1, 3)") << "over the hidden column to the last";
  EXPECT_EQ(grid.RowIndex(), 2);
}

TEST_F(FlatGridInputTest, WithoutAVisibleColumnLeftAndRightEnd) {
  FlatGrid& grid = Watched();
  for (std::int32_t column = 1; column <= 3; ++column) grid.Columns()->Item(column)->SetVisible(false);
  Taken();
  Driver().Key(kKeyRight);
  EXPECT_THAT(Taken(), ElementsAre("KeyDown(39, 0)", "KeyUp(39, 0)"));
}

TEST_F(FlatGridInputTest, CharactersArePassedOn) {
  Watched();
  Driver().Type("a");
  EXPECT_THAT(Taken(), ElementsAre("KeyDown(65, 0)", "KeyPress(97)", "KeyUp(65, 0)"));
}

// --- Pointer ---------------------------------------------------------------------------------------------

TEST_F(FlatGridInputTest, AClickOnACellMakesItTheCurrentOne) {
  FlatGrid& grid = Watched();
  ClickAt(70, 35);
  EXPECT_EQ(grid.RowIndex(), 2);
  EXPECT_THAT(Taken(),
              ElementsAre("MouseMove(0, 0, 1050, 525)", "PropertyChanged(RowIndex)", "RowColChange(1, 3)",
                          "MouseDown(1, 0, 1050, 525)", "MouseUp(1, 0, 1050, 525)", "Click()"));
}

TEST_F(FlatGridInputTest, AClickOnAnotherColumnOfTheRowRaisesNoRowColChange) {
  Watched();
  ClickAt(70, 20);
  EXPECT_THAT(Taken(), ElementsAre("MouseMove(0, 0, 1050, 300)", "MouseDown(1, 0, 1050, 300)",
                                   "MouseUp(1, 0, 1050, 300)", "Click()"));
}

TEST_F(FlatGridInputTest, AClickBelowTheRowsRaisesNoMouseDown) {
  FlatGrid& grid = Watched();
  grid.SetRowCount(2);
  Taken();
  ClickAt(70, 80);
  EXPECT_THAT(Taken(), ElementsAre("MouseMove(0, 0, 1050, 1200)", "MouseUp(1, 0, 1050, 1200)", "Click()"));
}

TEST_F(FlatGridInputTest, AClickRightOfTheColumnsMovesNothing) {
  FlatGrid& grid = Watched();
  ClickAt(200, 35);
  EXPECT_EQ(grid.RowIndex(), 1);
  EXPECT_THAT(Taken(), ElementsAre("MouseMove(0, 0, 3000, 525)", "MouseDown(1, 0, 3000, 525)",
                                   "MouseUp(1, 0, 3000, 525)", "Click()"));
}

TEST_F(FlatGridInputTest, AHeaderClickCountsHiddenColumns) {
  Watched();
  ClickAt(70, 5);
  EXPECT_THAT(Taken(), ElementsAre("MouseMove(0, 0, 1050, 75)", "ColumnHeaderClick(2)",
                                   "MouseDown(1, 0, 1050, 75)", "MouseUp(1, 0, 1050, 75)", "Click()"));
  ClickAt(200, 5);
  EXPECT_EQ(Taken().at(1), "MouseDown(1, 0, 3000, 75)") << "right of all columns";
}

TEST_F(FlatGridInputTest, WithoutColumnsAHeaderClickRaisesNoMouseDown) {
  Watch(Grid());
  ClickAt(70, 5);
  const Journal journal = Taken();
  EXPECT_THAT(journal, ::testing::Not(::testing::Contains(::testing::StartsWith("MouseDown"))));
  EXPECT_THAT(journal, ::testing::Contains("Click()"));
}

TEST_F(FlatGridInputTest, APressGivesTheGridTheFocus) {
  FlatGrid& grid = GridOf({900});
  ClickAt(200, 80);
  EXPECT_EQ(Driver().GetPlatform().Windows().GetFocus(), grid.Picture().hWnd());
}

// --- Wheel -----------------------------------------------------------------------------------------------

TEST_F(FlatGridInputTest, TheWheelScrollsByThreeRowsAsFarAsTheBarGoes) {
  FlatGrid& grid = Watched();
  grid.SetRowCount(20);
  grid.OnPaint();
  Driver().MovePointer(ScreenPoint(grid, PixelPoint{70, 35}));
  Driver().Wheel(-1);
  EXPECT_EQ(grid.TopIndex(), 4);
  Driver().Wheel(-2);
  EXPECT_EQ(grid.TopIndex(), 10);
  Driver().Wheel(1);
  EXPECT_EQ(grid.TopIndex(), 7);
  Driver().Wheel(-10);
  EXPECT_EQ(grid.TopIndex(), 15);
  Driver().Wheel(10);
  EXPECT_EQ(grid.TopIndex(), 1);
  EXPECT_EQ(grid.RowIndex(), 1) << "scrolling selects nothing";
}

TEST_F(FlatGridInputTest, TheWheelDoesNothingWhereAllRowsAreInView) {
  FlatGrid& grid = Watched();
  grid.SetRowCount(3);
  Driver().MovePointer(ScreenPoint(grid, PixelPoint{70, 35}));
  Driver().Wheel(-1);
  EXPECT_EQ(grid.TopIndex(), 1);
}

}  // namespace
}  // namespace levelwidgets::testing
