#include <levelwidgets/controls/grid/grid_layout.h>

#include <algorithm>

#include <levelwidgets/frame/reach.h>

namespace levelwidgets {

namespace {

constexpr int kCaptionMargin = 2;  // pixels to the left and to the right
constexpr int kCellMarginX = 3;
constexpr int kCellMarginY = 1;

// In twips, as a whole number.
std::int32_t WholeRowHeight(Twips row_height, float twips_per_pixel_y) {
  return std::max(NearestWhole(row_height.value), NearestWhole(twips_per_pixel_y));
}

}  // namespace

int RowPixels(Twips row_height, float twips_per_pixel_y) {
  return std::max(PixelsWithinReach(row_height, twips_per_pixel_y), 1);
}

GridLayout::GridLayout(const GridMeasures& measures)
    : of_(measures), row_pixels_(RowPixels(measures.row_height, measures.twips_per_pixel_y)) {}

// Twips are divided, not pixels: rows of 22 twips at 15 twips a pixel are one pixel high and counted as 22.
std::int32_t GridLayout::VisibleRows() const {
  return NearestWhole(of_.height.value) / WholeRowHeight(of_.row_height, of_.twips_per_pixel_y) + 1;
}

bool GridLayout::IsShown(std::int64_t row) const {
  return row >= of_.top_index && row <= std::int64_t{of_.top_index} + VisibleRows();
}

PixelRect GridLayout::Header() const {
  return {of_.client.left, of_.client.top, of_.client.right,
          WithinReach(std::int64_t{of_.client.top} + row_pixels_ + 1)};
}

PixelRect GridLayout::Caption(const Place& place) const {
  const PixelRect header = Header();
  return {WithinReach(std::int64_t{place.left} + kCaptionMargin), header.top,
          WithinReach(std::int64_t{place.left} + place.width - kCaptionMargin), header.bottom};
}

PixelRect GridLayout::Row(std::int64_t row) const {
  const std::int64_t rows_above = row - of_.top_index + (of_.header ? 1 : 0);
  const std::int64_t top = of_.client.top + rows_above * row_pixels_;
  return {of_.client.left, WithinReach(top), of_.client.right, WithinReach(top + row_pixels_ + 1)};
}

std::vector<GridLayout::Place> GridLayout::Columns() const {
  std::vector<Place> places;
  if (of_.client.right <= of_.client.left) return places;
  std::int64_t x = of_.client.left;
  const auto count = static_cast<std::int32_t>(of_.columns.size());
  for (std::int32_t column = std::max(of_.first_column, 1); column <= count; ++column) {
    const GridColumn& shown = of_.columns[static_cast<std::size_t>(column) - 1];
    if (!shown.visible) continue;
    const int width = PixelsWithinReach(Twips(shown.width), of_.twips_per_pixel_x);
    // The cell's frame: from x to its last line, which stands behind the width, whichever comes first.
    const std::int64_t first = std::min(x, x + width);
    const std::int64_t end = std::max(x, x + width) + 1;
    if (first < of_.client.right && end > of_.client.left) places.push_back({column, WithinReach(x), width});
    x += width;
  }
  return places;
}

PixelRect GridLayout::Uncovered(const std::vector<Place>& columns) const {
  const std::int64_t last_row = std::int64_t{of_.top_index} + VisibleRows();
  if (columns.empty() || Row(last_row).bottom < of_.client.bottom) return of_.client;
  PixelRect beside = of_.client;
  for (const Place& place : columns) {
    if (place.left != beside.left || place.width < 0) return of_.client;
    beside.left = WithinReach(std::int64_t{place.left} + place.width);
  }
  beside.left = std::min(beside.left + 1, beside.right);
  return beside;
}

PixelRect GridLayout::Cell(std::int64_t row, const Place& place) const {
  PixelRect cell = Row(row);
  cell.left = place.left;
  cell.right = WithinReach(std::int64_t{place.left} + place.width + 1);
  return cell;
}

PixelRect CellInterior(const PixelRect& cell) {
  return {cell.left + 1, cell.top + 1, cell.right, cell.bottom - 1};
}

PixelRect CellTextArea(const PixelRect& cell) {
  return {cell.left + kCellMarginX, cell.top + kCellMarginY, cell.right - kCellMarginX,
          cell.bottom - kCellMarginY};
}

}  // namespace levelwidgets
