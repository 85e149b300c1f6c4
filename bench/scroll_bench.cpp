// How long a scroll bar takes to repaint and to follow a drag. The column times_fill says how many times as
// long as std::fill of the bar's pixels, measured in the same run.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

#include <levelwidgets/controls/scroll/flat_scroll.h>
#include <levelwidgets/host/form.h>
#include <levelwidgets/platform/memory/desktop.h>

namespace {

using namespace levelwidgets;
using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

// A form with one vertical bar of `size` pixels.
class Bar {
 public:
  explicit Bar(PixelSize size) : pixels_(size) {
    form_->MoveTo({0, 0});
    form_->Show();
    const TwipSize twips{Twips(size.width * 15), Twips(size.height * 15)};
    HostedControl& hosted = form_->Add(FlatScroll::Table(), "scrMain", nullptr, {{}, twips});
    bar_ = dynamic_cast<FlatScroll*>(hosted.GetControl().get());
    bar_->SetValue(50);
    desktop_.Settle();
  }
  FlatScroll& Control() { return *bar_; }

  // A pointer message, as the desktop delivers it.
  void Send(std::uint32_t message, PixelPoint at) {
    desktop_.Windows().SendMessageA(bar_->hWnd(), message, kMkLButton, LParamOfPoint(at));
  }

  // Seconds for `count` fills of as many pixels as the bar has.
  double FillTime(std::int64_t count) const {
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(pixels_.width * pixels_.height));
    const auto start = Clock::now();
    for (std::int64_t i = 0; i < count; ++i) {
      std::fill(pixels.begin(), pixels.end(), static_cast<std::uint32_t>(i));
      benchmark::DoNotOptimize(pixels.data());
      benchmark::ClobberMemory();
    }
    return SecondsSince(start);
  }

 private:
  PixelSize pixels_;
  memory::Desktop desktop_{{.screen = {1920, 1080}}};
  std::shared_ptr<Form> form_ = Form::Create(desktop_, {.size = {Twips(28000), Twips(15000)}});
  FlatScroll* bar_ = nullptr;
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
