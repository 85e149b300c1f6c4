#include <levelwidgets/controls/grid/grid_bars.h>

#include <algorithm>
#include <limits>

#include <levelwidgets/frame/reach.h>

namespace levelwidgets {

namespace {

// Scroll bars add 8 to the distance from Min to Max, within 32 bits.
constexpr std::int64_t kMostOfBar = std::numeric_limits<std::int32_t>::max() - 7;

Twips AtLeastNone(Twips length) { return std::max(length, Twips()); }

}  // namespace

std::int32_t TopOfFullPage(std::int32_t top_index, std::int32_t row_count, std::int32_t visible_rows) {
  const std::int64_t last_top = std::int64_t{row_count} - visible_rows + 2;
  if (top_index < 2 || top_index <= last_top) return top_index;
  return Within32Bits(std::max<std::int64_t>(last_top, 1));
}

std::optional<RowBar> RowBarFor(std::int32_t top_index, std::int32_t row_count, std::int32_t visible_rows,
                                bool header) {
  const bool needed = std::int64_t{top_index} + visible_rows - 3 < row_count || top_index > 1;
  if (!needed) return {};
  const std::int64_t max = std::int64_t{row_count} - visible_rows + (header ? 2 : 1);
  RowBar bar;
  bar.max = Within32Bits(std::min(max, kMostOfBar));
  bar.large_change = visible_rows - 2;
  if (bar.HasValue()) bar.value = std::clamp(top_index, 1, bar.max);
  return bar;
}

std::optional<std::int32_t> BarValueToShow(std::int32_t row, std::int32_t top_index,
                                           std::int32_t visible_rows, std::int32_t max) {
  if (max < 1) return {};
  std::int64_t value = row;
  if (row >= top_index) {
    if (row < std::int64_t{top_index} + visible_rows - 2) return {};
    value = std::int64_t{row} - visible_rows + 2;
  }
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, 1, max));
}

bool NeedsColumnBar(std::span<const GridColumn> columns, Twips picture_width) {
  std::int64_t sum = 0;
  for (const GridColumn& column : columns) {
    if (column.visible) sum += column.width;
  }
  return static_cast<double>(sum) > picture_width.value;
}

GridFrame FrameOf(TwipSize grid, bool row_bar, bool column_bar) {
  GridFrame frame;
  const Twips width = row_bar ? AtLeastNone(grid.width - kBarThickness) : grid.width;
  const Twips height = column_bar ? AtLeastNone(grid.height - kBarThickness) : grid.height;
  frame.picture = {width, height};
  frame.row_bar = {{grid.width - kBarThickness, Twips()}, {kBarThickness, height}};
  frame.column_bar = {{Twips(), grid.height - kBarThickness}, {width, kBarThickness}};
  return frame;
}

}  // namespace levelwidgets
