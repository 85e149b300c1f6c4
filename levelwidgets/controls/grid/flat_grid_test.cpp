// FlatGrid: values, persistence, rows and their errors.
#include <levelwidgets/controls/grid/flat_grid_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> GridNamesIn(const PropertyBag& bag) {
  std::vector<std::string> names;
  for (const auto& entry : bag.Entries()) names.push_back(entry.name);
  return names;
}

void ExpectGridDefaults(const FlatGrid& grid, Form& form) {
  EXPECT_FALSE(grid.AllowEdits());
  EXPECT_TRUE(grid.Enabled());
  EXPECT_EQ(grid.GetFont()->Description(), form.GetFont()->Description());
  EXPECT_EQ(grid.BackColorHeader(), Color(0xDEE7EF));
  EXPECT_EQ(grid.BackColorSelected(), Color(0xC6F3FF));
  EXPECT_EQ(grid.BackColorRowOdd(), Color(0xFFFFFF));
  EXPECT_EQ(grid.BackColorRowEven(), Color(0xEFF7F7));
  EXPECT_EQ(grid.BorderColor(), Color(0xB5BEC6));
  EXPECT_EQ(grid.ForeColorHeader(), Color());
  EXPECT_EQ(grid.ForeColorSelected(), Color());
  EXPECT_EQ(grid.ForeColorRowEven(), Color());
  EXPECT_EQ(grid.ForeColorRowOdd(), Color());
  EXPECT_TRUE(grid.HideSelection());
  EXPECT_EQ(grid.RowHeight(), Twips(225));
  EXPECT_EQ(grid.RowCount(), 10);
  EXPECT_FALSE(grid.ShowCellFocus());
  EXPECT_TRUE(grid.ShowColumnHeaders());
  EXPECT_TRUE(grid.ShowGridLines());
  EXPECT_EQ(grid.TopIndex(), 1);
  EXPECT_EQ(grid.RowIndex(), 1);
  EXPECT_EQ(grid.Appearance(), ksxFlat);
  EXPECT_EQ(grid.Columns()->Count(), 0);
  EXPECT_TRUE(grid.hWnd());
}

using FlatGridTest = GridTest;

// --- Defaults and persistence --------------------------------------------------------------------------

TEST_F(FlatGridTest, ANewGridHasItsDefaults) { ExpectGridDefaults(AddNew<FlatGrid>("grdMain"), TheForm()); }

TEST_F(FlatGridTest, ALoadedGridWithoutSavedValuesHasTheSameDefaults) {
  ExpectGridDefaults(AddLoaded<FlatGrid>("grdMain"), TheForm());
}

TEST_F(FlatGridTest, AGridSavedUnchangedStoresNothing) {
  EXPECT_THAT(GridNamesIn(Hosted(AddNew<FlatGrid>("grdNew")).Properties()), IsEmpty());
  EXPECT_THAT(GridNamesIn(Hosted(AddLoaded<FlatGrid>("grdLoaded")).Properties()), IsEmpty());
}

TEST_F(FlatGridTest, EveryChangedPropertyIsStoredInItsOrderAndComesBack) {
  FlatGrid& grid = GridOf({900});
  grid.SetAllowEdits(true);
  grid.SetEnabled(false);
  grid.SetFont(MakeFont({.name = "Tahoma", .size = 12}));
  grid.SetBackColorHeader(Color(1));
  grid.SetBackColorSelected(Color(2));
  grid.SetBackColorRowOdd(Color(3));
  grid.SetBackColorRowEven(Color(4));
  grid.SetBorderColor(Color(5));
  grid.SetForeColorHeader(Color(6));
  grid.SetForeColorSelected(Color(7));
  grid.SetForeColorRowEven(Color(8));
  grid.SetForeColorRowOdd(Color(9));
  grid.SetHideSelection(false);
  grid.SetRowHeight(Twips(300));
  grid.SetRowCount(100);
  grid.SetShowCellFocus(true);
  grid.SetShowColumnHeaders(false);
  grid.SetShowGridLines(false);
  grid.SetTopIndex(20);
  grid.SetRowIndex(22);
  const PropertyBag bag = Hosted(grid).Properties();
  EXPECT_THAT(GridNamesIn(bag),
              ElementsAre("AllowEdits", "Enabled", "Font", "BackColorHeader", "BackColorSelected",
                          "BackColorRowOdd", "BackColorRowEven", "BorderColor", "ForeColorHeader",
                          "ForeColorSelected", "ForeColorRowEven", "ForeColorRowOdd", "HideSelection",
                          "RowHeight", "RowCount", "ShowCellFocus", "ShowColumnHeaders", "ShowGridLines",
                          "TopIndex", "RowIndex", "ColumnCount", "Column1Caption", "Column1Width",
                          "Column1HeaderAlignment", "Column1EditType"));
  for (const char* name : {"RowHeight", "RowCount", "TopIndex", "RowIndex", "ColumnCount"}) {
    EXPECT_EQ(bag.Find(name)->Type(), VariantType::kInt16) << name;
  }
  auto& loaded = AddLoaded<FlatGrid>("grdLoaded", bag, {Twips(600), Twips(2000)}, kGridSize);
  EXPECT_EQ(GridNamesIn(Hosted(loaded).Properties()), GridNamesIn(bag));
  EXPECT_EQ(loaded.TopIndex(), 20) << "no scroll bar has reset it";
  EXPECT_EQ(loaded.RowIndex(), 22);
  EXPECT_EQ(loaded.RowCount(), 100);
  EXPECT_EQ(loaded.BackColorRowEven(), Color(4));
  EXPECT_EQ(loaded.Columns()->Item(1)->Width(), 900);
  EXPECT_EQ(loaded.RowData(100, 1), "");
}

TEST_F(FlatGridTest, ALoadedRowIndexIsKeptAsItWasSavedAndNobodyIsNotified) {
  PropertyBag bag;
  bag.WriteProperty("RowIndex", std::int16_t{500}, Variant());
  bag.WriteProperty("RowCount", std::int16_t{0}, Variant());
  auto& grid = AddLoaded<FlatGrid>("grdMain", bag);
  EXPECT_EQ(grid.RowIndex(), 500);
  EXPECT_EQ(grid.RowCount(), 0);
}

TEST_F(FlatGridTest, AHundredColumnsAreLoaded) {
  PropertyBag bag;
  bag.WriteProperty("ColumnCount", std::int16_t{100}, Variant());
  auto& grid = AddLoaded<FlatGrid>("grdMain", bag);
  EXPECT_EQ(grid.Columns()->Count(), 100);
  grid.SetRowData(10, 100, "the last one");
  EXPECT_EQ(grid.RowData(10, 100), "the last one");
}

// --- Cells -----------------------------------------------------------------------------------------------

TEST_F(FlatGridTest, CellsOutsideTheGridAreRefusedRowFirst) {
  FlatGrid& grid = GridOf({900, 900});
  EXPECT_EQ(ErrorOf([&] { grid.RowData(0, 1); }), kInvalidRowNumber);
  EXPECT_EQ(ErrorOf([&] { grid.RowData(11, 3); }), kInvalidRowNumber);
  EXPECT_EQ(ErrorOf([&] { grid.RowData(1, 0); }), kInvalidColumnNumber);
  EXPECT_EQ(ErrorOf([&] { grid.SetRowData(1, 3, "x"); }), kInvalidColumnNumber);
  grid.SetRowData(10, 2, "x");
  EXPECT_EQ(grid.RowData(10, 2), "x");
}

TEST_F(FlatGridTest, CellsAreReachedByName) {
  FlatGrid& grid = GridOf({900, 900});
  SetIndexedByName(grid, "RowData", std::vector<Variant>{3, 1}, "17.50");
  EXPECT_EQ(GetIndexedByName(grid, "RowData", std::vector<Variant>{3, 1}), Variant("17.50"));
  std::vector<Variant> arguments{950.0f, 300.0f, Variant()};
  EXPECT_EQ(InvokeByReference(grid, "HitTest", arguments), Variant(1));
  EXPECT_EQ(arguments[2], Variant(2));
}

TEST_F(FlatGridTest, AddingRemovingAndClearingColumnsEmptiesAllCells) {
  FlatGrid& grid = GridOf({900, 900});
  grid.SetRowData(1, 1, "x");
  grid.Columns()->Add("C");
  EXPECT_EQ(grid.RowData(1, 1), "");
  grid.SetRowData(1, 1, "x");
  grid.Columns()->Remove(3);
  EXPECT_EQ(grid.RowData(1, 1), "");
  grid.SetRowData(1, 1, "x");
  grid.Columns()->Item(1)->SetCaption("another");
  EXPECT_EQ(grid.RowData(1, 1), "x") << "a caption is no structure";
}

// --- Rows ------------------------------------------------------------------------------------------------

TEST_F(FlatGridTest, RowCountKeepsTheRowsThatRemainAndSelectsTheFirst) {
  FlatGrid& grid = GridOf({900});
  grid.SetRowData(3, 1, "three");
  grid.SetRowData(9, 1, "nine");
  grid.SetRowIndex(9);
  Watch(grid);
  grid.SetRowCount(5);
  EXPECT_EQ(grid.RowIndex(), 1);
  EXPECT_EQ(grid.RowData(3, 1), "three");
  grid.SetRowCount(9);
  EXPECT_EQ(grid.RowData(9, 1), "");
  Journal notices = TakeJournal();
  std::erase(notices, "paint");
  EXPECT_THAT(notices, ElementsAre("PropertyChanged(RowCount)", "PropertyChanged(RowCount)"));
}

TEST_F(FlatGridTest, WithoutRowsOrColumnsNoRowIsSelectedOnceRowCountIsWritten) {
  EXPECT_EQ(Grid().RowIndex(), 1);
  Grid().SetRowCount(5);
  EXPECT_EQ(Grid().RowIndex(), 0) << "no column";
  GridOf({900}).SetRowCount(5);
  EXPECT_EQ(Grid().RowIndex(), 1);
  Grid().SetRowCount(0);
  EXPECT_EQ(Grid().RowIndex(), 0);
}

TEST_F(FlatGridTest, ANegativeRowCountIsRefusedAndChangesNothing) {
  FlatGrid& grid = GridOf({900});
  grid.SetRowIndex(4);
  try {
    grid.SetRowCount(-1);
    FAIL() << "-1 rows";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), kInvalidRowCountNumber);
    EXPECT_EQ(error.Source(), "LevelWidgets.FlatGrid");
    EXPECT_EQ(error.Description(), "Invalid RowCount");
  }
  EXPECT_EQ(grid.RowCount(), 10);
  EXPECT_EQ(grid.RowIndex(), 4);
}

TEST_F(FlatGridTest, ARowIndexOutsideTheRowsIsRefused) {
  FlatGrid& grid = GridOf({900});
  for (const std::int32_t row : {0, 11, -1}) {
    try {
      grid.SetRowIndex(row);
      FAIL() << row;
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), kInvalidColumnNumber);
      EXPECT_EQ(error.Description(), "Invalid RowIndex");
    }
  }
  EXPECT_EQ(grid.RowIndex(), 1);
}

TEST_F(FlatGridTest, AnotherRowIndexNotifiesThenRaisesRowColChange) {
  FlatGrid& grid = GridOf({900});
  Watch(grid);
  grid.SetRowIndex(3);
  EXPECT_THAT(TakeJournal(), ElementsAre("PropertyChanged(RowIndex)", "RowColChange(1, 1)"));
  grid.SetRowIndex(3);
  EXPECT_THAT(TakeJournal(), IsEmpty());
}

TEST_F(FlatGridTest, TopIndexIsBroughtBackSoThatTheLastPageStaysFull) {
  FlatGrid& grid = GridOf({900});
  grid.SetRowCount(100);
  grid.SetTopIndex(99);
  EXPECT_EQ(grid.TopIndex(), 95);  // 100 - 7 + 2
  grid.SetRowCount(3);
  EXPECT_EQ(grid.TopIndex(), 1);
}

TEST_F(FlatGridTest, TwoThousandMillionRowsCanBeSelectedAndWritten) {
  constexpr std::int32_t kMost = 2147483647;
  FlatGrid& grid = GridOf({900});
  grid.SetRowCount(kMost);
  grid.OnPaint();
  grid.SetRowIndex(kMost);
  grid.SetRowData(kMost, 1, "the last one");
  EXPECT_EQ(grid.RowData(kMost, 1), "the last one");
  EXPECT_EQ(grid.TopIndex(), kMost - 7) << "as far as a scroll bar goes";
  Focus();
  Driver().Key(kKeyPageUp);
  EXPECT_EQ(grid.RowIndex(), kMost - 5);
  Driver().Key(kKeyHome);
  EXPECT_EQ(grid.TopIndex(), 1);
}

TEST_F(FlatGridTest, ColumnsThatOutliveTheGridNotifyNobody) {
  const auto columns = GridOf({900}).Columns();
  TheForm().Remove("grdMain");
  columns->Add("B");
  columns->Item(1)->SetWidth(5);
  EXPECT_EQ(columns->Count(), 2);
}

}  // namespace
}  // namespace levelwidgets::testing
