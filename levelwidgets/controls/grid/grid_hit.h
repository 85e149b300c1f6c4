// What of a grid is under a point. Pure; the arithmetic is not that of the painting, on purpose.
#pragma once

#include <levelwidgets/controls/grid/grid_layout.h>

namespace levelwidgets {

struct GridHit {
  std::int32_t row = 0;     // 0 for the header, -1 below the last row
  std::int32_t column = 0;  // the number of columns plus 1 to the right of all
  friend bool operator==(const GridHit&, const GridHit&) = default;
};

// `at` is measured from the picture's corner; its size does not count. Columns are looked for from the first
// of all on, also while the grid is scrolled.
GridHit HitTestGrid(TwipPoint at, const GridMeasures& measures);

// The column whose header a click at `x` is on; 0 to the right of all. Columns that are not visible count
// with their widths.
std::int32_t HeaderColumnAt(Twips x, std::span<const GridColumn> columns);

}  // namespace levelwidgets
