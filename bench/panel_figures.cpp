// What keypads and month views take.
#include <stdexcept>
#include <string>

#include <bench/figures.h>
#include <bench/subjects.h>
#include <levelwidgets/controls/calculator/flat_calculator.h>
#include <levelwidgets/controls/calendar/flat_calendar.h>
#include <levelwidgets/frame/paint.h>

namespace levelwidgets::bench {

namespace {

constexpr PixelRect kPlace{10, 10, 130, 31};
constexpr PixelSize kMonthPixels{154, 150};
constexpr PixelSize kEditPixels{106, 21};

Figure InMicroseconds(std::string what, const Samples& samples, int each, PixelSize changes, double target) {
  return LowerIsBetter(std::move(what), "us", samples, kMicro / each, "fill of the pixels that change",
                       MedianFill(changes) * kMicro, target);
}

// A form with one control of class T, which has the focus.
template <typename T>
class OnePanel {
 public:
  OnePanel() {
    control_.SetFocus();
    form_.GetDesktop().Settle();
  }
  T& Control() { return dynamic_cast<T&>(*control_.GetControl()); }
  memory::Desktop& GetDesktop() { return form_.GetDesktop(); }
  void Open() {
    GetDesktop().KeyDown(kKeyF4, 0);
    if (!Control().PanelIsOpen()) throw std::logic_error("the panel has not opened");
  }
  void Close() { GetDesktop().KeyDown(kKeyEscape, 0); }
  // What is measured must have been drawn; `x` and `y` in the panel's pixels.
  void CheckColor(int x, int y, Color expected) {
    const ColorRef drawn = GetDesktop().PixelAt(OnPanel(x, y));
    if (drawn != TranslateColor(GetDesktop().Drawing(), expected)) {
      throw std::logic_error("the panel is not drawn at " + std::to_string(x) + ", " + std::to_string(y));
    }
  }
  PixelPoint OnPanel(int x, int y) {
    PixelPoint point{x, y};
    GetDesktop().Windows().ClientToScreen(Control().Panel()->hWnd(), point);
    return point;
  }

 private:
  ShownForm form_{{400, 400}};
  HostedControl& control_ = form_.AddHosted(T::Table(), "edt", kPlace, nullptr);
};

// Its border, a weekday's head and the background between them.
void CheckMonthView(OnePanel<FlatCalendar>& calendar) {
  calendar.CheckColor(4, 4, calendar.Control().CalBorderColor());
  calendar.CheckColor(16, 24, calendar.Control().CalHeaderBackColor());
  calendar.CheckColor(8, 8, calendar.Control().CalBackColor());
}

// The first time its parts are made.
Figure MeasureFirstOpening() {
  Samples opening;
  for (int run = 0; run < 51; ++run) {
    OnePanel<FlatCalendar> calendar;
    const auto start = Clock::now();
    calendar.Open();
    opening.Add(SecondsSince(start));
    CheckMonthView(calendar);
  }
  return InMicroseconds("Month view opened for the first time, to its first pixels", opening, 1, kMonthPixels,
                        1000);
}

Figure MeasureOpening() {
  OnePanel<FlatCalendar> calendar;
  calendar.Open();
  Samples opening;
  for (int run = 0; run < 501; ++run) {
    calendar.Close();
    const auto start = Clock::now();
    calendar.Open();
    opening.Add(SecondsSince(start));
    CheckMonthView(calendar);
  }
  return InMicroseconds("Month view opened, to its first pixels", opening, 1, kMonthPixels, 1000);
}

Figure MeasureNextMonth() {
  OnePanel<FlatCalendar> calendar;
  calendar.Open();
  memory::Desktop& desktop = calendar.GetDesktop();
  desktop.MovePointer(calendar.OnPanel(128, 16));
  desktop.Advance(1000);
  const Samples next = Repeat(101, 5, [&] {
    desktop.Press(kLeftButton);
    desktop.Release(kLeftButton);
    desktop.MovePointer(calendar.OnPanel(127, 16));
    desktop.MovePointer(calendar.OnPanel(128, 16));
  });
  return InMicroseconds("Next month by a click on the arrow, with its repaint", next, 1, kMonthPixels, 300);
}

Figure MeasureDigit() {
  OnePanel<FlatCalculator> calculator;
  calculator.Open();
  memory::Desktop& desktop = calculator.GetDesktop();
  const Samples digit = Repeat(101, 100, [&] {
    desktop.KeyDown('0', 0);
    desktop.KeyUp('0', 0);
    desktop.KeyDown('1', 0);
    desktop.KeyUp('1', 0);
    calculator.Control().SetText("0");
  });
  return InMicroseconds("Digit on the keypad, with its repaint", digit, 2, kEditPixels, 20);
}

// A form with a hundred of each of the controls around an edit box that open something.
std::string HundredOfEach() {
  std::string text = "[form]\nName = \"Orders\"\nWidth = 18000\nHeight = 13000\n";
  int place = 0;
  for (const char* class_name : {"FlatDropDown", "FlatCalculator", "FlatCalendar"}) {
    for (int i = 0; i < 100; ++i, ++place) {
      text += std::string("\n[[control]]\nClass = \"") + class_name + "\"\nName = \"ctl" +
              std::to_string(place) + "\"\nLeft = " + std::to_string(place % 15 * 1200) +
              "\nTop = " + std::to_string(place / 15 * 600) + "\nWidth = 1100\nHeight = 315\n";
    }
  }
  return text;
}

Figure MeasureForm(double& heap) {
  memory::Desktop desktop({.screen = {1920, 1080}});
  const std::string text = HundredOfEach();
  constexpr PixelSize kPixels{1200, 866};
  const auto show = [&] {
    auto form = LoadChecked(desktop, text);
    form->Show();
    desktop.Settle();
    return form;
  };
  show();
  Samples loading;
  for (int run = 0; run < 51; ++run) {
    const auto start = Clock::now();
    const auto form = show();
    loading.Add(SecondsSince(start));
  }
  const double before = HeapBytes();
  const auto form = show();
  heap = HeapBytes() - before - 4.0 * kPixels.width * kPixels.height;
  return InMicroseconds("100 drop-downs, calculators and calendars each, loaded and shown", loading, 1,
                        kPixels, 12000);
}

}  // namespace

void MeasurePanels(std::vector<Figure>& figures) {
  figures.push_back(MeasureFirstOpening());
  figures.push_back(MeasureOpening());
  figures.push_back(MeasureNextMonth());
  figures.push_back(MeasureDigit());
  double heap = 0;
  figures.push_back(MeasureForm(heap));
  figures.push_back(LowerIsBetter("The same: heap growth", "MB", One(heap), kMega, "the file's text",
                                  static_cast<double>(HundredOfEach().size()) * kMega, 6));
}

}  // namespace levelwidgets::bench
