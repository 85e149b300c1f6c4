// How long scripts take for members of controls. The column times_table says how many times as long as the
// same with tables of the script's own, measured in the same run.
#include <benchmark/benchmark.h>

#include <bench/measure.h>
#include <bench/scripted_grid.h>

namespace levelwidgets::bench {
namespace {

constexpr int kRows = 20'000;
constexpr int kCalls = 100'000;

using Measure = double (*)(ScriptedGrid& grid, const std::string& statement);

double ForACell(ScriptedGrid& grid, const std::string& statement) { return grid.SecondsForACell(statement); }
double ForACellDown(ScriptedGrid& grid, const std::string& statement) {
  return grid.SecondsForACellDown(statement);
}
double ForOne(ScriptedGrid& grid, const std::string& statement) {
  return grid.SecondsForOne(statement, kCalls);
}

// The time of one `statement`, compared with `floor`.
void Members(benchmark::State& state, Measure measure, const std::string& statement,
             const std::string& floor) {
  ScriptedGrid grid(kRows);
  double seconds = 0;
  double floor_seconds = 0;
  for (auto _ : state) {
    const double took = measure(grid, statement);
    state.SetIterationTime(took);
    seconds += took;
    floor_seconds += measure(grid, floor);
  }
  grid.CheckFilled();
  state.counters["times_table"] = seconds / floor_seconds;
}

void Register(const char* name, Measure measure, const std::string& statement, const std::string& floor) {
  benchmark::RegisterBenchmark(name, Members, measure, statement, floor)
      ->UseManualTime()
      ->Iterations(10)
      ->Unit(benchmark::kNanosecond);
}

}  // namespace
}  // namespace levelwidgets::bench

int main(int argc, char** argv) {
  using namespace levelwidgets::bench;
  const std::string write = "grid.RowData[row][column] = text";
  const std::string read = "value = grid.RowData[row][column]";
  Register("CellWritten", ForACell, write, "rows[row][column] = text");
  Register("CellRead", ForACell, read, "value = rows[row][column]");
  Register("CellWrittenDown", ForACellDown, write, "rows[row][column] = text");
  Register("CellReadDown", ForACellDown, read, "value = rows[row][column]");
  Register("PropertyRead", ForOne, "value = grid.RowCount", "value = rows[1]");
  Register("PlacementRead", ForOne, "value = grid.Left", "value = rows[1]");
  Register("PropertyWritten", ForOne, "grid.AllowEdits = true", "rows[1] = rows[1]");
  Register("MethodCalled", ForOne, "value = grid:HitTest(0, 0)", "value = math.max(0, 0)");
  Register("ColumnsProperty", ForOne, "value = grid.Columns[1].Width", "value = rows[1][1]");
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
