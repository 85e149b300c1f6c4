#include <levelwidgets/controls/grid/grid_hit.h>

#include <levelwidgets/frame/reach.h>

namespace levelwidgets {

namespace {

std::int32_t HitRow(Twips y, const GridMeasures& measures) {
  const double row_height =
      double{measures.twips_per_pixel_y} * RowPixels(measures.row_height, measures.twips_per_pixel_y);
  const std::int64_t band = std::int64_t{IntegerDivide(NearestWhole(y.value), row_height)} + 1;
  std::int64_t row = measures.top_index + band - 1;
  if (measures.header && --row < measures.top_index) row = 0;
  return row > measures.row_count ? -1 : Within32Bits(row);
}

std::int32_t HitColumn(Twips x, std::span<const GridColumn> columns) {
  std::int32_t index = 1;
  std::int64_t width = 0;
  for (const GridColumn& column : columns) {
    if (column.visible) {
      width += column.width;
      if (x.value < static_cast<double>(width)) break;
    }
    ++index;
  }
  return index;
}

}  // namespace

GridHit HitTestGrid(TwipPoint at, const GridMeasures& measures) {
  return {HitRow(at.y, measures), HitColumn(at.x, measures.columns)};
}

std::int32_t HeaderColumnAt(Twips x, std::span<const GridColumn> columns) {
  std::int64_t sum = 0;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    sum += columns[i].width;
    if (static_cast<double>(sum) > x.value) return static_cast<std::int32_t>(i + 1);
  }
  return 0;
}

}  // namespace levelwidgets
