// How long the models take that have no window.
#include <benchmark/benchmark.h>

#include <chrono>
#include <string>
#include <vector>

#include <levelwidgets/controls/calculator/calculator_engine.h>
#include <levelwidgets/controls/calendar/month_model.h>
#include <levelwidgets/controls/grid/flat_columns.h>
#include <levelwidgets/platform/conversions/conversions.h>

namespace levelwidgets {
namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

// Runs `work`, then copies its `result` as often: the column times_copy is the one by the other.
template <typename Work, typename Result>
void Measure(benchmark::State& state, Work work, const Result& result) {
  const auto start = Clock::now();
  for (auto _ : state) work();
  const double working = SecondsSince(start);
  const auto copying = Clock::now();
  for (benchmark::IterationCount i = 0; i < state.iterations(); ++i) {
    Result copy(result);
    benchmark::DoNotOptimize(copy);
  }
  state.counters["times_copy"] = working / SecondsSince(copying);
}

conversions::Conversions& English() {
  static conversions::Conversions conversions(conversions::LocaleOrDefault("en-US"),
                                              [] { return Date{45427}; });
  return conversions;
}

void FillMonth(benchmark::State& state) {
  CalendarValue value(English());
  value.Assign(Date{45443});
  MonthModel model(
      English(), [] { return Date{45427}; }, value);
  model.Open();
  int month = 0;
  Measure(
      state,
      [&] {
        model.FillMonth(month % 12 + 1, 2000 + month / 12 % 100);
        ++month;
        benchmark::DoNotOptimize(model.Days().data());
      },
      model.Days());
}
BENCHMARK(FillMonth)->Unit(benchmark::kMicrosecond);

// A look-up by a key of other case, among as many columns as the argument says.
void ColumnByKey(benchmark::State& state) {
  const auto columns = FlatColumns::Create();
  std::vector<Variant> keys;
  for (int i = 0; i < state.range(0); ++i) {
    const std::string number = std::to_string(i);
    columns->Add("c", 0, ksxLeft, ksxLeft, ksxEditNone, true, "", "Column" + number);
    keys.emplace_back((i % 2 == 0 ? "Column" : "COLUMN") + number);
  }
  std::size_t i = 0;
  Measure(
      state,
      [&] {
        benchmark::DoNotOptimize(columns->Item(keys[i]));
        i = i + 1 == keys.size() ? 0 : i + 1;
      },
      std::get<std::string>(keys.back().Get()));
}
BENCHMARK(ColumnByKey)->Arg(10)->Arg(100)->Arg(1000);

class Display : public CalculatorDisplay {
 public:
  std::string Text() const override { return text; }
  void ShowText(const std::string& shown) override { text = shown; }
  void AssignText(const std::string& assigned) override { text = assigned; }
  void SetCaretToSelectionLength() override {}

  std::string text = "0";
};

// "1 2 + 3 ="
void Calculation(benchmark::State& state) {
  static constexpr std::int16_t kCodes[] = {49, 50, 107, 51, 13};
  Display display;
  CalculatorEngine engine(English(), display);
  Measure(
      state,
      [&] {
        engine.Open();
        for (const std::int16_t code : kCodes) benchmark::DoNotOptimize(engine.KeyDown(code));
      },
      display.text);
}
BENCHMARK(Calculation);

}  // namespace
}  // namespace levelwidgets

BENCHMARK_MAIN();
