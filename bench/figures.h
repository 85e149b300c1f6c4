// The figures that the project promises, measured.
#pragma once

#include <string>
#include <vector>

namespace levelwidgets::bench {

struct Figure {
  std::string what;
  std::string unit;  // of all the numbers
  double median = 0;
  double best = 0;   // of all runs
  double floor = 0;  // what no program could do without, measured in the same run
  std::string floor_is;
  double target = 0;
  bool at_least = false;  // the target is a lower limit

  double Ratio() const { return at_least ? floor / median : median / floor; }
  bool Reached() const { return at_least ? median >= target : median <= target; }
};

// `folder` holds the programs that are run. Memory comes first: what was freed before would be used again.
std::vector<Figure> MeasureFigures(const std::string& folder);

}  // namespace levelwidgets::bench
