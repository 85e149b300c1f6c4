// What scripts take for the cells of grids.
#include <bench/figures.h>
#include <bench/scripted_grid.h>

namespace levelwidgets::bench {

namespace {

constexpr double kNano = 1e9;
constexpr int kRuns = 5;

}  // namespace

void MeasureScripts(std::vector<Figure>& figures) {
  constexpr char kTable[] = "the same with a table of tables";
  constexpr int kRows = 1'000'000;
  const std::string write = "grid.RowData[row][column] = text";
  const auto per_cell = [](ScriptedGrid& grid, const std::string& statement) {
    Samples samples;
    for (int run = 0; run < kRuns; ++run) samples.Add(grid.SecondsForACell(statement));
    return samples;
  };

  ScriptedGrid grid(100'000);
  figures.push_back(LowerIsBetter("Grid cell written by a script", "ns", per_cell(grid, write), kNano, kTable,
                                  per_cell(grid, "rows[row][column] = text").Median() * kNano, 300));
  figures.push_back(LowerIsBetter("Grid cell read by a script", "ns",
                                  per_cell(grid, "value = grid.RowData[row][column]"), kNano, kTable,
                                  per_cell(grid, "value = rows[row][column]").Median() * kNano, 200));

  ScriptedGrid large(kRows);
  const double cells = double{kRows} * ScriptedGrid::kColumns;
  const double floor = large.SecondsForACell("rows[row][column] = text") * cells;
  const double filling = large.SecondsForACell(write) * cells;
  large.CheckFilled();
  figures.push_back(
      LowerIsBetter("Grid of 1,000,000 by 8 filled by a script", "s", One(filling), 1, kTable, floor, 4));
}

}  // namespace levelwidgets::bench
