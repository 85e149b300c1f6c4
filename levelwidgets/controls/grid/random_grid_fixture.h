// Grids for tests that compare two formulations: small ones, with all that makes a grid odd.
#pragma once

#include <random>
#include <string>
#include <vector>

#include <levelwidgets/controls/grid/grid_layout.h>

namespace levelwidgets {

class RandomGrid {
 public:
  explicit RandomGrid(std::uint32_t seed) : random_(seed) {}

  // Good until the next one.
  const GridMeasures& Next() {
    const int left = OneIn(8) ? UpTo(20) - 10 : 0;
    const int top = OneIn(8) ? UpTo(20) - 10 : 0;
    const int width = OneIn(10) ? 0 : UpTo(100);
    const int height = OneIn(10) ? 0 : UpTo(100);
    grid_.twips_per_pixel_x = TwipsPerPixel();
    grid_.twips_per_pixel_y = TwipsPerPixel();
    grid_.client = {left, top, left + width, top + height};
    grid_.height =
        Twips(static_cast<float>(height) * grid_.twips_per_pixel_y + static_cast<float>(UpTo(9)) / 10);
    grid_.row_height = Twips(RowHeight());
    grid_.header = OneIn(2);
    grid_.row_count = OneIn(5) ? 0 : UpTo(30);
    grid_.top_index = OneIn(10) ? UpTo(80) - 40 : 1 + UpTo(grid_.row_count);
    FillColumns();
    grid_.first_column = 1 + (OneIn(2) ? 0 : UpTo(static_cast<int>(columns_.size())));
    return grid_;
  }

  int UpTo(int most) { return static_cast<int>(random_() % static_cast<std::uint32_t>(most + 1)); }
  bool OneIn(int cases) { return UpTo(cases - 1) == 0; }

  // What is needed to try the grid again.
  std::string Text() const {
    std::string text =
        "picture " + std::to_string(grid_.client.left) + "," + std::to_string(grid_.client.top) + "," +
        std::to_string(grid_.client.right) + "," + std::to_string(grid_.client.bottom) + " height " +
        std::to_string(grid_.height.value) + " row height " + std::to_string(grid_.row_height.value) +
        " twips " + std::to_string(grid_.twips_per_pixel_x) + "," + std::to_string(grid_.twips_per_pixel_y) +
        (grid_.header ? " header" : "") + " rows " + std::to_string(grid_.row_count) + " top " +
        std::to_string(grid_.top_index) + " first " + std::to_string(grid_.first_column) + " columns";
    for (const GridColumn& column : columns_) {
      text += " " + std::to_string(column.width) + (column.visible ? "" : "h");
    }
    return text + " ";
  }

 private:
  float TwipsPerPixel() {
    static constexpr float kSome[] = {15, 15, 12, 10, 20, 11.25f, 7.5f};
    return kSome[UpTo(6)];
  }

  // Of none, of less than a pixel, and taller than the picture, too.
  float RowHeight() {
    if (OneIn(10)) return static_cast<float>(UpTo(40) - 20);
    if (OneIn(10)) return static_cast<float>(UpTo(4000));
    return static_cast<float>(UpTo(600)) + 0.5f * static_cast<float>(UpTo(1));
  }

  void FillColumns() {
    columns_.resize(OneIn(8) ? 0 : static_cast<std::size_t>(UpTo(8)));
    for (GridColumn& column : columns_) {
      column.width = OneIn(8) ? 0 : UpTo(600);
      if (OneIn(8)) column.width = -column.width;
      column.visible = !OneIn(4);
    }
    if (OneIn(20)) {
      for (GridColumn& column : columns_) column.visible = false;
    }
    grid_.columns = columns_;
  }

  std::mt19937 random_;
  GridMeasures grid_;
  std::vector<GridColumn> columns_;
};

}  // namespace levelwidgets
