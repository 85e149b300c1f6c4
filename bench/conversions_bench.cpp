// How long values take to become texts and back. The column allocations counts those of one conversion, its
// result's included: none when it has up to 15 bytes.
#include <benchmark/benchmark.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <new>
#include <string>
#include <string_view>

#include <levelwidgets/platform/conversions/conversions.h>

namespace {

std::size_t allocations = 0;

}  // namespace

[[gnu::noinline]] void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

using levelwidgets::ConversionValue;
using levelwidgets::Date;
using levelwidgets::conversions::Conversions;
using levelwidgets::conversions::LocaleOrDefault;
using Clock = std::chrono::steady_clock;

Conversions& English() {
  static Conversions conversions(LocaleOrDefault("en-US"), [] { return Date{45427}; });
  return conversions;
}

double SecondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

// Seconds for `count` copies of `text` into fresh strings.
double CopyTime(const std::string& text, std::size_t count) {
  const auto start = Clock::now();
  for (std::size_t i = 0; i < count; ++i) {
    std::string copy(text);
    benchmark::DoNotOptimize(copy.data());
  }
  return SecondsSince(start);
}

// Several values in turn, so that no branch is learnt by heart.
constexpr std::size_t kValues = 16;

template <typename Convert>
void Measure(benchmark::State& state, Convert convert) {
  const std::string sample = convert(0);
  const std::size_t before = allocations;
  std::size_t i = 0;
  const auto start = Clock::now();
  for (auto _ : state) {
    std::string text = convert(i++ % kValues);
    benchmark::DoNotOptimize(text.data());
  }
  const double converting = SecondsSince(start);
  const auto count = static_cast<std::size_t>(state.iterations());
  state.counters["allocations"] = static_cast<double>(allocations - before) / static_cast<double>(count);
  state.counters["times_copy"] = converting / CopyTime(sample, count);
  state.SetLabel(sample);
}

double NumberAt(std::size_t i) { return 1234.5678 / static_cast<double>(i + 1) * (i % 2 == 0 ? 1 : -1); }
Date DateAt(std::size_t i) { return {45427.4375 + static_cast<double>(i) * 17.31}; }

void FormatNumber(benchmark::State& state, const char* format) {
  Measure(state, [format](std::size_t i) { return English().Format(NumberAt(i), format).value; });
}
void FormatDate(benchmark::State& state, const char* format) {
  Measure(state, [format](std::size_t i) { return English().Format(DateAt(i), format).value; });
}
void GeneralNumber(benchmark::State& state) {
  Measure(state, [](std::size_t i) { return English().ToText(NumberAt(i)).value; });
}
void GeneralWholeNumber(benchmark::State& state) {
  Measure(state, [](std::size_t i) { return English().ToText(static_cast<double>(i * 1237)).value; });
}
void GeneralDate(benchmark::State& state) {
  Measure(state, [](std::size_t i) { return English().ToText(DateAt(i)).value; });
}
void TextToNumber(benchmark::State& state) {
  static const std::array<std::string_view, 4> kTexts = {"1234.5", "-17", "$1,234,567.89", "(6.5e-3)"};
  Measure(state, [](std::size_t i) {
    benchmark::DoNotOptimize(English().ToDouble(kTexts[i % kTexts.size()]));
    return std::string(kTexts[0]);
  });
}
void TextToDate(benchmark::State& state) {
  static const std::array<std::string_view, 4> kTexts = {"5/15/2024", "15 May 2024", "10:30 PM",
                                                         "not a date"};
  Measure(state, [](std::size_t i) {
    benchmark::DoNotOptimize(English().IsDate(kTexts[i % kTexts.size()]));
    return std::string(kTexts[0]);
  });
}

BENCHMARK_CAPTURE(FormatNumber, two_decimals, "0.00");
BENCHMARK_CAPTURE(FormatNumber, standard, "#,##0.00");
BENCHMARK_CAPTURE(FormatNumber, currency, "Currency");
BENCHMARK_CAPTURE(FormatNumber, scientific, "0.00E+00");
BENCHMARK_CAPTURE(FormatDate, day_month_year, "dd mmm yyyy");
BENCHMARK_CAPTURE(FormatDate, long_date, "Long Date");
BENCHMARK(GeneralNumber);
BENCHMARK(GeneralWholeNumber);
BENCHMARK(GeneralDate);
BENCHMARK(TextToNumber);
BENCHMARK(TextToDate);

}  // namespace

BENCHMARK_MAIN();
