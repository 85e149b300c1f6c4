#include <levelwidgets/controls/calculator/keypad.h>

#include <levelwidgets/controls/calculator/keypad_layout.h>

namespace levelwidgets {

namespace {

FontRef KeyFont() { return MakeFont({.name = "Tahoma", .size = 12, .bold = true}); }

}  // namespace

Keypad::Keypad(PopupPanel& panel, const KeypadColors& colors) : picPopup_(panel) {
  picPopup_.Move({}, kKeypadSize);
  picPopup_.SetFont(KeyFont());
  for (const KeypadLine& line : kKeypadLines) LineBorder_.emplace_back(picPopup_).Move(line.start, line.end);
  for (const KeypadKey& key : kKeypadKeys) AddKey(key.key, key.position, key.size);
  Show(colors);
}

std::deque<TextLabel>& Keypad::LabelsOf(CalculatorKeys array) {
  switch (array) {
    case CalculatorKeys::kOperation: return lblOperation_;
    case CalculatorKeys::kSpecial: return lblSpecial_;
    default: return lblNum_;
  }
}

void Keypad::AddKey(CalculatorKey key, TwipPoint position, TwipSize size) {
  TextLabel& label = LabelsOf(key.array).emplace_back(picPopup_);
  label.SetCaption(std::string(CaptionOf(key)));
  label.SetAlignment(ksxCenter);
  label.Move(position, size);
  label.Click += [this, key] { KeyPressed.Raise(key); };
  if (key.array != CalculatorKeys::kOperation) label.DblClick += [this, key] { KeyPressed.Raise(key); };
}

void Keypad::Show(const KeypadColors& colors) {
  picPopup_.SetBackColor(colors.back);
  for (LineShape& line : LineBorder_) line.SetBorderColor(colors.border);
  const auto color = [&](std::deque<TextLabel>& labels, Color back) {
    for (TextLabel& label : labels) {
      label.SetForeColor(colors.fore);
      label.SetBackColor(back);
    }
  };
  color(lblNum_, colors.digit);
  color(lblOperation_, colors.function);
  color(lblSpecial_, colors.clear);
}

}  // namespace levelwidgets
