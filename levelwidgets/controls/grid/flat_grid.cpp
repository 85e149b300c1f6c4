#include <levelwidgets/controls/grid/flat_grid.h>

#include <algorithm>

#include <levelwidgets/controls/grid/flat_grid_parts.h>
#include <levelwidgets/controls/grid/grid_hit.h>

namespace levelwidgets {

namespace {

SurfaceLook GridLook(ControlSite& site) {
  return {.back_color = site.AmbientBackColor(), .fore_color = site.AmbientForeColor(), .font = {}};
}

}  // namespace

const ClassInfo& FlatGrid::Table() {
  using Grid = FlatGrid;
  using Row = table::Row<Grid>;
  static constexpr PropertyOptions kShortCount{.stored_as = VariantType::kInt16};
  static constexpr Colors kColors{};
  static constexpr auto data = ClassTable(
      ControlClass<Grid>("FlatGrid", "A table of text cells with a header and a selected row.",
                         {Twips(4800), Twips(3000)}),
      table::Properties(
          Row::Property<&Grid::AllowEdits, &Grid::SetAllowEdits>(1, "AllowEdits", Always(false),
                                                                 "Whether cells may be edited.",
                                                                 {.flags = MemberFlags::kOpensEditors}),
          Row::Property<&Grid::Enabled, &Grid::SetEnabled>(2, "Enabled", Always(true),
                                                           "Whether the grid takes input."),
          Row::Property<&Grid::GetFont, &Grid::SetFont>(3, "Font", Always(kAmbientFont),
                                                        "Font of the captions and the cells."),
          Row::Property<&Grid::BackColorHeader, &Grid::SetBackColorHeader>(
              4, "BackColorHeader", Always(kColors.back_header), "Fill of the header."),
          Row::Property<&Grid::BackColorSelected, &Grid::SetBackColorSelected>(
              5, "BackColorSelected", Always(kColors.back_selected), "Fill of the selected row."),
          Row::Property<&Grid::BackColorRowOdd, &Grid::SetBackColorRowOdd>(
              6, "BackColorRowOdd", Always(kColors.back_row_odd), "Fill of rows with odd numbers."),
          Row::Property<&Grid::BackColorRowEven, &Grid::SetBackColorRowEven>(
              7, "BackColorRowEven", Always(kColors.back_row_even), "Fill of rows with even numbers."),
          Row::Property<&Grid::BorderColor, &Grid::SetBorderColor>(
              8, "BorderColor", Always(kColors.border), "Colour of the lines around header and cells."),
          Row::Property<&Grid::ForeColorHeader, &Grid::SetForeColorHeader>(
              9, "ForeColorHeader", Always(kColors.fore_header), "Kept; the drawing does not use it."),
          Row::Property<&Grid::ForeColorSelected, &Grid::SetForeColorSelected>(
              10, "ForeColorSelected", Always(kColors.fore_selected), "Kept; the drawing does not use it."),
          Row::Property<&Grid::ForeColorRowEven, &Grid::SetForeColorRowEven>(
              11, "ForeColorRowEven", Always(kColors.fore_row_even), "Kept; the drawing does not use it."),
          Row::Property<&Grid::ForeColorRowOdd, &Grid::SetForeColorRowOdd>(
              12, "ForeColorRowOdd", Always(kColors.fore_row_odd), "Kept; the drawing does not use it."),
          Row::Property<&Grid::HideSelection, &Grid::SetHideSelection>(
              13, "HideSelection", Always(true),
              "Whether the selected row looks like any other while the grid has no focus.",
              {.flags = MemberFlags::kFocusShownLater}),
          Row::Property<&Grid::RowHeight, &Grid::SetRowHeight>(
              14, "RowHeight", Always(kRowHeightAtFirst), "Height of each row and of the header, in twips.",
              kShortCount),
          Row::Property<&Grid::RowCount, &Grid::SetRowCount>(15, "RowCount", Always(kRowCountAtFirst),
                                                             "Number of rows.", kShortCount),
          Row::Property<&Grid::ShowCellFocus, &Grid::SetShowCellFocus>(
              16, "ShowCellFocus", Always(false), "Whether the current cell has a focus frame."),
          Row::Property<&Grid::ShowColumnHeaders, &Grid::SetShowColumnHeaders>(
              17, "ShowColumnHeaders", Always(true), "Whether there is a header with the captions."),
          Row::Property<&Grid::ShowGridLines, &Grid::SetShowGridLines>(
              18, "ShowGridLines", Always(true), "Whether there are lines between the cells."),
          Row::Property<&Grid::TopIndex, &Grid::SetTopIndex>(19, "TopIndex", Always(1),
                                                             "The first row shown, from 1.", kShortCount),
          Row::Property<&Grid::RowIndex, &Grid::SetRowIndex>(
              20, "RowIndex", Always(1), "The selected row, from 1; 0 for none.",
              {.stored_as = VariantType::kInt16, .flags = MemberFlags::kRefusesItsOwn}),
          Row::Property<&Grid::Appearance, &Grid::SetAppearance>(21, "Appearance", kNoDefault,
                                                                 "Kept; the grid is flat."),
          Row::Collection<&Grid::Columns>(22, "Columns", "The columns."),
          Row::Indexed<&Grid::RowData, &Grid::SetRowData>(23, "RowData", "Row, Column",
                                                          "The text of the cell in Row and Column, from 1."),
          Row::ReadOnly<&Grid::hWnd>(24, "hWnd", "Handle of the grid's window.")),
      table::Persisted("AllowEdits", "Enabled", "Font", "BackColorHeader", "BackColorSelected",
                       "BackColorRowOdd", "BackColorRowEven", "BorderColor", "ForeColorHeader",
                       "ForeColorSelected", "ForeColorRowEven", "ForeColorRowOdd", "HideSelection",
                       "RowHeight", "RowCount", "ShowCellFocus", "ShowColumnHeaders", "ShowGridLines",
                       "TopIndex", "RowIndex", "Columns"),
      table::Methods(Row::Method<&Grid::HitTest>(25, "HitTest", "X, Y, out ColIndex",
                                                 "The row under a point: 0 for the header, -1 below all.")),
      table::Events(
          Row::Event<&Grid::AfterCellEdit>(1, "AfterCellEdit", "RowIndex, ColumnIndex",
                                           "The edited value of a cell was stored."),
          Row::Event<&Grid::AfterRowEdit>(2, "AfterRowEdit", "RowIndex",
                                          "A row was left that had been edited."),
          Row::Event<&Grid::BeforeCellEdit>(3, "BeforeCellEdit", "RowIndex, ColumnIndex, NewValue, Cancel",
                                            "An edited value is about to be stored."),
          Row::Event<&Grid::Click>(4, "Click", "", "Clicked."),
          Row::Event<&Grid::ColumnHeaderClick>(5, "ColumnHeaderClick", "ColumnIndex",
                                               "The header of a column was clicked."),
          Row::Event<&Grid::DblClick>(6, "DblClick", "", "Clicked twice."),
          Row::Event<&Grid::KeyDown>(7, "KeyDown", kKeyArguments, "A key went down."),
          Row::Event<&Grid::KeyPress>(8, "KeyPress", kCharacterArguments, "A character was typed."),
          Row::Event<&Grid::KeyUp>(9, "KeyUp", kKeyArguments, "A key went up."),
          Row::Event<&Grid::MouseDown>(10, "MouseDown", kPointerArguments, "A pointer button went down."),
          Row::Event<&Grid::MouseMove>(11, "MouseMove", kPointerArguments, "The pointer moved."),
          Row::Event<&Grid::MouseUp>(12, "MouseUp", kPointerArguments, "A pointer button went up."),
          Row::Event<&Grid::RowColChange>(13, "RowColChange", "LastRow, LastColumn",
                                          "Another row was selected.")));
  static constexpr ClassInfo info(data);
  return info;
}

FlatGrid::FlatGrid(std::shared_ptr<ControlSite> site)
    : ControlWith(site, GridLook(*site)), inside_(std::make_unique<Inside>(*this)) {
  MakeTools();
  Wire();
}

FlatGrid::~FlatGrid() = default;

void FlatGrid::OnInitProperties() {
  GetSurface().SetFont(Site().AmbientFont());
  MakeReady();
}

void FlatGrid::OnReadProperties(const PropertyBag& bag) {
  Control::OnReadProperties(bag);
  MakeReady();
}

void FlatGrid::MakeReady() {
  KeepColumns();
  inside_->store.Recreate(row_count_, columns_->Count());
  inside_->picGrid.SetFont(GetFont());
  inside_->picGrid.SetForeColor(GetSurface().ForeColor());
  inside_->picGrid.SetVisible(true);
  ready_ = true;
}

WindowHandle FlatGrid::FocusWindow() const {
  const CellEditor* editor = Editor();
  return editor ? editor->Edit().hWnd() : inside_->picGrid.hWnd();
}

// --- Columns -----------------------------------------------------------------------------------------

void FlatGrid::KeepColumns() {
  inside_->columns.assign(columns_->begin(), columns_->end());
  inside_->sizes.clear();
  for (const auto& column : inside_->columns) inside_->sizes.push_back({column->Width(), column->Visible()});
}

// Their number or order has changed.
void FlatGrid::ColumnsChanged() {
  const std::int32_t count = columns_->Count();
  if (ready_) {  // MakeReady sees to those that are loaded
    KeepColumns();
    inside_->store.Recreate(row_count_, count);
  }
  current_column_ = count > 0 ? 1 : 0;
  DropEdit();
  {
    const During arranging(inside_->arranging);
    inside_->fsbarH->SetMax(std::max(count, 1));
  }
  OnPaint();
}

// --- Rows --------------------------------------------------------------------------------------------

void FlatGrid::SetRowCount(std::int32_t count) {
  if (count < 0) RaiseControlError(kInvalidRowCountCode, "FlatGrid", "Invalid RowCount");
  Assign("RowCount", Then::kNotify, [&] {
    const std::int32_t before = std::exchange(row_count_, count);
    if (!ready_) return;  // the loaded RowIndex comes later
    inside_->store.Resize(count, columns_->Count());
    row_index_ = columns_->Count() > 0 && count > 0 ? 1 : 0;
    if (inside_->edit.cell != Current()) DropEdit();
    if (row_index_ == 0 || count <= before) {
      OnPaint();
      return;
    }
    UpdateRowBarMax();
    const std::int64_t last_shown = std::int64_t{top_index_} + inside_->visible_rows;
    const std::int64_t last = std::min<std::int64_t>(count, last_shown);
    for (std::int64_t row = std::max<std::int64_t>(std::int64_t{before} + 1, top_index_); row <= last;
         ++row) {
      RepaintRow(row);
    }
  });
}

void FlatGrid::SetTopIndex(std::int32_t index) {
  Assign("TopIndex", Then::kNotify, [&] {
    if (std::exchange(top_index_, index) != index) OnPaint();
  });
}

void FlatGrid::SetRowIndex(std::int32_t index) {
  if (!ready_) {  // kept as it was saved
    Store("RowIndex", Then::kNotify, row_index_, index);
    return;
  }
  if (index < 1 || index > row_count_) {
    RaiseControlError(kInvalidColumnCode, "FlatGrid", "Invalid RowIndex");
  }
  if (index == row_index_) return;
  const auto keep = Reference();
  // Of the editors this one alone; all others go along with the selection.
  if (inside_->edit.editor == inside_->edit.editors[ksxEditCalculator].get()) HideEditor();
  const std::int32_t before = std::exchange(row_index_, index);
  if (const FlatScroll* bar = RowBar()) {
    const auto value = BarValueToShow(index, top_index_, inside_->visible_rows, bar->Max());
    if (value) inside_->fsbarV->SetValue(*value);
  }
  RepaintRow(before);
  RepaintRow(index);
  PropertyChanged("RowIndex");
  RowColChange.Raise(before, current_column_);
}

std::string FlatGrid::RowData(std::int32_t row, std::int32_t column) const {
  return std::string(inside_->store.Text(row, column));
}

void FlatGrid::SetRowData(std::int32_t row, std::int32_t column, std::string_view text) {
  inside_->store.SetText(row, column, text);
  RepaintRow(row);
}

std::int32_t FlatGrid::HitTest(Twips x, Twips y, std::int32_t& column) const {
  const GridHit hit = HitTestGrid({x, y}, inside_->Measures(*this));
  column = hit.column;
  return hit.row;
}

// --- Looks ---------------------------------------------------------------------------------------------

void FlatGrid::SetAllowEdits(bool allow) {
  Assign("AllowEdits", Then::kNotify, [&] {
    allow_edits_ = allow;
    if (!allow) DropEdit();
  });
}

void FlatGrid::SetEnabled(bool enabled) {
  Assign("Enabled", Then::kRepaintThenNotify, [&] { Enable(enabled); });
}

void FlatGrid::SetFont(FontRef font) {
  Assign("Font", Then::kRepaintThenNotify, [&] {
    GetSurface().SetFont(font);
    inside_->picGrid.SetFont(std::move(font));
  });
}

void FlatGrid::AssignColor(std::string_view name, Color Colors::*kept, Color color) {
  Assign(name, Then::kRepaintThenNotify, [&] {
    colors_.*kept = color;
    MakeTools();
  });
}

void FlatGrid::SetBackColorHeader(Color color) {
  AssignColor("BackColorHeader", &Colors::back_header, color);
}
void FlatGrid::SetBackColorSelected(Color color) {
  AssignColor("BackColorSelected", &Colors::back_selected, color);
}
void FlatGrid::SetBackColorRowOdd(Color color) {
  AssignColor("BackColorRowOdd", &Colors::back_row_odd, color);
}
void FlatGrid::SetBackColorRowEven(Color color) {
  AssignColor("BackColorRowEven", &Colors::back_row_even, color);
}
void FlatGrid::SetBorderColor(Color color) { AssignColor("BorderColor", &Colors::border, color); }
void FlatGrid::SetForeColorHeader(Color color) {
  Store("ForeColorHeader", Then::kRepaintThenNotify, colors_.fore_header, color);
}
void FlatGrid::SetForeColorSelected(Color color) {
  Store("ForeColorSelected", Then::kRepaintThenNotify, colors_.fore_selected, color);
}
void FlatGrid::SetForeColorRowEven(Color color) {
  Store("ForeColorRowEven", Then::kRepaintThenNotify, colors_.fore_row_even, color);
}
void FlatGrid::SetForeColorRowOdd(Color color) {
  Store("ForeColorRowOdd", Then::kRepaintThenNotify, colors_.fore_row_odd, color);
}

void FlatGrid::SetHideSelection(bool hide) {
  Store("HideSelection", Then::kRepaintThenNotify, hide_selection_, hide);
}
void FlatGrid::SetRowHeight(Twips height) {
  Store("RowHeight", Then::kRepaintThenNotify, row_height_, height);
}
void FlatGrid::SetShowCellFocus(bool show) {
  Store("ShowCellFocus", Then::kRepaintThenNotify, show_cell_focus_, show);
}
void FlatGrid::SetShowColumnHeaders(bool show) {
  Store("ShowColumnHeaders", Then::kRepaintThenNotify, show_column_headers_, show);
}
void FlatGrid::SetShowGridLines(bool show) {
  Store("ShowGridLines", Then::kRepaintThenNotify, show_grid_lines_, show);
}
void FlatGrid::SetAppearance(ksxAppearanceConstants appearance) {
  Store("Appearance", Then::kNotify, appearance_, appearance);
}

}  // namespace levelwidgets
