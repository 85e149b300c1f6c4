// What comes from the parts of a grid: keys, pointer, focus, scrolling.
#include <algorithm>

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

// The selected row keeps its look until the next paint.
void FlatGrid::OnExitFocus() {
  has_focus_ = false;
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
    if (const int notches = inside_->wheel.Take(wparam)) ScrollRows(-notches * kRowsPerNotch);
    return 0;
  });
}

void FlatGrid::ScrollRows(int rows) {
  FlatScroll& bar = *inside_->fsbarV;
  const std::int64_t wanted = std::int64_t{bar.Value()} + rows;
  if (bar.Max() < bar.Min()) return;
  const auto value = static_cast<std::int32_t>(std::clamp<std::int64_t>(wanted, bar.Min(), bar.Max()));
  if (value != bar.Value()) bar.SetValue(value);
}

// --- Keys and pointer ----------------------------------------------------------------------------------

void FlatGrid::OnKeyDown(std::int16_t code, std::int16_t shift) {
  const auto keep = Reference();
  if (const auto move = MoveOfKey(code)) Move(*move, {});
  KeyDown.Raise(code, shift);
}

void FlatGrid::Move(GridMove move, const GridCell& target) {
  const auto step = StepFor(move, inside_->Position(*this), target);
  if (!step) return;
  current_column_ = step->cell.column;
  switch (step->then) {
    case GridStep::Then::kSelectRow: SetRowIndex(step->cell.row); break;
    case GridStep::Then::kRepaintRow: RepaintRow(step->cell.row); break;
    case GridStep::Then::kRepaintAll: OnPaint(); break;
  }
}

void FlatGrid::PressPicture(const PointerInput& input) {
  const auto keep = Reference();
  const GridHit hit = HitTestGrid(input.at, inside_->Measures(*this));
  if (hit.row == 0) {
    if (columns_->Count() == 0) return;
    // Counted with columns that are not visible and as if the grid were not scrolled, on purpose.
    if (const std::int32_t column = HeaderColumnAt(input.at.x, inside_->sizes))
      ColumnHeaderClick.Raise(column);
  } else {
    if (hit.row < 1 || hit.row > row_count_ || hit.column < 1) return;
    if (hit.column <= columns_->Count()) Move(GridMove::kGoToCell, {hit.row, hit.column});
  }
  Raise(MouseDown, input);
}

}  // namespace levelwidgets
