// How long a form takes to be loaded from its file's text, and to be shown. The columns times_copy and
// times_fill say how many times as long as copying the text and filling the form's pixels, measured in the
// same run.
#include <benchmark/benchmark.h>

#include <bench/measure.h>
#include <bench/subjects.h>

namespace levelwidgets::bench {
namespace {

std::string TextOf(const benchmark::State& state) {
  const auto mix = state.range(1) != 0 ? Mix::kWithTextBoxes : Mix::kLabelsAndButtons;
  return FormTextOf(static_cast<int>(state.range(0)), mix);
}

// Arguments of both: controls, and whether some are text boxes.
void Load(benchmark::State& state) {
  memory::Desktop desktop;
  const std::string text = TextOf(state);
  double loading = 0;
  for (auto _ : state) {
    const auto start = Clock::now();
    const auto form = LoadChecked(desktop, text);
    const double took = SecondsSince(start);
    state.SetIterationTime(took);
    loading += took;
  }
  state.counters["times_copy"] = loading / CopyTime(text, static_cast<std::size_t>(state.iterations()));
}
BENCHMARK(Load)->UseManualTime()->Unit(benchmark::kMillisecond)->ArgsProduct({{10, 100, 1000}, {0, 1}});

void Show(benchmark::State& state) {
  memory::Desktop desktop;
  const std::string text = TextOf(state);
  double showing = 0;
  for (auto _ : state) {
    const auto form = LoadChecked(desktop, text);
    const auto start = Clock::now();
    form->Show();
    desktop.Settle();
    const double took = SecondsSince(start);
    state.SetIterationTime(took);
    showing += took;
  }
  state.counters["times_fill"] = showing / FillTime(kFormSize, static_cast<std::size_t>(state.iterations()));
}
BENCHMARK(Show)->UseManualTime()->Unit(benchmark::kMillisecond)->ArgsProduct({{10, 100, 1000}, {0, 1}});

// Very many labels, in rows over each other or all in one place: loaded, shown and closed. Arguments: how
// many, and whether in one place. times_copy and times_fill as above.
void ManyLabels(benchmark::State& state) {
  memory::Desktop desktop;
  const auto mix = state.range(1) != 0 ? Mix::kLabelsInOnePlace : Mix::kLabels;
  const std::string text = FormTextOf(static_cast<int>(state.range(0)), mix);
  double seconds = 0;
  for (auto _ : state) {
    const auto start = Clock::now();
    const auto form = LoadChecked(desktop, text);
    form->Show();
    desktop.Settle();
    form->Close();
    seconds += SecondsSince(start);
    state.SetIterationTime(SecondsSince(start));
  }
  const auto runs = static_cast<std::size_t>(state.iterations());
  state.counters["us_each"] = seconds * 1e6 / static_cast<double>(state.range(0)) / static_cast<double>(runs);
  state.counters["times_copy"] = seconds / CopyTime(text, runs);
  state.counters["times_fill"] = seconds / FillTime(kFormSize, runs);
}
BENCHMARK(ManyLabels)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->ArgsProduct({{1000, 10000, 100000}, {0, 1}});

}  // namespace
}  // namespace levelwidgets::bench

BENCHMARK_MAIN();
