// What a grid is made of; for its own sources.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <levelwidgets/controls/grid/cell_editor.h>
#include <levelwidgets/controls/grid/cell_store.h>
#include <levelwidgets/controls/grid/flat_grid.h>
#include <levelwidgets/controls/grid/grid_bars.h>
#include <levelwidgets/controls/grid/grid_layout.h>
#include <levelwidgets/controls/grid/grid_move.h>
#include <levelwidgets/controls/scroll/flat_scroll.h>
#include <levelwidgets/frame/parts/child_control.h>
#include <levelwidgets/frame/parts/picture_box.h>
#include <levelwidgets/platform/wheel.h>

namespace levelwidgets {

// Sets a flag until the end of the scope, also by an error. Inside another one it stays set.
class During {
 public:
  explicit During(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  ~During() { flag_ = before_; }
  During(const During&) = delete;
  During& operator=(const During&) = delete;

 private:
  bool& flag_;
  const bool before_;
};

// Brushes and a pen, each made anew with its colour only.
struct GridTools {
  DrawingObject back;
  DrawingObject header;
  DrawingObject selected;
  DrawingObject odd;
  DrawingObject even;
  DrawingObject pen;
};

// What the steps of a paint share.
struct GridCanvas {
  DrawingApi& drawing;
  DcHandle dc;
  const GridLayout& layout;
  const std::vector<GridLayout::Place>& places;
  const std::vector<std::shared_ptr<FlatColumn>>& columns;

  const FlatColumn& Column(const GridLayout::Place& place) const {
    return *columns[static_cast<std::size_t>(place.column) - 1];
  }
};

// The editing of cells: from the first repaint after it was asked for, an editor is on `cell` until it ends.
struct FlatGrid::CellEdit {
  std::array<std::unique_ptr<CellEditor>, 5> editors;  // by the type of the column, made when they are needed
  CellEditor* editor = nullptr;                        // the last one that was opened
  GridCell cell;                                       // where
  std::optional<std::string> loaded;                   // the text of the cell that it was given
  std::optional<PixelRect> frame;  // around it, as the picture shows it; drawn by inversion

  bool requested = false;   // the user asked for the editor of the current cell
  bool open = false;        // it is there, though it may be hidden for a while
  bool dirty = false;       // it was changed since then, and what was typed is not stored
  bool row_edited = false;  // some cell of the row was
  bool loading = false;     // its changes are the grid's own
  bool finishing = false;   // listeners are asked
  bool arranging = false;
};

struct FlatGrid::Inside {
  explicit Inside(FlatGrid& grid) : picGrid(grid), fsbarV(grid, "fsbarV", {}), fsbarH(grid, "fsbarH", {}) {
    picGrid.SetClears(false);  // each paint ends with a copy of the whole
  }
  ~Inside() {
    column_added.End();
    column_changed.End();
  }
  Inside(const Inside&) = delete;
  Inside& operator=(const Inside&) = delete;

  GridMeasures Measures(const FlatGrid& grid) const;
  GridPosition Position(const FlatGrid& grid) const;
  // Puts the parts where they belong; what is there already is left alone.
  void Place(TwipSize grid, bool row_bar);
  // Into any context that has the text's font and colour.
  void DrawRow(const FlatGrid& grid, const GridCanvas& canvas, std::int64_t row) const;
  // A new off-screen context for a picture of another size.
  void RenewOffScreen();

  CellStore store;
  std::vector<std::shared_ptr<FlatColumn>> columns;  // by their positions
  std::vector<GridColumn> sizes;                     // of the same
  PictureBox picGrid;
  ChildControl<FlatScroll> fsbarV;
  ChildControl<FlatScroll> fsbarH;
  GridTools tools;
  MemoryContext off_screen;       // of the picture's size; null until there is one
  std::int32_t visible_rows = 0;  // V of the last full paint
  bool arranging = false;         // what the bars report is the grid's own doing
  CellEdit edit;
  WheelNotches wheel;
  Subscription column_added;
  Subscription column_changed;
};

}  // namespace levelwidgets
