// The editing of a grid's cells.
#include <algorithm>
#include <limits>

#include <levelwidgets/controls/grid/flat_grid_parts.h>
#include <levelwidgets/controls/grid/grid_text.h>
#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets {

namespace {

// Each type that the enumeration does not name is an edit box.
ksxEditTypeConstants KindOf(ksxEditTypeConstants type) {
  return type >= ksxEditNone && type <= ksxEditDropDown ? type : ksxEditText;
}

}  // namespace

const CellEditor* FlatGrid::Editor() const {
  const CellEditor* editor = inside_->edit.editor;
  return editor && editor->Visible() ? editor : nullptr;
}

GridCell FlatGrid::Current() const { return {row_index_, current_column_}; }

// --- Opening -------------------------------------------------------------------------------------------

const FlatColumn* FlatGrid::CurrentColumn() const {
  const auto& columns = inside_->columns;
  if (current_column_ < 1 || current_column_ > std::ssize(columns)) return nullptr;
  return columns[static_cast<std::size_t>(current_column_) - 1].get();
}

bool FlatGrid::EditsCurrentCell() const {
  const CellEdit& edit = inside_->edit;
  const FlatColumn* column = CurrentColumn();
  const bool exists = row_index_ >= 1 && row_index_ <= row_count_ && column;
  if (!exists || !allow_edits_ || !edit.requested || !has_focus_) return false;
  if (edit.open && edit.cell == Current()) return true;  // with the editor that it was opened with
  return column->EditType() != ksxEditNone;
}

void FlatGrid::ArrangeEditor() {
  CellEdit& edit = inside_->edit;
  if (edit.arranging) return;
  const During arranging(edit.arranging);
  if (!EditsCurrentCell()) return HideEditor();
  const std::optional<PixelRect> cell = CurrentCellInView();
  if (!edit.open || edit.cell != Current()) {
    if (!cell) return HideEditor();
    OpenEditor();
  }
  // Out of sight it stays what it is, with the focus: what is typed is not lost by scrolling.
  constexpr PixelRect kOutOfSight{0, -2000, 1, -1900};
  ShowEditor(cell.value_or(kOutOfSight));
}

void FlatGrid::OpenEditor() {
  CellEdit& edit = inside_->edit;
  CellEditor* editor = EditorFor(*CurrentColumn());
  if (editor != edit.editor) HideEditor();
  edit.editor = editor;
  edit.cell = Current();
  edit.loaded.reset();
  edit.open = true;
  edit.dirty = false;
}

// What the user types stays, and so does the caret, unless the cell was written before anything was typed.
void FlatGrid::ShowEditor(const PixelRect& cell) {
  CellEdit& edit = inside_->edit;
  const Surface& picture = inside_->picGrid.GetSurface();
  ScreenApi& screen = picture.GetPlatform().Screen();
  PixelRect line;
  const int text_height = picture.Drawing().DrawTextA(picture.hDC(), "X", line, kDtCalcRect);
  const PixelRect place =
      edit.editor->Place({cell, text_height, screen.TwipsPerPixelX(), screen.TwipsPerPixelY()});
  if (!edit.dirty && edit.loaded != inside_->store.Text(edit.cell.row, edit.cell.column)) LoadEditor();
  edit.editor->ShowBehind(inside_->fsbarH.hWnd());  // the lower one of the two
  WindowApi& windows = GetSurface().Windows();
  if (!edit.editor->Holds(windows.GetFocus())) edit.editor->Edit().SetFocus();
  ShowFrame(place.Inset(-1));
}

CellEditor* FlatGrid::EditorFor(const FlatColumn& column) {
  auto& editor = inside_->edit.editors[static_cast<std::size_t>(KindOf(column.EditType()))];
  if (!editor) {
    editor = CellEditor::Make(*this, column.EditType());
    editor->Events().Change += [this, made = editor.get()] { EditorChanged(*made); };
  }
  return editor.get();
}

void FlatGrid::LoadEditor() {
  if (!hWnd()) return;
  CellEdit& edit = inside_->edit;
  const During loading(edit.loading);
  edit.loaded = inside_->store.Text(edit.cell.row, edit.cell.column);
  edit.editor->Load(*inside_->columns[static_cast<std::size_t>(edit.cell.column) - 1], *edit.loaded,
                    GetFont());
}

std::optional<PixelRect> FlatGrid::CurrentCellInView() const {
  const GridMeasures measures = inside_->Measures(*this);
  const GridLayout layout(measures);
  const auto places = layout.Columns();
  const auto place = std::ranges::find(places, current_column_, &GridLayout::Place::column);
  if (place == places.end() || !layout.IsShown(row_index_)) return {};
  return layout.Cell(row_index_, *place);
}

// By inversion: drawn once more, it comes off.
void FlatGrid::ShowFrame(std::optional<PixelRect> frame) {
  Surface& picture = inside_->picGrid.GetSurface();
  if (frame == inside_->edit.frame || !picture.hWnd()) return;
  DrawingApi& drawing = GetSurface().Drawing();
  for (const auto& drawn : {inside_->edit.frame, frame}) {
    if (drawn) drawing.DrawFocusRect(picture.hDC(), *drawn);
  }
  inside_->edit.frame = frame;
}

void FlatGrid::EditorChanged(const CellEditor& editor) {
  CellEdit& edit = inside_->edit;
  if (edit.loading || !editor.Visible()) return;
  edit.dirty = true;
  edit.row_edited = true;
}

// --- Closing -------------------------------------------------------------------------------------------

void FlatGrid::HideEditor() {
  CellEdit& edit = inside_->edit;
  if (!Editor()) return;
  const bool had_focus = edit.editor->Holds(GetSurface().Windows().GetFocus());
  if (had_focus && has_focus_) inside_->picGrid.SetFocus();
  edit.editor->Hide();
  ShowFrame({});
}

void FlatGrid::EndEdit() {
  inside_->edit.requested = false;
  inside_->edit.open = false;
  HideEditor();
}

void FlatGrid::DropEdit() {
  EndEdit();
  inside_->edit.dirty = false;
}

bool FlatGrid::FinishEdit() {
  CellEdit& edit = inside_->edit;
  // What was typed before the focus went is forgotten once another cell is the current one.
  if (edit.cell != Current()) edit.dirty = false;
  if (!edit.dirty) return true;
  if (edit.finishing) return false;
  const During finishing(edit.finishing);
  if (StoreTyped()) return true;
  if (edit.dirty && edit.cell == Current()) LoadEditor();
  return false;
}

// The listeners may do anything, with the grid, its rows and columns, too.
bool FlatGrid::StoreTyped() {
  CellEdit& edit = inside_->edit;
  const GridCell cell = edit.cell;
  std::string value = edit.editor->Text();
  bool cancel = false;
  BeforeCellEdit.Raise(cell.row, cell.column, value, cancel);
  if (cancel || !hWnd()) return false;
  if (cell.row > row_count_ || cell.column > columns_->Count()) return true;
  edit.row_edited = true;
  inside_->store.SetText(cell.row, cell.column, value);
  edit.dirty = false;
  RepaintRow(cell.row, Editors::kStay);
  AfterCellEdit.Raise(cell.row, cell.column);
  return true;
}

// --- Keys ----------------------------------------------------------------------------------------------

void FlatGrid::ToggleEdit() {
  const FlatColumn* column = CurrentColumn();
  if (!column || !allow_edits_ || column->EditType() == ksxEditNone) return;
  if (inside_->edit.requested) {
    if (!FinishEdit()) return;
    EndEdit();
    inside_->picGrid.SetFocus();
  } else {
    inside_->edit.requested = true;
  }
  OnPaint();
}

// Those that it does not use are the editor's own.
bool FlatGrid::EditorKey(std::int16_t code, std::int16_t shift) {
  const auto keep = Reference();
  const TextBox& box = inside_->edit.editor->Edit();
  const bool selects = (shift & kShiftMask) != 0;
  switch (code) {
    case kKeyEnter:
      if (FinishEdit()) {
        EndEdit();
        RepaintRow(row_index_);
      }
      return true;
    case kKeyEscape:
      inside_->edit.dirty = false;
      LoadEditor();
      EndEdit();
      return true;
    case kKeyLeft:
      if (selects || box.SelStart() != 0) return false;
      Move(GridMove::kLeft, {});
      return true;
    case kKeyRight:
      if (selects || box.SelStart() != static_cast<std::int32_t>(text::CharacterCount(box.Text())))
        return false;
      Move(GridMove::kRight, {});
      return true;
    case kKeyUp: Move(GridMove::kUp, {}); return true;
    case kKeyDown: Move(GridMove::kDown, {}); return true;
    default: return false;
  }
}

// The visible columns of the selected row as they are shown, between tabs. The edit box does the copying: it
// knows the clipboard and its code page.
void FlatGrid::CopyRow() {
  if (Editor() || !hWnd() || row_index_ < 1 || row_index_ > row_count_) return;
  ConversionApi& conversions = GetSurface().GetPlatform().Conversions();
  std::string line;
  std::int32_t number = 0;
  bool first = true;
  for (const auto& column : inside_->columns) {
    ++number;
    if (!column->Visible()) continue;
    if (!std::exchange(first, false)) line += '\t';
    std::string text = ShownText(conversions, inside_->store.Text(row_index_, number), column->Format());
    std::ranges::replace_if(
        text, [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
    line += text;
  }
  TextBox copier(*this, false);
  copier.SetText(line);
  copier.Select(0, std::numeric_limits<std::int32_t>::max());
  copier.Send(kWmCopy);
}

}  // namespace levelwidgets
