#include <bench/scripted_grid.h>

#include <stdexcept>

#include <bench/measure.h>

namespace levelwidgets::bench {

namespace {

std::string Loop(const std::string& variable, int count, const std::string& body) {
  return "for " + variable + " = 1, " + std::to_string(count) + " do " + body + " end ";
}

}  // namespace

ScriptedGrid::ScriptedGrid(int rows) : rows_(rows) {
  const std::string count = std::to_string(rows);
  const std::string columns = std::to_string(kColumns);
  host_.RunText(
      "local form = lw.form{ Name = 'frm', Width = 9000, Height = 6000 }\n"
      "grid = form:add('FlatGrid', 'grd', { Left = 0, Top = 0, Width = 8000, Height = 3000 })\n"
      "for column = 1, " +
          columns +
          " do grid.Columns:Add('' .. column) end\n"
          "grid.RowCount = " +
          count +
          "\n"
          "text, rows = '12345678', {}\n"
          "for row = 1, " +
          count +
          " do rows[row] = {} end\n"
          "form:show()\n",
      "setup");
  SecondsForACell("grid.RowData[row][column] = text; rows[row][column] = text");
}

double ScriptedGrid::SecondsForACell(const std::string& statement) {
  const double seconds = SecondsFor(Loop("row", rows_, Loop("column", kColumns, statement)));
  return seconds / rows_ / kColumns;
}

double ScriptedGrid::SecondsForACellDown(const std::string& statement) {
  const double seconds = SecondsFor(Loop("column", kColumns, Loop("row", rows_, statement)));
  return seconds / rows_ / kColumns;
}

double ScriptedGrid::SecondsForOne(const std::string& statement, int count) {
  return SecondsFor(Loop("i", count, statement)) / count;
}

void ScriptedGrid::CheckFilled() {
  const std::string check = "if grid.RowData[row][column] ~= text then missing = true end";
  host_.RunText("missing = false", "check");
  SecondsForACell(check);
  if (host_.RunText("return missing and 1 or 0", "check") != 0) {
    throw std::logic_error("a script has not filled each cell");
  }
}

// The names are locals, as whoever cares for speed has them.
double ScriptedGrid::SecondsFor(const std::string& script) {
  const std::string text = "collectgarbage() local grid, rows, text = grid, rows, text local value " + script;
  const auto start = Clock::now();
  host_.RunText(text, "measured");
  return SecondsSince(start);
}

}  // namespace levelwidgets::bench
