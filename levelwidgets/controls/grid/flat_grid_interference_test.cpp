// FlatGrid: listeners that do anything, at any of its events, also while a cell is edited.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/grid/flat_grid_edit_fixture.h>
#include <levelwidgets/testing/interference.h>

#include <algorithm>

namespace levelwidgets::testing {
namespace {

class FlatGridInterferenceTest : public InterferenceTest<GridEditTest> {
 protected:
  void Do(Deed deed, Control& control) override {
    auto& grid = dynamic_cast<FlatGrid&>(control);
    switch (deed) {
      case Deed::kTakeRows: grid.SetRowCount(grid.RowCount() == 1 ? 1000000 : 1); break;
      case Deed::kTakeColumns: grid.Columns()->Clear(); break;
      case Deed::kForbidEdits: grid.SetAllowEdits(false); break;
      default: InterferenceTest::Do(deed, control);
    }
  }

  FlatGrid& Make() {
    MakeForm({});
    AddNew<FlatButton>("next", {Twips(600), Twips(3000)});
    grid_ = &AddNew<FlatGrid>("grdUsed", {Twips(600), Twips(300)}, {Twips(4500), Twips(1500)});
    grid_->SetAllowEdits(true);
    grid_->SetShowCellFocus(true);
    grid_->SetRowCount(30);
    for (const auto type : {ksxEditText, ksxEditCalculator, ksxEditCalendar, ksxEditDropDown}) {
      grid_->Columns()->Add("column", 900, ksxLeft, ksxLeft, type, true)->ValueList()->Add("value");
    }
    TheForm().Find("next")->SetFocus();
    Driver().Settle();
    return *grid_;
  }

  void ClickIn(int x, int y) {
    Try([&] { Driver().Click(ScreenPoint(*grid_, PixelPoint{x, y})); });
  }
  void Key(int code) {
    Try([&] { Driver().Key(code); });
  }
  void Type(const char* text) {
    Try([&] { Driver().Type(text); });
  }

  void UseEverything() {
    Try([&] { Hosted(*grid_).SetFocus(); });
    Key(kKeyF2);
    Type("ab");
    Key(kKeyEnter);
    Key(kKeyDown);
    Key(kKeyF2);
    Type("c");
    Key(kKeyDown);
    Type("d");
    Key(kKeyRight);
    Type("4");
    Key(kKeyRight);
    Type("1/2/2026");
    Key(kKeyRight);
    Key(kKeyF4);
    Key(kKeyDown);
    Key(kKeyEnter);
    ClickIn(20, 50);
    ClickIn(40, 50);
    Type("e");
    ClickIn(20, 5);
    Try([&] { Driver().DoubleClick(ScreenPoint(*grid_, PixelPoint{80, 36})); });
    Type(" ");
    Type("7");
    Key(kKeyEscape);
    Key(kKeyPageDown);
    Try([&] { Driver().Wheel(1); });
    Key(kKeyF2);
    Type("8");
    Try([&] { grid_->SetRowIndex(std::min(3, grid_->RowCount())); });
    Try([&] { grid_->SetRowCount(20); });
    Try([&] {
      if (grid_->Columns()->Count() > 0) grid_->SetRowData(1, 1, "text");
    });
    Try([&] { grid_->SetEnabled(true); });
    Key(kKeyF2);
    Type("9");
    Key(kKeyTab);
  }

 private:
  FlatGrid* grid_ = nullptr;
};

TEST_P(FlatGridInterferenceTest, LeavesTheGridWholeOrGone) {
  DoItAtEachTime(
      60, [&]() -> Control& { return Make(); }, [&] { UseEverything(); });
}

INSTANTIATE_TEST_SUITE_P(Events, FlatGridInterferenceTest,
                         ::testing::ValuesIn(EachOf(
                             {Deed::kRemove, Deed::kCloseForm, Deed::kRaise, Deed::kHide, Deed::kDisable,
                              Deed::kMoveFocus, Deed::kTakeRows, Deed::kTakeColumns, Deed::kForbidEdits},
                             {"AfterCellEdit", "AfterRowEdit", "BeforeCellEdit", "Click", "ColumnHeaderClick",
                              "DblClick", "KeyDown", "KeyPress", "KeyUp", "MouseDown", "MouseMove", "MouseUp",
                              "RowColChange", "PropertyChanged", "GotFocus", "LostFocus"})),
                         NameOfInterference);

}  // namespace
}  // namespace levelwidgets::testing
