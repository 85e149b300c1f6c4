// What comes from the parts of a grid: keys, pointer, focus, scrolling.
#include <levelwidgets/controls/grid/flat_grid_parts.h>
#include <levelwidgets/controls/grid/grid_hit.h>

namespace levelwidgets {

void FlatGrid::Wire() {
  PictureBox& picture = inside_->picGrid;
  picture.SetFocusByPress(Site().FocusByPress());
  picture.Paint += [this] { PaintAll(); };
  picture.Resize += [this] { inside_->RenewOffScreen(); };
  picture.Click.RelayTo(Click);
  picture.DblClick.RelayTo(DblClick);
  picture.KeyDown += [this](std::int16_t code, std::int16_t shift) { OnKeyDown(code, shift); };
  picture.KeyPress.RelayTo(KeyPress);
  picture.KeyUp.RelayTo(KeyUp);
  picture.MouseDown += [this](std::int16_t button, std::int16_t shift, Twips x, Twips y) {
    PressPicture({button, shift, {x, y}});
  };
  picture.MouseMove.RelayTo(MouseMove);
  picture.MouseUp.RelayTo(MouseUp);
  WireBars();
  inside_->column_added = columns_->ColumnAdded.Add([this] { ColumnsChanged(); });
  inside_->column_changed = columns_->ColumnInfoChanged.Add([this] {
    if (!ready_) return;  // MakeReady sees to those that are loaded
    KeepColumns();
    OnPaint();
  });
}

void FlatGrid::WireBars() {
  FlatScroll& rows = *inside_->fsbarV;
  FlatScroll& columns = *inside_->fsbarH;
  columns.SetOrientation(ksxOrientationHorizontal);
  for (FlatScroll* bar : {&rows, &columns}) {
    bar->SetMax(1);
    bar->SetMin(1);
    bar->SetValue(1);
    bar->SetSmallChange(1);
    bar->SetLargeChange(1);
    // As an editor's arrow: its buttons are as light as the strip, whatever the colour of the desktop's
    // texts.
    bar->SetForeColor(Color(0));
  }
  // In front of the editors, which are in front of the picture.
  for (const WindowHandle bar : {inside_->fsbarH.hWnd(), inside_->fsbarV.hWnd()}) {
    GetSurface().Windows().SetWindowPos(bar, {kHwndTop}, {}, kSwpNoMove | kSwpNoSize | kSwpNoActivate);
  }
  // What the grid sets the bars to while it arranges them is no scrolling.
  rows.Change += [this] {
    if (!inside_->arranging) SetTopIndex(inside_->fsbarV->Value());
  };
  columns.Change += [this] {
    if (!inside_->arranging) OnPaint();
  };
  rows.KeyDown += [this](std::int16_t code, std::int16_t shift) { OnKeyDown(code, shift); };
}

void FlatGrid::Inside::RenewOffScreen() {
  off_screen.Reset();
  const Surface& surface = picGrid.GetSurface();
  const PixelRect client = surface.ClientPixels();
  if (!surface.hDC() || client.empty()) return;
  off_screen = MemoryContext(surface.Drawing(), surface.hDC(), {client.right, client.bottom});
}

const PictureBox& FlatGrid::Picture() const { return inside_->picGrid; }

const FlatScroll* FlatGrid::RowBar() const { return inside_->fsbarV.Visible() ? &*inside_->fsbarV : nullptr; }

const FlatScroll* FlatGrid::ColumnBar() const {
  return inside_->fsbarH.Visible() ? &*inside_->fsbarH : nullptr;
}

// --- Focus ---------------------------------------------------------------------------------------------

void FlatGrid::OnEnterFocus() {
  has_focus_ = true;
  OnPaint();
}

// The selected row keeps its look until the next paint. What was typed is neither stored nor forgotten yet.
void FlatGrid::OnExitFocus() {
  const auto keep = Reference();
  has_focus_ = false;
  EndEdit();
  if (show_cell_focus_) OnPaint();
}

// --- Wheel -----------------------------------------------------------------------------------------------

// The parts pass its messages on. Without a bar they go further, as those of any control do.
LResult FlatGrid::OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  const auto keep = Reference();
  const bool turned = message == kWmMouseWheel && window == hWnd() && keep && Site().UserMode();
  if (!turned || !Enabled() || !RowBar()) return Control::OnMessage(window, message, wparam, lparam);
  const auto site = SharedSite();
  return Reporting(*site, EventOf(message), [&]() -> LResult {
    if (const int notches = inside_->wheel.Take(wparam)) inside_->fsbarV->ScrollBy(-notches * kRowsPerNotch);
    return 0;
  });
}

// --- Keys and pointer ----------------------------------------------------------------------------------

void FlatGrid::OnKeyDown(std::int16_t code, std::int16_t shift) {
  const auto keep = Reference();
  const bool copies = code == kKeyC && shift == kCtrlMask;
  if (const auto move = MoveOfKey(code)) Move(*move, {});
  if (code == kKeySpace || code == kKeyF2) ToggleEdit();
  KeyDown.Raise(code, shift);
  if (copies) CopyRow();
}

bool FlatGrid::OnKeyPreview(KeyMessage& key) {
  const CellEditor* editor = Editor();
  // The focus may be on the picture for a moment, and in a panel of the editor for long.
  const bool is_editors =
      editor && !editor->PanelIsOpen() && editor->Holds(GetSurface().Windows().GetFocus());
  if (!is_editors || key.kind != KeyMessage::Kind::kDown || (key.shift & kAltMask) != 0) return false;
  return EditorKey(key.code, key.shift);
}

void FlatGrid::Move(GridMove move, const GridCell& target) {
  const auto keep = Reference();
  const GridCell before = Current();
  if (StepFor(move, inside_->Position(*this), target)) {
    if (!FinishEdit()) return;
    // A listener that has moved keeps its choice.
    if (Current() == before) Go(move, target);
  }
  if (!EndsRowEdit(inside_->edit.row_edited, target.row, before.row)) return;
  inside_->edit.row_edited = false;
  AfterRowEdit.Raise(before.row);
}

void FlatGrid::Go(GridMove move, const GridCell& target) {
  const auto step = StepFor(move, inside_->Position(*this), target);
  if (!step) return;  // the listeners have taken rows or columns away
  current_column_ = step->cell.column;
  switch (step->then) {
    case GridStep::Then::kSelectRow: SetRowIndex(step->cell.row); break;
    case GridStep::Then::kRepaintRow: RepaintRow(step->cell.row); break;
    case GridStep::Then::kRepaintAll: OnPaint(); break;
  }
}

void FlatGrid::PressPicture(const PointerInput& input) {
  const auto keep = Reference();
  HideEditor();
  const GridHit hit = HitTestGrid(input.at, inside_->Measures(*this));
  if (hit.row == 0) {
    if (!PressHeader(input.at.x)) return;
  } else if (!PressRow(input, {hit.row, hit.column})) {
    return;
  }
  Raise(MouseDown, input);
}

bool FlatGrid::PressRow(const PointerInput& input, const GridCell& cell) {
  if (cell.row < 1 || cell.row > row_count_ || cell.column < 1) return false;
  if (!FinishEdit()) {
    inside_->picGrid.Invalidate();  // the next paint shows the editor again
    return false;
  }
  if (input.button == kLeftButton && cell == Current()) {
    inside_->edit.requested = true;
    OnPaint();
  } else {
    EndEdit();
  }
  if (cell.column <= columns_->Count()) Move(GridMove::kGoToCell, cell);
  return true;
}

bool FlatGrid::PressHeader(Twips x) {
  const bool has_columns = columns_->Count() > 0;
  // Counted with columns that are not visible and as if the grid were not scrolled, on purpose.
  if (const std::int32_t column = HeaderColumnAt(x, inside_->sizes)) ColumnHeaderClick.Raise(column);
  EndEdit();
  return has_columns;
}

}  // namespace levelwidgets
