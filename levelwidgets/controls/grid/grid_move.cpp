#include <levelwidgets/controls/grid/grid_move.h>

#include <algorithm>

#include <levelwidgets/platform/constants.h>

namespace levelwidgets {

namespace {

// A row that does not exist blocks the move. Such targets come from a page that turns backward, and from a
// selected row that was loaded and never was there.
std::optional<GridStep> StepToRow(std::int64_t row, const GridPosition& position) {
  if (row < 1 || row > position.row_count) return {};
  return GridStep{{static_cast<std::int32_t>(row), position.current.column}, GridStep::Then::kSelectRow};
}

// `by` is 1 or -1. Round once at most: a grid may show none of its columns.
std::optional<GridStep> StepToColumn(int by, const GridPosition& position) {
  const auto count = static_cast<std::int32_t>(position.columns.size());
  std::int32_t column = std::clamp(position.current.column, 0, count);
  for (std::int32_t tried = 0; tried < count; ++tried) {
    column += by;
    if (column < 1) column = count;
    if (column > count) column = 1;
    if (position.columns[static_cast<std::size_t>(column) - 1].visible) {
      return GridStep{{position.current.row, column}, GridStep::Then::kRepaintRow};
    }
  }
  return {};
}

std::optional<GridStep> StepToCell(GridCell target, const GridPosition& position) {
  const auto count = static_cast<std::int64_t>(position.columns.size());
  if (target == position.current || target.column < 1 || target.column > count) return {};
  if (target.row < 1 || target.row > position.row_count) return {};
  const bool same_row = target.row == position.current.row;
  return GridStep{target, same_row ? GridStep::Then::kRepaintAll : GridStep::Then::kSelectRow};
}

}  // namespace

std::optional<GridStep> StepFor(GridMove move, const GridPosition& position, GridCell target) {
  const std::int64_t row = position.current.row;
  const std::int64_t last = position.row_count;
  const std::int64_t page = std::int64_t{position.visible_rows} - 2;
  switch (move) {
    case GridMove::kUp: return row > 1 ? StepToRow(row - 1, position) : std::nullopt;
    case GridMove::kDown: return row < last ? StepToRow(row + 1, position) : std::nullopt;
    case GridMove::kLeft: return StepToColumn(-1, position);
    case GridMove::kRight: return StepToColumn(1, position);
    case GridMove::kPageUp:
      return row >= 2 ? StepToRow(std::max<std::int64_t>(row - page, 1), position) : std::nullopt;
    case GridMove::kPageDown:
      return row < last ? StepToRow(std::min(row + page, last), position) : std::nullopt;
    case GridMove::kHome: return row != 1 ? StepToRow(1, position) : std::nullopt;
    case GridMove::kEnd: return row != last ? StepToRow(last, position) : std::nullopt;
    case GridMove::kGoToCell: return StepToCell(target, position);
  }
  return {};
}

std::optional<GridMove> MoveOfKey(std::int16_t key_code) {
  switch (key_code) {
    case kKeyUp: return GridMove::kUp;
    case kKeyDown: return GridMove::kDown;
    case kKeyLeft: return GridMove::kLeft;
    case kKeyRight: return GridMove::kRight;
    case kKeyPageUp: return GridMove::kPageUp;
    case kKeyPageDown: return GridMove::kPageDown;
    case kKeyHome: return GridMove::kHome;
    case kKeyEnd: return GridMove::kEnd;
    default: return {};
  }
}

bool EndsRowEdit(bool row_edited, std::int32_t target_row, std::int32_t row_before) {
  return row_edited && target_row != row_before;
}

}  // namespace levelwidgets
