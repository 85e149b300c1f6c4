// How long a button takes to repaint. The column times_fill says how many times as long as std::fill of its
// pixels, measured in the same run.
#include <benchmark/benchmark.h>

#include <bench/measure.h>
#include <bench/subjects.h>

namespace levelwidgets::bench {
namespace {

// Arguments: width and height in pixels.
void Repaint(benchmark::State& state) {
  const PixelSize size{static_cast<int>(state.range(0)), static_cast<int>(state.range(1))};
  OneButton button(size);
  const auto start = Clock::now();
  for (auto _ : state) button.Repaint();
  const double repainting = SecondsSince(start);
  state.counters["times_fill"] = repainting / FillTime(size, static_cast<std::size_t>(state.iterations()));
}
BENCHMARK(Repaint)->Args({120, 32})->Args({80, 25})->Args({600, 200});

// A move from button to button changes and repaints a highlight.
void PointerMove(benchmark::State& state) {
  HundredButtons buttons;
  const auto start = Clock::now();
  for (auto _ : state) buttons.Move();
  const double moving = SecondsSince(start);
  state.SetItemsProcessed(state.iterations());
  const auto count = static_cast<std::size_t>(state.iterations());
  state.counters["times_fill"] = moving / FillTime(HundredButtons::kButtonSize, count);
}
BENCHMARK(PointerMove);

}  // namespace
}  // namespace levelwidgets::bench

BENCHMARK_MAIN();
