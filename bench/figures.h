// The figures that the project promises, measured.
#pragma once

#include <string>
#include <vector>

#include <bench/measure.h>

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

// Of samples, which `scale` turns into the unit; `floor` and `target` are in the unit.
Figure LowerIsBetter(std::string what, std::string unit, const Samples& samples, double scale,
                     std::string floor_is, double floor, double target);
inline constexpr double kMicro = 1e6;
inline constexpr double kMilli = 1e3;
inline constexpr double kMega = 1.0 / (1 << 20);

// Seconds for a fill of as many pixels as `size` has.
double MedianFill(PixelSize size);
// What one value is as samples.
Samples One(double value);

// Those of the cells of grids.
void MeasureGrids(std::vector<Figure>& figures);
// Those of their painting.
void MeasureGridPainting(std::vector<Figure>& figures);
// Those of scripts that use grids.
void MeasureScripts(std::vector<Figure>& figures);
// Those of the controls with panels.
void MeasureDropDowns(std::vector<Figure>& figures);
void MeasurePanels(std::vector<Figure>& figures);

// `folder` holds the programs that are run. Memory comes first: what was freed before would be used again.
std::vector<Figure> MeasureFigures(const std::string& folder);

}  // namespace levelwidgets::bench
