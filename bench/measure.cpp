#include <bench/measure.h>

#include <malloc.h>
#include <sched.h>
#include <time.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace levelwidgets::bench {

namespace {

// The compiler has to take `memory` for used.
void Use(void* memory) { asm volatile("" : : "g"(memory) : "memory"); }

// A number of /proc/self/status; 0 where there is none. Without a stream, whose start would be measured, too.
double Kilobytes(const char* name) {
  std::FILE* file = std::fopen("/proc/self/status", "r");
  if (!file) return 0;
  double kilobytes = 0;
  for (char line[256]; std::fgets(line, sizeof line, file);) {
    if (std::strncmp(line, name, std::strlen(name)) == 0) kilobytes = std::atof(line + std::strlen(name));
  }
  std::fclose(file);
  return kilobytes;
}

}  // namespace

Clock::time_point Clock::now() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return time_point(std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec));
}

double Samples::Min() const { return *std::ranges::min_element(values_); }

double Samples::Median() const {
  std::vector<double> sorted = values_;
  std::ranges::sort(sorted);
  return sorted[sorted.size() / 2];
}

double FillTime(PixelSize size, std::size_t count) {
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(size.width) *
                                    static_cast<std::size_t>(size.height));
  const auto start = Clock::now();
  for (std::size_t i = 0; i < count; ++i) {
    std::fill(pixels.begin(), pixels.end(), static_cast<std::uint32_t>(i));
    Use(pixels.data());
  }
  return SecondsSince(start);
}

double CopyTime(const std::string& text, std::size_t count) {
  std::string copy(text.size(), '\0');
  const auto start = Clock::now();
  for (std::size_t i = 0; i < count; ++i) {
    std::copy(text.begin(), text.end(), copy.begin());
    Use(copy.data());
  }
  return SecondsSince(start);
}

int PinToOneCore() {
  const int core = sched_getcpu();
  cpu_set_t set;
  CPU_ZERO(&set);
  CPU_SET(static_cast<std::size_t>(std::max(core, 0)), &set);
  return core >= 0 && sched_setaffinity(0, sizeof set, &set) == 0 ? core : -1;
}

double HeapBytes() {
  const auto heap = mallinfo2();
  return static_cast<double>(heap.uordblks + heap.hblkhd);
}

double ResidentBytes() { return Kilobytes("VmRSS:") * 1024; }

double PeakResidentBytes() { return Kilobytes("VmHWM:") * 1024; }

}  // namespace levelwidgets::bench
