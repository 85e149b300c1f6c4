// Where the rows, the columns and the header of a grid are: pure geometry, without window or state.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include <levelwidgets/frame/units.h>
#include <levelwidgets/platform/types.h>

namespace levelwidgets {

// What geometry and moves need to know of a column.
struct GridColumn {
  std::int32_t width = 0;  // twips; may be negative
  bool visible = true;
};

struct GridMeasures {
  PixelRect client;  // of the picture that rows are drawn on
  Twips height;      // of the same
  Twips row_height;  // below one pixel it counts as one
  float twips_per_pixel_x = 15;
  float twips_per_pixel_y = 15;
  bool header = false;
  std::int32_t row_count = 0;
  std::int32_t top_index = 1;     // the first row shown; any number
  std::int32_t first_column = 1;  // the first column shown
  std::span<const GridColumn> columns;
};

// h, the height of a row in pixels, at least 1.
int RowPixels(Twips row_height, float twips_per_pixel_y);

// Rows and columns are numbered from 1. Rectangles are pixels of the picture; those far out are moved to
// where drawing operations reach, and a column of negative width has a rectangle that is inverted.
class GridLayout {
 public:
  // A visible column and where it begins. Those behind a column of negative width overlap it.
  struct Place {
    std::int32_t column = 0;
    int left = 0;
    int width = 0;
    friend bool operator==(const Place&, const Place&) = default;
  };

  explicit GridLayout(const GridMeasures& measures);

  int RowHeight() const { return row_pixels_; }
  // V, which counts a row that is cut off, and which counts on where the picture ends with a row.
  std::int32_t VisibleRows() const;
  // Whether a row is among those that are painted, TopIndex to TopIndex + V; it need not exist.
  bool IsShown(std::int64_t row) const;

  PixelRect Header() const;
  // The text of a caption is drawn here.
  PixelRect Caption(const Place& place) const;
  // Each shares its last line with the next one's first.
  PixelRect Row(std::int64_t row) const;
  // Those from the first one shown on of which any pixel is on the picture.
  std::vector<Place> Columns() const;
  // Around what no cell covers when these columns are painted; empty where they cover the picture.
  PixelRect Uncovered(const std::vector<Place>& columns) const;
  PixelRect Cell(std::int64_t row, const Place& place) const;

 private:
  GridMeasures of_;
  int row_pixels_;
};

// Of a cell: what is filled inside its lines, where its text goes, and its focus frame.
PixelRect CellInterior(const PixelRect& cell);
PixelRect CellTextArea(const PixelRect& cell);
inline PixelRect CellFocusFrame(const PixelRect& cell) { return cell.Inset(1); }

}  // namespace levelwidgets
