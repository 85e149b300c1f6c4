// Processes that start, show something and say so.
#pragma once

#include <string>
#include <vector>

#include <bench/measure.h>

namespace levelwidgets::bench {

// Of the form whose first frame is measured.
inline constexpr PixelSize kFirstFrameSize{400, 300};

// For the process that is measured, once it has its pixels: reports to the one that measures, with the most
// bytes that were resident. Returns the status to end with.
int TellReady(double peak_bytes);

struct Startup {
  Samples seconds;        // from before the process is made until it reports that it is ready, or ends
  double peak_bytes = 0;  // as reported; 0 when it reports nothing
};

// Runs a program `runs` times. Raises std::runtime_error when it cannot be run or ends with another status
// than 0.
Startup MeasureStartup(const std::vector<std::string>& command, int runs);

}  // namespace levelwidgets::bench
