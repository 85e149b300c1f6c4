// Where the parts of a grid are, and what is drawn on its picture.
#include <algorithm>

#include <levelwidgets/controls/grid/flat_grid_parts.h>
#include <levelwidgets/controls/grid/grid_text.h>
#include <levelwidgets/frame/paint.h>

namespace levelwidgets {

namespace {

void DrawHeader(const GridCanvas& canvas, const GridTools& tools, ColorRef back) {
  DrawingApi& drawing = canvas.drawing;
  const PixelRect header = canvas.layout.Header();
  drawing.SetBkColor(canvas.dc, back);
  drawing.FillRect(canvas.dc, header, tools.header.Handle());
  {
    const Selection pen(drawing, canvas.dc, tools.pen.Handle());
    const Selection brush(drawing, canvas.dc, tools.header.Handle());
    drawing.Rectangle(canvas.dc, header);
  }
  for (const GridLayout::Place& place : canvas.places) {
    const FlatColumn& column = canvas.Column(place);
    if (column.Caption().empty()) continue;
    PixelRect area = canvas.layout.Caption(place);
    drawing.DrawTextA(canvas.dc, column.Caption(), area, GridTextFlags(column.HeaderAlignment()));
  }
}

// In the selected pen and brush. Of its frame only the left, top and bottom lines stay: the next cell's left
// line closes it.
void DrawCell(const GridCanvas& canvas, const PixelRect& cell, ObjectHandle brush, bool lines) {
  if (lines) canvas.drawing.Rectangle(canvas.dc, cell);
  canvas.drawing.FillRect(canvas.dc, lines ? CellInterior(cell) : cell, brush);
}

void DrawCellText(const GridCanvas& canvas, const PixelRect& cell, const FlatColumn& column,
                  std::string_view text, ConversionApi& conversions) {
  const std::string shown = ShownText(conversions, text, column.Format());
  if (shown.empty()) return;
  PixelRect area = CellTextArea(cell);
  canvas.drawing.DrawTextA(canvas.dc, shown, area, GridTextFlags(column.Alignment()));
}

}  // namespace

// --- Geometry ------------------------------------------------------------------------------------------

GridMeasures FlatGrid::Inside::Measures(const FlatGrid& grid) const {
  ScreenApi& screen = grid.GetSurface().GetPlatform().Screen();
  GridMeasures measures;
  measures.client = picGrid.GetSurface().ClientPixels();
  measures.height = picGrid.ScaleHeight();
  measures.row_height = grid.row_height_;
  measures.twips_per_pixel_x = screen.TwipsPerPixelX();
  measures.twips_per_pixel_y = screen.TwipsPerPixelY();
  measures.header = grid.show_column_headers_;
  measures.row_count = grid.row_count_;
  measures.top_index = grid.top_index_;
  measures.first_column = fsbarH->Value();
  measures.columns = sizes;
  return measures;
}

GridPosition FlatGrid::Inside::Position(const FlatGrid& grid) const {
  return {{grid.row_index_, grid.current_column_}, grid.row_count_, visible_rows, sizes};
}

void FlatGrid::Inside::Place(TwipSize grid, bool row_bar) {
  const GridFrame frame = FrameOf(grid, row_bar, fsbarH.Visible());
  const auto place = [](ChildPart& part, const PlacedBar& bar) {
    if (part.Position() != bar.position || part.Size() != bar.size) part.Move(bar.position, bar.size);
  };
  if (picGrid.Size() != frame.picture) picGrid.Move({}, frame.picture);
  place(fsbarV, frame.row_bar);
  place(fsbarH, frame.column_bar);
  if (fsbarV.Visible() != row_bar) fsbarV.SetVisible(row_bar);
}

// Only here it is decided whether the horizontal bar is needed.
void FlatGrid::OnResize() {
  const auto keep = Reference();
  const TwipSize size{GetSurface().ScaleWidth(), GetSurface().ScaleHeight()};
  {
    const During arranging(inside_->arranging);
    inside_->Place(size, inside_->fsbarV.Visible());
    const bool needed = NeedsColumnBar(inside_->sizes, inside_->picGrid.ScaleWidth());
    inside_->fsbarH.SetVisible(needed);
    if (!needed) inside_->fsbarH->SetValue(1);
  }
  OnPaint();
}

void FlatGrid::ArrangeRows() {
  const TwipSize size{GetSurface().ScaleWidth(), GetSurface().ScaleHeight()};
  const During arranging(inside_->arranging);
  inside_->Place(size, inside_->fsbarV.Visible());  // the rows in view depend on the picture's height
  inside_->visible_rows = GridLayout(inside_->Measures(*this)).VisibleRows();
  top_index_ = TopOfFullPage(top_index_, row_count_, inside_->visible_rows);
  const auto bar = RowBarFor(top_index_, row_count_, inside_->visible_rows, show_column_headers_);
  inside_->Place(size, bar.has_value());
  if (bar) {
    FlatScroll& rows = *inside_->fsbarV;
    const bool stretched = rows.Max() != bar->max;
    if (stretched) rows.SetMax(bar->max);
    if (rows.LargeChange() != bar->large_change) rows.SetLargeChange(bar->large_change);
    // The thumb's place depends on both.
    if (bar->HasValue() && (stretched || rows.Value() != bar->value)) rows.SetValue(bar->value);
  }
}

void FlatGrid::UpdateRowBarMax() {
  const auto bar = RowBarFor(top_index_, row_count_, inside_->visible_rows, show_column_headers_);
  if (!bar) return;
  const During arranging(inside_->arranging);
  inside_->fsbarV->SetMax(bar->max);
}

// --- Painting ------------------------------------------------------------------------------------------

void FlatGrid::MakeTools() {
  DrawingApi& drawing = GetSurface().Drawing();
  const auto brush = [&](Color color) {
    return DrawingObject(drawing, drawing.CreateSolidBrush(TranslateColor(drawing, color)));
  };
  GridTools& tools = inside_->tools;
  tools.back = brush(GetSurface().BackColor());
  tools.header = brush(colors_.back_header);
  tools.selected = brush(colors_.back_selected);
  tools.odd = brush(colors_.back_row_odd);
  tools.even = brush(colors_.back_row_even);
  tools.pen = DrawingObject(drawing, drawing.CreatePen(kPsSolid, 1, TranslateColor(drawing, colors_.border)));
}

void FlatGrid::OnPaint() {
  if (!ready_ || !hWnd()) return;
  ClearCorner();
  PaintAll();
}

// Between the bars; the rest of the surface is under the parts.
void FlatGrid::ClearCorner() {
  if (!inside_->fsbarV.Visible() || !inside_->fsbarH.Visible()) return;
  const Surface& surface = GetSurface();
  ScreenApi& screen = surface.GetPlatform().Screen();
  PixelRect corner = surface.ClientPixels();
  corner.left = ToPixels(inside_->fsbarV.Position().x, screen.TwipsPerPixelX());
  corner.top = ToPixels(inside_->fsbarH.Position().y, screen.TwipsPerPixelY());
  surface.Drawing().FillRect(surface.hDC(), corner, inside_->tools.back.Handle());
}

void FlatGrid::PaintAll() {
  if (!ready_ || !inside_->picGrid.hWnd()) return;
  const auto keep = Reference();
  ArrangeRows();
  if (!inside_->off_screen.Handle()) return;
  DrawAll();
  ArrangeEditor();
}

void FlatGrid::DrawAll() {
  DrawingApi& drawing = GetSurface().Drawing();
  Surface& picture = inside_->picGrid.GetSurface();
  const DcHandle dc = inside_->off_screen.Handle();
  const GridMeasures measures = inside_->Measures(*this);
  const GridLayout layout(measures);
  const auto places = layout.Columns();
  {
    const Selection font(drawing, dc, picture.FontObject());
    drawing.SetTextColor(dc, TranslateColor(drawing, GetSurface().ForeColor()));
    const PixelRect bare = layout.Uncovered(places);
    if (!bare.empty()) drawing.FillRect(dc, bare, inside_->tools.back.Handle());
    const GridCanvas canvas{drawing, dc, layout, places, inside_->columns};
    if (show_column_headers_) {
      DrawHeader(canvas, inside_->tools, TranslateColor(drawing, colors_.back_header));
    }
    for (std::int64_t row = top_index_; layout.IsShown(row); ++row) inside_->DrawRow(*this, canvas, row);
  }
  drawing.BitBlt(picture.hDC(), measures.client, dc, {0, 0}, kSrcCopy);
  inside_->edit.frame.reset();
}

bool FlatGrid::IsShownSelected(std::int64_t row) const {
  return row == row_index_ && (!hide_selection_ || has_focus_);
}

void FlatGrid::Inside::DrawRow(const FlatGrid& grid, const GridCanvas& canvas, std::int64_t row) const {
  DrawingApi& drawing = canvas.drawing;
  const bool selected = grid.IsShownSelected(row);
  const bool odd = row % 2 == 1;  // numbers below 0 are never odd
  const Colors& colors = grid.colors_;
  const Color back = selected ? colors.back_selected : odd ? colors.back_row_odd : colors.back_row_even;
  const ObjectHandle brush = (selected ? tools.selected : odd ? tools.odd : tools.even).Handle();
  drawing.SetBkColor(canvas.dc, TranslateColor(drawing, back));
  const Selection pen(drawing, canvas.dc, tools.pen.Handle());
  const Selection interior(drawing, canvas.dc, brush);
  const bool exists = row >= 1 && row <= grid.row_count_;
  for (const GridLayout::Place& place : canvas.places) {
    const PixelRect cell = canvas.layout.Cell(row, place);
    DrawCell(canvas, cell, brush, grid.show_grid_lines_);
    if (exists) {
      DrawCellText(canvas, cell, canvas.Column(place),
                   store.Text(static_cast<std::int32_t>(row), place.column),
                   grid.GetSurface().GetPlatform().Conversions());
    }
    const bool is_current = row == grid.row_index_ && place.column == grid.current_column_;
    if (grid.show_cell_focus_ && grid.has_focus_ && is_current && !grid.EditsCurrentCell()) {
      drawing.DrawFocusRect(canvas.dc, CellFocusFrame(cell));
    }
  }
}

// Straight onto the picture; rows that are out of view are never painted alone.
void FlatGrid::RepaintRow(std::int64_t row, Editors editors) {
  Surface& picture = inside_->picGrid.GetSurface();
  const bool shown = row >= top_index_ && row <= std::int64_t{top_index_} + inside_->visible_rows;
  if (!ready_ || !picture.hWnd() || !shown) return;
  const GridMeasures measures = inside_->Measures(*this);
  const GridLayout layout(measures);
  const auto places = layout.Columns();
  const auto frame = inside_->edit.frame;
  ShowFrame({});  // drawn over, it would not come off any more
  inside_->DrawRow(*this, {GetSurface().Drawing(), picture.hDC(), layout, places, inside_->columns}, row);
  if (row == row_index_ && editors == Editors::kMayOpen) {
    ArrangeEditor();
  } else {
    ShowFrame(frame);
  }
}

}  // namespace levelwidgets
