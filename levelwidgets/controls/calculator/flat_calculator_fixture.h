// What the tests of FlatCalculator have in common. Not for use outside this folder.
#pragma once

#include <sstream>
#include <stdexcept>

#include <levelwidgets/controls/calculator/flat_calculator.h>
#include <levelwidgets/controls/calculator/keypad_layout.h>
#include <levelwidgets/testing/panel_fixture.h>

namespace levelwidgets::testing {

class FlatCalculatorTest : public PanelTest<FlatCalculator> {
 protected:
  FlatCalculator& Calculator() { return Subject(); }

  static const KeypadKey& KeyCalled(std::string_view caption) {
    for (const KeypadKey& key : kKeypadKeys) {
      if (CaptionOf(key.key) == caption) return key;
    }
    throw std::logic_error("no such key");
  }
  // The middle of a key of the open keypad, in screen pixels.
  PixelPoint OnKey(std::string_view caption) {
    const KeypadKey& key = KeyCalled(caption);
    return OnPanel(static_cast<int>(key.position.x.value + key.size.width.value / 2),
                   static_cast<int>(key.position.y.value + key.size.height.value / 2));
  }
  // Clicks keys, blanks between their captions, each for itself.
  void ClickKeys(const std::string& captions) {
    std::istringstream words(captions);
    for (std::string caption; words >> caption;) ClickApart(OnKey(caption));
  }
  // The text after `captions` on a keypad that opens over `text`.
  std::string After(const std::string& text, const std::string& captions) {
    if (IsOpen()) Driver().Key(kKeyEscape);
    Calculator().SetText(text);
    Open();
    ClickKeys(captions);
    return Calculator().Text();
  }
};

}  // namespace levelwidgets::testing
