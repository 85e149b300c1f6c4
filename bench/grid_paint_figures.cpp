// What the painting of grids takes, and the opening of their editors.
#include <cstring>
#include <stdexcept>
#include <vector>

#include <bench/figures.h>
#include <bench/subjects.h>
#include <levelwidgets/controls/grid/cell_editor.h>
#include <levelwidgets/controls/grid/flat_grid.h>

namespace levelwidgets::bench {

namespace {

constexpr PixelSize kGrid{800, 600};
constexpr PixelSize kTwoRows{800, 32};
constexpr PixelSize kCell{101, 17};
constexpr std::int32_t kColumns = 8;
constexpr std::int32_t kManyRows = 1'000'000;

// 800 by 600 pixels: 8 columns of 100 pixels, rows of 16 pixels, no header. All of it holds texts.
class OneGrid {
 public:
  explicit OneGrid(std::int32_t rows) {
    HostedControl& hosted = form_.AddHosted(FlatGrid::Table(), "grd", {0, 0, 800, 600}, nullptr);
    grid_ = &dynamic_cast<FlatGrid&>(*hosted.GetControl());
    grid_->SetShowColumnHeaders(false);
    grid_->SetRowHeight(Twips(240));
    grid_->SetAllowEdits(true);
    for (std::int32_t column = 1; column <= kColumns; ++column) {
      grid_->Columns()->Add("Column", 1500, ksxLeft, ksxLeft, ksxEditText, true);
    }
    grid_->SetRowCount(rows);
    hosted.SetFocus();
    GetDesktop().Settle();
  }

  FlatGrid& Grid() { return *grid_; }
  memory::Desktop& GetDesktop() { return form_.GetDesktop(); }
  void ShowRow(std::int32_t first) {
    for (std::int32_t row = first; row < first + 40; ++row) {
      for (std::int32_t column = 1; column <= kColumns; ++column) grid_->SetRowData(row, column, "12345678");
    }
    grid_->SetTopIndex(first);
    if (grid_->TopIndex() != first) throw std::logic_error("the grid has not scrolled");
  }
  void Key(int code) {
    GetDesktop().KeyDown(code, 0);
    GetDesktop().KeyUp(code, 0);
  }
  // What is measured must have been drawn.
  void CheckRow(std::int32_t row, Color expected) {
    PixelPoint point{75, (row - grid_->TopIndex()) * 16 + 13};
    GetDesktop().Windows().ClientToScreen(grid_->hWnd(), point);
    const ColorRef drawn = GetDesktop().PixelAt(point);
    if (drawn.value != static_cast<std::uint32_t>(expected.value))
      throw std::logic_error("a row is not drawn");
  }

 private:
  ShownForm form_{{820, 620}};
  FlatGrid* grid_ = nullptr;
};

// Seconds for a copy of the grid's pixels.
double CopyOfPixels() {
  const std::vector<std::uint32_t> from(static_cast<std::size_t>(kGrid.width * kGrid.height), 1);
  std::vector<std::uint32_t> to(from.size());
  return Repeat(101, 5,
                [&] {
                  std::memcpy(to.data(), from.data(), from.size() * sizeof from[0]);
                  asm volatile("" : : "g"(to.data()) : "memory");
                })
      .Median();
}

Samples MeasureRepaint(std::int32_t rows, std::int32_t first) {
  OneGrid grid(rows);
  grid.ShowRow(first);
  const Samples repaint = Repeat(101, 5, [&] { grid.Grid().OnPaint(); });
  grid.CheckRow(first + 2, first % 2 == 1 ? grid.Grid().BackColorRowOdd() : grid.Grid().BackColorRowEven());
  return repaint;
}

Samples MeasureMove() {
  OneGrid grid(100);
  grid.ShowRow(1);
  const Samples moves = Repeat(101, 20, [&] { grid.Key(grid.Grid().RowIndex() < 30 ? kKeyDown : kKeyHome); });
  grid.CheckRow(grid.Grid().RowIndex(), grid.Grid().BackColorSelected());
  return moves;
}

Samples MeasurePages() {
  OneGrid grid(kManyRows);
  const Samples pages = Repeat(101, 10, [&] { grid.Key(kKeyPageDown); });
  if (grid.Grid().RowIndex() < 30'000) throw std::logic_error("the pages were not turned");
  grid.CheckRow(grid.Grid().RowIndex(), grid.Grid().BackColorSelected());
  return pages;
}

Samples MeasureEditor(ksxEditTypeConstants type, bool first_time) {
  Samples opening;
  std::unique_ptr<OneGrid> grid;
  for (int run = 0; run < 101; ++run) {
    if (!grid || first_time) {
      grid = std::make_unique<OneGrid>(100);
      grid->Grid().Columns()->Item(1)->SetEditType(type);
      grid->ShowRow(1);
      grid->GetDesktop().Settle();
    }
    const auto start = Clock::now();
    grid->Key(kKeyF2);
    grid->GetDesktop().Settle();
    opening.Add(SecondsSince(start));
    if (!grid->Grid().Editor()) throw std::logic_error("the editor has not opened");
    grid->CheckRow(1, Color(0xFFFFFF));
    grid->Key(kKeyEscape);
  }
  return opening;
}

}  // namespace

void MeasureGridPainting(std::vector<Figure>& figures) {
  const Samples repaint = MeasureRepaint(100, 1);
  const Samples far = MeasureRepaint(kManyRows, kManyRows / 2 + 1);
  figures.push_back(LowerIsBetter("Grid of 304 cells repainted", "us", repaint, kMicro, "copy of its pixels",
                                  CopyOfPixels() * kMicro, 200));
  figures.push_back(LowerIsBetter("The same at row 500,001 of 1,000,000, to that at row 1", "times",
                                  One(far.Min() / repaint.Min()), 1, "the same work", 1, 1.02));
  figures.push_back(LowerIsBetter("Row of a grid selected by a key, with repaint", "us", MeasureMove(),
                                  kMicro, "fill of two rows", MedianFill(kTwoRows) * kMicro, 12));
  figures.push_back(LowerIsBetter("Page down in a grid of 1,000,000 rows, with repaint", "us", MeasurePages(),
                                  kMicro, "copy of its pixels", CopyOfPixels() * kMicro, 250));
  constexpr struct {
    const char* name;
    ksxEditTypeConstants type;
  } kEditors[] = {{"Edit box of a grid", ksxEditText},
                  {"Calculator of a grid", ksxEditCalculator},
                  {"Calendar of a grid", ksxEditCalendar},
                  {"Drop-down of a grid", ksxEditDropDown}};
  for (const auto& [name, type] : kEditors) {
    for (const bool first : {true, false}) {
      figures.push_back(LowerIsBetter(
          std::string(name) + " opened" + (first ? " for the first time" : "") + ", to its first pixels",
          "us", MeasureEditor(type, first), kMicro, "fill of its cell", MedianFill(kCell) * kMicro, 300));
    }
  }
}

}  // namespace levelwidgets::bench
