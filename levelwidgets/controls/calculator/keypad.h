// The panel of a calculator with its keys.
#pragma once

#include <deque>

#include <levelwidgets/controls/calculator/calculator_engine.h>
#include <levelwidgets/frame/parts/line_shape.h>
#include <levelwidgets/frame/parts/popup_panel.h>
#include <levelwidgets/frame/parts/text_label.h>
#include <levelwidgets/platform/system_colors.h>

namespace levelwidgets {

struct KeypadColors {
  Color back{0x00000000u};
  Color border{0x008C969Cu};  // of the lines
  Color fore = kButtonText;   // of all captions
  Color digit{0x00FFFFFFu};
  Color function{0x00CEDBDEu};
  Color clear{0x00008000u};
};

// Nineteen keys and five lines on a panel without a border. It shows keys and reports presses; what they do
// is the owner's business.
class Keypad {
 public:
  // `panel` outlives it.
  Keypad(PopupPanel& panel, const KeypadColors& colors);

  // Repaints with the next paint.
  void Show(const KeypadColors& colors);

  // A key was clicked. The second click of a double click counts on digits and clear keys, not on operators.
  Event<CalculatorKey> KeyPressed;

 private:
  void AddKey(CalculatorKey key, TwipPoint position, TwipSize size);
  std::deque<TextLabel>& LabelsOf(CalculatorKeys array);

  PopupPanel& picPopup_;
  std::deque<LineShape> LineBorder_;
  // In the order of the layout.
  std::deque<TextLabel> lblNum_;
  std::deque<TextLabel> lblOperation_;
  std::deque<TextLabel> lblSpecial_;
};

}  // namespace levelwidgets
