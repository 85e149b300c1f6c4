// Clocks, memory and the physical limits that figures are compared with.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include <levelwidgets/platform/types.h>

namespace levelwidgets::bench {

// The processor's time for this thread, which other programs on the same core do not add to.
struct Clock {
  using duration = std::chrono::nanoseconds;
  using rep = duration::rep;
  using period = duration::period;
  using time_point = std::chrono::time_point<Clock>;
  static constexpr bool is_steady = true;

  static time_point now();
};

inline double SecondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

// Seconds, or bytes, of some runs of the same work.
class Samples {
 public:
  void Add(double value) { values_.push_back(value); }
  // Of at least one.
  double Min() const;
  double Median() const;

 private:
  std::vector<double> values_;
};

// Runs `work` `batch` times for each of `runs` samples: the seconds of one.
template <typename Work>
Samples Repeat(int runs, int batch, Work work) {
  Samples samples;
  for (int run = 0; run < runs; ++run) {
    const auto start = Clock::now();
    for (int i = 0; i < batch; ++i) work();
    samples.Add(SecondsSince(start) / batch);
  }
  return samples;
}

// Seconds for `count` fills of as many pixels as `size` has, of 32 bits each.
double FillTime(PixelSize size, std::size_t count);
// Seconds for `count` copies of `text` into the same place.
double CopyTime(const std::string& text, std::size_t count);

// Keeps this process, and those that it starts, on the core where it is. Returns its number, -1 when refused.
int PinToOneCore();

// Bytes in use of the heap, and of this process resident.
double HeapBytes();
double ResidentBytes();
// The most bytes that were ever resident.
double PeakResidentBytes();

}  // namespace levelwidgets::bench
