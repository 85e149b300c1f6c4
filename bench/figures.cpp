#include <bench/figures.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include <bench/measure.h>
#include <bench/startup.h>
#include <bench/subjects.h>

namespace levelwidgets::bench {

Figure LowerIsBetter(std::string what, std::string unit, const Samples& samples, double scale,
                     std::string floor_is, double floor, double target) {
  return {.what = std::move(what),
          .unit = std::move(unit),
          .median = samples.Median() * scale,
          .best = samples.Min() * scale,
          .floor = floor,
          .floor_is = std::move(floor_is),
          .target = target};
}

Samples One(double value) {
  Samples samples;
  samples.Add(value);
  return samples;
}

double MedianFill(PixelSize size) {
  constexpr int kBatch = 100;
  return Repeat(51, 1, [size] { FillTime(size, kBatch); }).Median() / kBatch;
}

namespace {

constexpr int kControls = 1000;

// What a form of a thousand controls adds beside its window's pixels once another one has been shown, its
// file's text not counted.
void MeasureMemory(std::vector<Figure>& figures, Mix mix, const std::string& what) {
  memory::Desktop desktop({.screen = {1920, 1080}});
  const auto first = LoadChecked(desktop, FormTextOf(3, mix));
  first->Show();
  desktop.Settle();
  const std::string text = FormTextOf(kControls, mix);
  const double heap = HeapBytes();
  const double resident = ResidentBytes();
  const auto form = LoadChecked(desktop, text);
  form->Show();
  desktop.Settle();
  const double pixels = 4.0 * kFormSize.width * kFormSize.height;
  const double file = static_cast<double>(text.size()) * kMega;
  figures.push_back(LowerIsBetter(what + " shown: heap growth", "MB", One(HeapBytes() - heap - pixels), kMega,
                                  "the file's text", file, 4));
  figures.push_back(LowerIsBetter(what + " shown: resident growth", "MB",
                                  One(ResidentBytes() - resident - pixels), kMega, "the file's text", file,
                                  4));
}

void MeasureButton(std::vector<Figure>& figures) {
  constexpr PixelSize kSize{120, 32};
  OneButton button(kSize);
  const Samples repaint = Repeat(101, 500, [&] { button.Repaint(); });
  const double fill = MedianFill(kSize) * kMicro;
  figures.push_back(LowerIsBetter("Button of 120 by 32 pixels: repaint", "us", repaint, kMicro,
                                  "fill of its pixels", fill, 10 * fill));
}

void MeasureMoves(std::vector<Figure>& figures) {
  HundredButtons buttons;
  const Samples move = Repeat(101, 500, [&] { buttons.Move(); });
  figures.push_back({.what = "Pointer moves over 100 buttons, each with a repaint",
                     .unit = "per s",
                     .median = 1 / move.Median(),
                     .best = 1 / move.Min(),
                     .floor = 1 / MedianFill(HundredButtons::kButtonSize),
                     .floor_is = "fill of a button's pixels",
                     .target = 500000,
                     .at_least = true});
}

void MeasureForm(std::vector<Figure>& figures, Mix mix, const std::string& what) {
  memory::Desktop desktop({.screen = {1920, 1080}});
  const std::string text = FormTextOf(kControls, mix);
  Samples loading;
  Samples showing;
  for (int run = 0; run < 51; ++run) {
    auto start = Clock::now();
    const auto form = LoadChecked(desktop, text);
    loading.Add(SecondsSince(start));
    start = Clock::now();
    form->Show();
    desktop.Settle();
    showing.Add(SecondsSince(start));
  }
  constexpr int kCopies = 100;
  figures.push_back(LowerIsBetter(what + " loaded from their file", "ms", loading, kMilli,
                                  "copy of the file's text", CopyTime(text, kCopies) / kCopies * kMilli, 6));
  figures.push_back(LowerIsBetter(what + " shown and painted", "ms", showing, kMilli,
                                  "fill of the form's pixels", MedianFill(kFormSize) * kMilli, 3));
}

// A form file for the programs that are run, removed at the end.
class FormFile {
 public:
  FormFile() { std::ofstream(path_) << OneButtonFormText(kFirstFrameSize); }
  ~FormFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }
  FormFile(const FormFile&) = delete;
  FormFile& operator=(const FormFile&) = delete;

  std::string Path() const { return path_.string(); }

 private:
  std::filesystem::path path_ =
      std::filesystem::temp_directory_path() / ("levelwidgets-bench-" + std::to_string(getpid()) + ".toml");
};

void AddStartup(std::vector<Figure>& figures, const std::string& what, const Startup& startup,
                const Startup& minimal) {
  figures.push_back(LowerIsBetter(what, "ms", startup.seconds, kMilli, "a minimal process",
                                  minimal.seconds.Median() * kMilli, 8));
  figures.push_back(LowerIsBetter(what + ": resident", "MB", One(startup.peak_bytes), kMega,
                                  "a minimal process", minimal.peak_bytes * kMega, 10));
}

void MeasureStartups(std::vector<Figure>& figures, const std::string& folder) {
  constexpr int kRuns = 51;
  const FormFile form;
  const std::string minimal_process = folder + "/minimal_process";
  const std::string program = folder + "/levelwidgets";
  const Startup minimal = MeasureStartup({minimal_process}, kRuns);
  AddStartup(figures, "Process start to a form's first frame",
             MeasureStartup({folder + "/first_frame", form.Path()}, kRuns), minimal);
  const std::vector<std::string> render = {program, "render", form.Path(), "-o", "/dev/null"};
  Startup rendering = MeasureStartup(render, kRuns);
  std::vector<std::string> told_of = render;
  told_of.insert(told_of.begin(), minimal_process);
  rendering.peak_bytes = MeasureStartup(told_of, 1).peak_bytes;
  AddStartup(figures, "levelwidgets render, from start to end", rendering, minimal);
}

}  // namespace

std::vector<Figure> MeasureFigures(const std::string& folder) {
  std::vector<Figure> figures;
  const std::string plain = "1,000 labels and buttons:";
  const std::string with_text_boxes = "1,000 labels, buttons, text boxes:";
  MeasureMemory(figures, Mix::kLabelsAndButtons, plain);
  MeasureMemory(figures, Mix::kWithTextBoxes, with_text_boxes);
  MeasureButton(figures);
  MeasureMoves(figures);
  MeasureForm(figures, Mix::kLabelsAndButtons, plain);
  MeasureForm(figures, Mix::kWithTextBoxes, with_text_boxes);
  MeasureDropDowns(figures);
  MeasurePanels(figures);
  MeasureGrids(figures);
  MeasureGridPainting(figures);
  MeasureScripts(figures);
  MeasureStartups(figures, folder);
  return figures;
}

}  // namespace levelwidgets::bench
