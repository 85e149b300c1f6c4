// How long a scroll bar takes to repaint and to follow a drag. The column times_fill says how many times as
// long as std::fill of the bar's pixels, measured in the same run.
#include <benchmark/benchmark.h>

#include <bench/measure.h>
#include <bench/subjects.h>
#include <levelwidgets/controls/scroll/flat_scroll.h>

namespace {

using namespace levelwidgets;
using namespace levelwidgets::bench;

// A form with one vertical bar of `size` pixels.
class Bar {
 public:
  explicit Bar(PixelSize size)
      : pixels_(size), bar_(form_.Add<FlatScroll>("scrMain", {0, 0, size.width, size.height})) {
    bar_.SetValue(50);
    form_.GetDesktop().Settle();
  }
  FlatScroll& Control() { return bar_; }

  // A pointer message, as the desktop delivers it.
  void Send(std::uint32_t message, PixelPoint at) {
    form_.GetDesktop().Windows().SendMessageA(bar_.hWnd(), message, kMkLButton, LParamOfPoint(at));
  }

  // Seconds for `count` fills of as many pixels as the bar has.
  double FillTime(std::int64_t count) const {
    return bench::FillTime(pixels_, static_cast<std::size_t>(count));
  }

 private:
  PixelSize pixels_;
  ShownForm form_{{1900, 1000}};
  FlatScroll& bar_;
};

PixelSize SizeOf(const benchmark::State& state) {
  return {static_cast<int>(state.range(0)), static_cast<int>(state.range(1))};
}

// Arguments of both: width and height in pixels.
void Repaint(benchmark::State& state) {
  Bar bar(SizeOf(state));
  const auto start = Clock::now();
  for (auto _ : state) bar.Control().OnPaint();
  state.counters["times_fill"] = SecondsSince(start) / bar.FillTime(state.iterations());
}
BENCHMARK(Repaint)->Args({17, 200})->Args({17, 400})->Args({17, 900});

// Every move is a message that changes the value: it repaints, notifies and raises Change.
void DragMove(benchmark::State& state) {
  Bar bar(SizeOf(state));
  std::int64_t changes = 0;
  bar.Control().Change += [&changes] { ++changes; };
  const int middle = static_cast<int>(state.range(1)) / 2;
  bar.Send(kWmLButtonDown, {8, middle});
  int step = 0;
  const auto start = Clock::now();
  for (auto _ : state) bar.Send(kWmMouseMove, {8, middle + (++step % 2) * 20});
  const double dragging = SecondsSince(start);
  bar.Send(kWmLButtonUp, {8, middle});
  state.SetItemsProcessed(state.iterations());
  state.counters["times_fill"] = dragging / bar.FillTime(state.iterations());
  if (changes < state.iterations() - 1) state.SkipWithError("not every move changed the value");
}
BENCHMARK(DragMove)->Args({17, 200})->Args({17, 400})->Args({17, 900});

}  // namespace

BENCHMARK_MAIN();
