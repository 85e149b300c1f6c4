// The one command by which keys and pointer move through a grid. Pure.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include <levelwidgets/controls/grid/grid_layout.h>

namespace levelwidgets {

enum class GridMove {
  kUp = 0,
  kDown = 1,
  kLeft = 2,
  kRight = 3,
  kPageUp = 4,
  kPageDown = 5,
  kHome = 6,
  kEnd = 7,
  kGoToCell = 8
};

// Row and column, from 1; 0 for none.
struct GridCell {
  std::int32_t row = 0;
  std::int32_t column = 0;
  friend bool operator==(const GridCell&, const GridCell&) = default;
};

struct GridPosition {
  GridCell current;
  std::int32_t row_count = 0;
  std::int32_t visible_rows = 0;  // V
  std::span<const GridColumn> columns;
};

// Where a move leads, and what is to be done there.
struct GridStep {
  enum class Then {
    kSelectRow,   // make the column the current one, then select the row, which may be the selected one
                  // already
    kRepaintRow,  // make the column the current one, nobody is notified
    kRepaintAll   // the same, with a repaint of everything
  };
  GridCell cell;
  Then then = Then::kSelectRow;
  friend bool operator==(const GridStep&, const GridStep&) = default;
};

// Nothing for a move that is blocked: at the end of the rows, without a visible column, to the current cell,
// to a row or column that does not exist. `target` counts for kGoToCell only. A page is V - 2 rows: in a
// picture of one row it turns backward.
std::optional<GridStep> StepFor(GridMove move, const GridPosition& position, GridCell target = {});

// The move that a key asks for; nothing for all other keys.
std::optional<GridMove> MoveOfKey(std::int16_t key_code);

// Whether a move to `target_row`, which is 0 for all moves except kGoToCell, ends the editing of the row: any
// key does so, one that cannot move included.
bool EndsRowEdit(bool row_edited, std::int32_t target_row, std::int32_t row_before);

}  // namespace levelwidgets
