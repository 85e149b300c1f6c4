// A grid that a script fills and reads cell by cell, and a table of tables beside it.
#pragma once

#include <string>

#include <levelwidgets/host/script/script_host.h>

namespace levelwidgets::bench {

class ScriptedGrid {
 public:
  static constexpr int kColumns = 8;

  // Both are filled with texts of 8 characters.
  explicit ScriptedGrid(int rows);

  // Seconds that a script takes for `statement` with each cell, row by row: `grid`, `rows`, `text` are there,
  // `row` and `column` count.
  double SecondsForACell(const std::string& statement);
  // The same, column by column.
  double SecondsForACellDown(const std::string& statement);
  // Seconds for `statement`, of `count`.
  double SecondsForOne(const std::string& statement, int count);
  // Raises std::logic_error unless all cells have the text that they are filled with.
  void CheckFilled();

 private:
  double SecondsFor(const std::string& script);

  int rows_;
  ScriptHost host_;
};

}  // namespace levelwidgets::bench
