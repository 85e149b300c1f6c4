// How long a tab strip takes to paint. The column times_fill_and_copy says how many times as long as filling
// and copying its pixels alone, measured in the same run.
#include <benchmark/benchmark.h>

#include <chrono>

#include <levelwidgets/controls/tabstrip/flat_tab_strip.h>
#include <levelwidgets/frame/paint.h>
#include <levelwidgets/host/form/form.h>
#include <levelwidgets/platform/memory/desktop.h>

namespace {

using namespace levelwidgets;
using Clock = std::chrono::steady_clock;

constexpr std::int16_t kTabs = 20;

// A form with one tab strip of `tabs` tabs, all of which can be seen while there are twenty.
class Strip {
 public:
  Strip(TwipSize size, std::int16_t tabs) {
    form_->MoveTo({0, 0});
    form_->Show();
    HostedControl& hosted = form_->Add(FlatTabStrip::Table(), "tabMain", nullptr, {{}, size});
    strip_ = dynamic_cast<FlatTabStrip*>(hosted.GetControl().get());
    strip_->SetTabCount(tabs);
    strip_->SetTabWidth(Twips((size.width.value / kTabs) - 5 * 15));
    for (std::int16_t tab = 1; tab <= tabs; ++tab) {
      strip_->SetTabCaption(tab, "Tab " + std::to_string(tab));
    }
    strip_->SetSelectedTab(3);
    desktop_.Settle();
  }
  FlatTabStrip& Control() { return *strip_; }

  // Seconds for `count` fills of a bitmap of the strip's size, each with one copy to the strip.
  double FillAndCopyTime(std::int64_t count) {
    DrawingApi& drawing = desktop_.Drawing();
    const Surface& surface = strip_->GetSurface();
    const PixelRect pixels = surface.ClientPixels();
    const MemoryContext source(drawing, surface.hDC(), {pixels.right, pixels.bottom});
    const DrawingObject brush(drawing, drawing.CreateSolidBrush({0x00EFF7F7}));
    const auto start = Clock::now();
    for (std::int64_t i = 0; i < count; ++i) {
      drawing.FillRect(source.Handle(), pixels, brush.Handle());
      drawing.BitBlt(surface.hDC(), pixels, source.Handle(), {0, 0}, kSrcCopy);
    }
    return std::chrono::duration<double>(Clock::now() - start).count();
  }

 private:
  memory::Desktop desktop_{{.screen = {1920, 1080}}};
  std::shared_ptr<Form> form_ = Form::Create(desktop_, {.size = {Twips(28000), Twips(15000)}});
  FlatTabStrip* strip_ = nullptr;
};

// Arguments: width and height in pixels, tabs.
void Paint(benchmark::State& state) {
  const TwipSize size{Twips(static_cast<int>(state.range(0)) * 15),
                      Twips(static_cast<int>(state.range(1)) * 15)};
  Strip strip(size, static_cast<std::int16_t>(state.range(2)));
  const auto start = Clock::now();
  for (auto _ : state) strip.Control().OnPaint();
  const double painting = std::chrono::duration<double>(Clock::now() - start).count();
  state.counters["times_fill_and_copy"] = painting / strip.FillAndCopyTime(state.iterations());
}
BENCHMARK(Paint)
    ->Args({1200, 400, 20})
    ->Args({1800, 900, 20})
    ->Args({600, 200, 20})
    ->Args({1200, 24, 20})
    ->Args({1200, 400, 30000});

}  // namespace

BENCHMARK_MAIN();
