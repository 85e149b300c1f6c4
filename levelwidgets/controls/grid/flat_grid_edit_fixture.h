// A grid whose cells are edited, for its tests.
#pragma once

#include <string>

#include <levelwidgets/controls/grid/cell_editor.h>
#include <levelwidgets/controls/grid/flat_grid_fixture.h>

namespace levelwidgets::testing {

inline std::string NameOfEditType(ksxEditTypeConstants type) {
  switch (type) {
    case ksxEditCalculator: return "Calculator";
    case ksxEditCalendar: return "Calendar";
    case ksxEditDropDown: return "DropDown";
    default: return "Text";
  }
}

// Two columns of 60 pixels. The cells of the first row begin at (0, 15) and (60, 15).
class GridEditTest : public GridTest {
 protected:
  // Its columns are of these types; it has the focus.
  FlatGrid& Editable(ksxEditTypeConstants first, ksxEditTypeConstants second = ksxEditText) {
    FlatGrid& grid = GridOf({900, 900});
    grid.SetAllowEdits(true);
    grid.Columns()->Item(1)->SetEditType(first);
    grid.Columns()->Item(2)->SetEditType(second);
    Focus();
    return grid;
  }
  // With the editor of the first cell open, which is watched from then on.
  FlatGrid& Opened(ksxEditTypeConstants first = ksxEditText, ksxEditTypeConstants second = ksxEditText) {
    FlatGrid& grid = Editable(first, second);
    Driver().Key(kKeyF2);
    Watch(grid);
    return grid;
  }
  // What of the journal is about editing.
  Journal Edits() {
    Journal journal = TakeJournal();
    std::erase_if(journal, [](const std::string& line) {
      return !line.starts_with("BeforeCellEdit") && !line.starts_with("AfterCellEdit") &&
             !line.starts_with("AfterRowEdit") && !line.starts_with("RowColChange");
    });
    return journal;
  }
  bool IsOpen() { return Grid().Editor() != nullptr; }
  std::string Typed() { return IsOpen() ? Grid().Editor()->Text() : "no editor"; }
  // In pixels of the grid.
  PixelRect EditorRect() {
    if (!IsOpen()) return {};
    PixelRect rect;
    Windows().GetWindowRect(Grid().Editor()->hWnd(), rect);
    PixelRect grid;
    Windows().GetWindowRect(Grid().hWnd(), grid);
    return {rect.left - grid.left, rect.top - grid.top, rect.right - grid.left, rect.bottom - grid.top};
  }
  // Of the open panel of the editor, in screen pixels.
  PixelRect PanelRect() {
    for (const TopLevelWindow& window : Driver().TopLevelWindows()) {
      if (Grid().Holds(window.handle)) return window.rect;
    }
    ADD_FAILURE() << "no panel is open";
    return {};
  }
  bool PictureHasFocus() { return Windows().GetFocus() == Grid().Picture().hWnd(); }
  bool EditorHasFocus() { return IsOpen() && Grid().Editor()->Holds(Windows().GetFocus()); }
  void ClickAt(int x, int y) { Driver().Click(ScreenPoint(Grid(), PixelPoint{x, y})); }
  void LeaveToAnotherControl() {
    TheForm().Find("grdFirst")->SetFocus();
    Driver().Settle();
  }
  // The caret, in characters from 0, without a selection.
  void PutCaret(std::int32_t at) {
    if (IsOpen()) Grid().Editor()->Edit().Select(at, 0);
  }
};

}  // namespace levelwidgets::testing
