// The figures of drop-down lists.
#include <bench/figures.h>
#include <bench/subjects.h>

#include <stdexcept>
#include <string>

#include <levelwidgets/controls/dropdown/flat_drop_down.h>
#include <levelwidgets/frame/paint.h>

namespace levelwidgets::bench {

namespace {

constexpr int kItems = 10000;
constexpr Color kWindow{0x80000005u};
constexpr Color kHighlight{0x8000000Du};
constexpr PixelSize kFieldSize{120, 21};

// A form with one drop-down list, which has the focus.
class OneDropDown {
 public:
  OneDropDown()
      : drop_(form_.Add<FlatDropDown>("cbo", {10, 10, 10 + kFieldSize.width, 10 + kFieldSize.height})) {
    for (int i = 0; i < kItems; ++i) {
      std::string item = "Item " + std::to_string(i);
      drop_.AddItem(item);
    }
    dynamic_cast<HostedControl&>(drop_.Site()).SetFocus();
    form_.GetDesktop().Settle();
  }

  FlatDropDown& Control() { return drop_; }
  memory::Desktop& GetDesktop() { return form_.GetDesktop(); }
  PixelSize PanelSize() {
    PixelRect rect;
    GetDesktop().Windows().GetWindowRect(drop_.Panel()->hWnd(), rect);
    return {rect.width(), rect.height()};
  }
  void Open() {
    GetDesktop().KeyDown(kKeyF4, 0);
    GetDesktop().Settle();
    if (!drop_.Panel()->IsOpen()) throw std::logic_error("the list has not opened");
  }
  // What is measured must have been drawn: at the right end of a row, from 1, of the open list.
  void CheckRow(int row, Color expected) {
    PixelRect rect;
    GetDesktop().Windows().GetWindowRect(drop_.Panel()->hWnd(), rect);
    const int height = (rect.height() - 2) / 8;
    const PixelPoint at{rect.left + 1 + rect.width() / 2, rect.top + 1 + height * (row - 1) + height / 2};
    if (GetDesktop().PixelAt(at) != TranslateColor(GetDesktop().Drawing(), expected)) {
      throw std::logic_error("row " + std::to_string(row) + " is not drawn");
    }
  }
  void Close() {
    GetDesktop().KeyUp(kKeyF4, 0);
    GetDesktop().Key(kKeyEscape);
    GetDesktop().Settle();
  }
  // With completion: nothing begins so.
  void TypeOver() {
    drop_.SetSelStart(0);
    drop_.SetSelLength(1);
    GetDesktop().Type("x");
    if (drop_.Text() != "x") throw std::logic_error("the character was not typed");
  }

 private:
  ShownForm form_{{400, 300}};
  FlatDropDown& drop_;
};

// Seconds for a look at the first byte of every item.
double LookTime(const std::vector<std::string>& items) {
  volatile char seen = 0;
  const auto start = Clock::now();
  for (const std::string& item : items) seen = item.front();
  static_cast<void>(seen);
  return SecondsSince(start);
}

void MeasureOpening(std::vector<Figure>& figures, OneDropDown& drop) {
  Samples opening;
  for (int run = 0; run < 501; ++run) {
    const auto start = Clock::now();
    drop.Open();
    opening.Add(SecondsSince(start));
    drop.CheckRow(8, kWindow);
    drop.Close();
  }
  figures.push_back(LowerIsBetter("List of 10,000 items opened to its first pixels", "us", opening, kMicro,
                                  "fill of its pixels", MedianFill(drop.PanelSize()) * kMicro, 1000));
}

void MeasureHighlight(std::vector<Figure>& figures, OneDropDown& drop) {
  drop.Open();
  FlatDropDown& control = drop.Control();
  control.SetListIndex(1);
  const Samples moving = Repeat(101, 500, [&] {
    control.SetListIndex(control.ListIndex() == 1 ? std::int16_t{2} : std::int16_t{1});
    drop.GetDesktop().Settle();
  });
  drop.CheckRow(control.ListIndex(), kHighlight);
  drop.CheckRow(3 - control.ListIndex(), kWindow);
  drop.Close();
  figures.push_back(LowerIsBetter("Highlight of a list moved by a row", "us", moving, kMicro,
                                  "fill of the list's pixels", MedianFill(drop.PanelSize()) * kMicro, 15));
}

void MeasureCompletion(std::vector<Figure>& figures, OneDropDown& drop) {
  drop.Control().SetAutoComplete(true);
  drop.Control().SetText("x");
  const Samples typing = Repeat(101, 20, [&] { drop.TypeOver(); });
  const std::vector<std::string>& items = drop.Control().Items();
  const Samples looks = Repeat(101, 1, [&] { LookTime(items); });
  figures.push_back(LowerIsBetter("A key with completion in 10,000 items, none of which matches", "us",
                                  typing, kMicro, "a look at each item", looks.Median() * kMicro, 150));
}

// Beside the form's own pixels.
void MeasureHundred(std::vector<Figure>& figures) {
  memory::Desktop desktop({.screen = {1920, 1080}});
  const std::string text = DropDownFormText(100);
  LoadChecked(desktop, text)->Show();
  desktop.Settle();
  const double heap = HeapBytes();
  std::shared_ptr<Form> form;
  Samples showing;
  for (int run = 0; run < 51; ++run) {
    form.reset();
    desktop.Settle();
    const auto start = Clock::now();
    form = LoadChecked(desktop, text);
    form->Show();
    desktop.Settle();
    showing.Add(SecondsSince(start));
  }
  constexpr int kCopies = 100;
  figures.push_back(LowerIsBetter("100 drop-down lists loaded and shown", "ms", showing, kMilli,
                                  "copy of the file's text and fill of the form's pixels",
                                  (CopyTime(text, kCopies) / kCopies + MedianFill(kFormSize)) * kMilli, 4));
  const double pixels = 4.0 * kFormSize.width * kFormSize.height;
  figures.push_back(LowerIsBetter("100 drop-down lists shown: heap growth", "MB",
                                  One(HeapBytes() - heap - pixels), kMega, "the file's text",
                                  static_cast<double>(text.size()) * kMega, 2));
}

}  // namespace

void MeasureDropDowns(std::vector<Figure>& figures) {
  MeasureHundred(figures);
  OneDropDown drop;
  MeasureOpening(figures, drop);
  MeasureHighlight(figures, drop);
  MeasureCompletion(figures, drop);
}

}  // namespace levelwidgets::bench
