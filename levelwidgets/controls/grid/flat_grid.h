// A table of text cells with a header, a selected row and two flat scroll bars.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include <levelwidgets/controls/grid/flat_columns.h>
#include <levelwidgets/controls/grid/ksx_appearance.h>
#include <levelwidgets/frame/control_with.h>

namespace levelwidgets {

class CellEditor;
class PictureBox;
class FlatScroll;
struct GridCell;
enum class GridMove;

// Rows and columns count from 1. The grid keeps the texts of its cells; a change of the columns' number or
// order empties all of them. Only what is in view is formatted and painted, off the screen, and copied in one
// operation; a written cell and a selected row are painted straight onto the picture, each with its row
// alone.
//
// With AllowEdits the current cell is edited in place: Space, F2 or a click on it open the editor of its
// column. Enter, a move or a click stores what was typed once BeforeCellEdit has approved it; Escape and the
// loss of the focus do not. Arrows take the open editor along.
//
// Where no other is named, an error of a row or a column is 1003 "Invalid Row" or 1004 "Invalid Column".
class FlatGrid : public ControlWith<ClickEvents, DblClickEvents, PointerEvents> {
 public:
  static const ClassInfo& Table();
  explicit FlatGrid(std::shared_ptr<ControlSite> site);
  ~FlatGrid() override;

  // --- Properties -------------------------------------------------------------------------------
  // Setters repaint, then notify, unless they say otherwise.

  // Notifies; no repaint. Without it an open editor closes, and what was typed is not stored.
  bool AllowEdits() const { return allow_edits_; }
  void SetAllowEdits(bool allow);
  bool Enabled() const { return GetSurface().Enabled(); }
  void SetEnabled(bool enabled);
  FontRef GetFont() const { return GetSurface().GetFont(); }
  // Shares the font.
  void SetFont(FontRef font);
  // Fills of the header and of rows; the lines around them.
  Color BackColorHeader() const { return colors_.back_header; }
  void SetBackColorHeader(Color color);
  Color BackColorSelected() const { return colors_.back_selected; }
  void SetBackColorSelected(Color color);
  Color BackColorRowOdd() const { return colors_.back_row_odd; }
  void SetBackColorRowOdd(Color color);
  Color BackColorRowEven() const { return colors_.back_row_even; }
  void SetBackColorRowEven(Color color);
  Color BorderColor() const { return colors_.border; }
  void SetBorderColor(Color color);
  // Kept and saved; all texts are drawn in the container's text colour.
  Color ForeColorHeader() const { return colors_.fore_header; }
  void SetForeColorHeader(Color color);
  Color ForeColorSelected() const { return colors_.fore_selected; }
  void SetForeColorSelected(Color color);
  Color ForeColorRowEven() const { return colors_.fore_row_even; }
  void SetForeColorRowEven(Color color);
  Color ForeColorRowOdd() const { return colors_.fore_row_odd; }
  void SetForeColorRowOdd(Color color);
  // Whether the selected row looks like any other while the grid has no focus.
  bool HideSelection() const { return hide_selection_; }
  void SetHideSelection(bool hide);
  // Of every row and of the header, in twips. Any value; less than a pixel counts as one.
  Twips RowHeight() const { return row_height_; }
  void SetRowHeight(Twips height);
  // Raises 1005 "Invalid RowCount" below 0. Selects the first row without an event (none where there are no
  // rows or no columns), keeps the texts of the rows that remain, and notifies. Where rows are added only
  // they are repainted.
  std::int32_t RowCount() const { return row_count_; }
  void SetRowCount(std::int32_t count);
  // Whether the current cell has a focus frame while the grid has the focus.
  bool ShowCellFocus() const { return show_cell_focus_; }
  void SetShowCellFocus(bool show);
  bool ShowColumnHeaders() const { return show_column_headers_; }
  void SetShowColumnHeaders(bool show);
  bool ShowGridLines() const { return show_grid_lines_; }
  void SetShowGridLines(bool show);
  // The first row shown. Takes any number; painting brings it back so that the last page stays full.
  std::int32_t TopIndex() const { return top_index_; }
  void SetTopIndex(std::int32_t index);
  // The selected row. Raises 1004 "Invalid RowIndex" unless 1 <= index <= RowCount. Another row is scrolled
  // into view; then the grid notifies and raises RowColChange.
  std::int32_t RowIndex() const { return row_index_; }
  void SetRowIndex(std::int32_t index);
  // Kept; the grid is flat. Notifies; no repaint.
  ksxAppearanceConstants Appearance() const { return appearance_; }
  void SetAppearance(ksxAppearanceConstants appearance);
  const std::shared_ptr<FlatColumns>& Columns() const { return columns_; }
  // The text of a cell. A written cell in view is repainted at once; nobody is notified. Writing raises 7
  // (out of memory), and then nothing has changed.
  std::string RowData(std::int32_t row, std::int32_t column) const;
  void SetRowData(std::int32_t row, std::int32_t column, std::string_view text);
  WindowHandle hWnd() const { return GetSurface().hWnd(); }

  // --- Methods ----------------------------------------------------------------------------------

  // The row under a point of the picture: 0 for the header, -1 below the last one. `column` becomes the
  // column under it as if the grid were not scrolled, and the number of columns plus 1 right of all.
  std::int32_t HitTest(Twips x, Twips y, std::int32_t& column) const;

  // --- Events -----------------------------------------------------------------------------------

  // The value is stored.
  Event<std::int32_t, std::int32_t> AfterCellEdit;  // row, column
  // After a move from a row of which a cell was changed in an editor, also when the change was not stored.
  // Any key that could move does it, within the row and where it is blocked, too.
  Event<std::int32_t> AfterRowEdit;  // row
  // What was typed is about to be stored. A listener may change the value, and refuse it by the last
  // argument: then the editor stays, with the cell's text.
  Event<std::int32_t, std::int32_t, std::string&, bool&> BeforeCellEdit;  // row, column, new value, cancel
  Event<std::int32_t> ColumnHeaderClick;                                  // column
  // After the grid has acted on the key: a listener that changes the code changes nothing.
  Event<std::int16_t&, std::int16_t> KeyDown;  // code, shift
  Event<std::int16_t&> KeyPress;               // the character
  Event<std::int16_t, std::int16_t> KeyUp;
  Event<std::int32_t, std::int32_t> RowColChange;  // the last row, and the column

  // --- Notifications ----------------------------------------------------------------------------

  const ClassInfo& Class() const override { return Table(); }
  void OnInitProperties() override;
  void OnReadProperties(const PropertyBag& bag) override;
  void OnResize() override;
  void OnPaint() override;
  void OnEnterFocus() override;
  void OnExitFocus() override;
  bool OnKeyPreview(KeyMessage& key) override;
  void OnKeyDown(std::int16_t code, std::int16_t shift) override;
  void OnKeyPress(std::int16_t& key_ascii) override { KeyPress.Raise(key_ascii); }
  void OnKeyUp(std::int16_t code, std::int16_t shift) override { KeyUp.Raise(code, shift); }
  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override;

  // The parts, for tests.
  const PictureBox& Picture() const;
  const FlatScroll* RowBar() const;     // null while it is hidden
  const FlatScroll* ColumnBar() const;  // null while it is hidden
  const CellEditor* Editor() const;     // null while none is shown

 protected:
  WindowHandle FocusWindow() const override;

 private:
  struct Inside;
  struct CellEdit;
  static constexpr std::int32_t kRowCountAtFirst = 10;
  static constexpr Twips kRowHeightAtFirst{225};
  struct Colors {
    Color back_header{14608367u};
    Color back_selected{0xC6F3FFu};
    Color back_row_odd{0xFFFFFFu};
    Color back_row_even{0xEFF7F7u};
    Color border{11910854u};
    Color fore_header;
    Color fore_selected;
    Color fore_row_even;
    Color fore_row_odd;
  };

  void Wire();
  void WireBars();
  void MakeReady();
  // Keeps one of the colours and makes what is drawn with it anew.
  void AssignColor(std::string_view name, Color Colors::*kept, Color color);
  void ColumnsChanged();
  void KeepColumns();

  // --- Geometry and painting: flat_grid_paint.cpp -------------------------------------------------

  void MakeTools();
  void ClearCorner();
  void PaintAll();
  // Brings the top row, the bars and the picture's size in step with the rows.
  void ArrangeRows();
  void UpdateRowBarMax();
  void DrawAll();
  enum class Editors { kMayOpen, kStay };
  void RepaintRow(std::int64_t row, Editors editors = Editors::kMayOpen);
  bool IsShownSelected(std::int64_t row) const;

  // --- Moves: flat_grid_input.cpp -----------------------------------------------------------------

  void Move(GridMove move, const GridCell& target);
  void Go(GridMove move, const GridCell& target);
  void PressPicture(const PointerInput& input);
  // Whether the press goes on as one: not below the rows, not when a value was refused, not without columns.
  bool PressRow(const PointerInput& input, const GridCell& cell);
  bool PressHeader(Twips x);
  void CopyRow();

  // --- Editing: flat_grid_edit.cpp ----------------------------------------------------------------

  GridCell Current() const;
  const FlatColumn* CurrentColumn() const;  // null for none
  // Whether an editor stands on the current cell, or opens there as soon as the cell is painted.
  bool EditsCurrentCell() const;
  // Opens, moves and closes the editor as the current cell asks for it: the last step of painting the cell.
  void ArrangeEditor();
  void OpenEditor();
  void ShowEditor(const PixelRect& cell);
  CellEditor* EditorFor(const FlatColumn& column);
  // Shows the text of the cell that the editor is on.
  void LoadEditor();
  std::optional<PixelRect> CurrentCellInView() const;
  void ShowFrame(std::optional<PixelRect> frame);
  void EditorChanged(const CellEditor& editor);
  // What Space and F2 do.
  void ToggleEdit();
  bool EditorKey(std::int16_t code, std::int16_t shift);
  // Stores what was typed once it is approved. False when it was refused.
  bool FinishEdit();
  bool StoreTyped();
  void HideEditor();
  void EndEdit();
  // What was typed is not of the current cell any more, or nobody may edit it.
  void DropEdit();

  // --- State --------------------------------------------------------------------------------------

  Colors colors_;
  bool allow_edits_ = false;
  bool hide_selection_ = true;
  bool show_cell_focus_ = false;
  bool show_column_headers_ = true;
  bool show_grid_lines_ = true;
  Twips row_height_ = kRowHeightAtFirst;
  std::int32_t row_count_ = kRowCountAtFirst;
  std::int32_t top_index_ = 1;
  std::int32_t row_index_ = 1;
  std::int32_t current_column_ = 0;
  ksxAppearanceConstants appearance_ = ksxFlat;
  bool has_focus_ = false;
  bool ready_ = false;  // it has its properties, and paints
  std::shared_ptr<FlatColumns> columns_ = FlatColumns::Create();
  std::unique_ptr<Inside> inside_;
};

}  // namespace levelwidgets
