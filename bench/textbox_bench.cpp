// How long a text box takes to follow what is typed, to load a long text, and what memory that takes. The
// columns times_copy say how many times as long as copying the same text, measured in the same run.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <chrono>
#include <cstring>

#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/host/form/form.h>
#include <levelwidgets/platform/memory/desktop.h>

namespace {

using namespace levelwidgets;
using Clock = std::chrono::steady_clock;

std::string Lines(int count) {
  std::string text;
  for (int i = 0; i < count; ++i)
    text += "A line of text that is about as long as lines are, number " + std::to_string(i) + "\r\n";
  return text;
}

// A form with one multi-line text box, 600 by 500 pixels, that has the focus.
class Editor {
 public:
  Editor() {
    form_->MoveTo({0, 0});
    form_->Show();
    PropertyBag saved;
    saved.WriteProperty("MultiLine", true, false);
    HostedControl& hosted =
        form_->Add(FlatTextBox::Table(), "txtMain", &saved, {{}, TwipSize{Twips(9000), Twips(7500)}});
    box_ = dynamic_cast<FlatTextBox*>(hosted.GetControl().get());
    hosted.SetFocus();
    desktop_.Settle();
  }
  FlatTextBox& Box() { return *box_; }
  memory::Desktop& Desktop() { return desktop_; }

 private:
  memory::Desktop desktop_;
  std::shared_ptr<Form> form_ = Form::Create(desktop_, {.size = {Twips(9000), Twips(7500)}});
  FlatTextBox* box_ = nullptr;
};

double CopyTime(const std::string& text) {
  std::string copy(text.size(), '\0');
  const auto start = Clock::now();
  std::memcpy(copy.data(), text.data(), text.size());
  benchmark::DoNotOptimize(copy.data());
  return std::chrono::duration<double>(Clock::now() - start).count();
}

// A key in the middle of 100,000 lines, with the notices, the repaint and the bar brought in step.
void Keystroke(benchmark::State& state) {
  Editor editor;
  const std::string text = Lines(100000);
  editor.Box().SetText(text);
  editor.Box().ActiveEdit().Select(static_cast<std::int32_t>(text.size() / 2), 0);
  editor.Box().ActiveEdit().Send(kEmScrollCaret);
  editor.Desktop().Key('X');
  int typed = 0;
  for (auto _ : state) {
    editor.Desktop().Key(++typed % 2 ? 'A' : kKeyBackspace);
  }
}
BENCHMARK(Keystroke)->Unit(benchmark::kMicrosecond);

void LoadTenMegabytes(benchmark::State& state) {
  const std::string text = Lines(150000).substr(0, 10000000);
  double loading = 0;
  double copying = 0;
  double growth = 0;
  for (auto _ : state) {
    state.PauseTiming();
    auto editor = std::make_unique<Editor>();
    const auto before = mallinfo2();
    state.ResumeTiming();
    const auto start = Clock::now();
    editor->Box().SetText(text);
    loading += std::chrono::duration<double>(Clock::now() - start).count();
    state.PauseTiming();
    const auto after = mallinfo2();
    growth = static_cast<double>(after.uordblks + after.hblkhd - before.uordblks - before.hblkhd);
    copying += CopyTime(text);
    editor.reset();
    state.ResumeTiming();
  }
  state.counters["times_copy"] = loading / copying;
  state.counters["memory_per_text"] = growth / static_cast<double>(text.size());
}
BENCHMARK(LoadTenMegabytes)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
