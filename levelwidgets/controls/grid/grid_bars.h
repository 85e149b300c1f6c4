// The scroll bars of a grid: what they range over, when there are any, and where they are. Pure.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include <levelwidgets/controls/grid/grid_layout.h>

namespace levelwidgets {

// --- Rows ------------------------------------------------------------------------------------------------
// `visible_rows` is V, of which the last two do not count: one may be cut off, one be covered by a header.

// TopIndex brought back so that the last page stays full; 1 where the rows do not fill it.
std::int32_t TopOfFullPage(std::int32_t top_index, std::int32_t row_count, std::int32_t visible_rows);

// What the vertical bar is set to. Its Min is 1.
struct RowBar {
  std::int32_t max = 1;
  std::int32_t large_change = 0;
  std::int32_t value = 1;  // the top row, or the nearest one that the bar can show

  // A bar that has no value at all keeps the one that it has.
  bool HasValue() const { return max >= 1; }
  friend bool operator==(const RowBar&, const RowBar&) = default;
};

// Nothing when the bar is not needed. With a header it goes one row further.
std::optional<RowBar> RowBarFor(std::int32_t top_index, std::int32_t row_count, std::int32_t visible_rows,
                                bool header);

// What a vertical bar that goes to `max` has to be set to so that `row` is in view; nothing when it is
// already, or when the bar has no such value.
std::optional<std::int32_t> BarValueToShow(std::int32_t row, std::int32_t top_index,
                                           std::int32_t visible_rows, std::int32_t max);

// --- Columns -----------------------------------------------------------------------------------------------

// Whether the visible columns are wider than the picture.
bool NeedsColumnBar(std::span<const GridColumn> columns, Twips picture_width);

// --- Places ------------------------------------------------------------------------------------------------

inline constexpr Twips kBarThickness{225};

struct PlacedBar {
  TwipPoint position;
  TwipSize size;
  friend bool operator==(const PlacedBar&, const PlacedBar&) = default;
};

// In a grid of some size. No length is below 0.
struct GridFrame {
  TwipSize picture;      // in the top left corner
  PlacedBar row_bar;     // at the right edge
  PlacedBar column_bar;  // at the bottom edge; where both are shown, the corner between them is bare
};
GridFrame FrameOf(TwipSize grid, bool row_bar, bool column_bar);

}  // namespace levelwidgets
