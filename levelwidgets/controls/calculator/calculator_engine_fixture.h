// What the tests of the engine share.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <levelwidgets/controls/calculator/calculator_engine.h>
#include <levelwidgets/platform/conversions/conversions.h>

namespace levelwidgets {

// An edit box as plain text that notes what is done to it.
class PlainDisplay : public CalculatorDisplay {
 public:
  std::string Text() const override { return text; }
  void ShowText(const std::string& shown) override {
    text = shown;
    calls.push_back("show " + shown);
    if (on_change) on_change();
  }
  void AssignText(const std::string& assigned) override {
    text = engine->Formatted(assigned);
    calls.push_back("assign " + assigned);
  }
  void SetCaretToSelectionLength() override { calls.push_back("caret"); }

  const CalculatorEngine* engine = nullptr;
  std::string text;
  std::vector<std::string> calls;
  std::function<void()> on_change;
};

class CalculatorEngineTest : public ::testing::Test {
 protected:
  explicit CalculatorEngineTest(std::string_view locale = "en-US")
      : conversions_(conversions::LocaleOrDefault(locale), [] { return Date{45427}; }) {
    display_.engine = &engine_;
  }

  void OpenOver(const std::string& text) {
    display_.text = text;
    engine_.Open();
    display_.calls.clear();
  }

  // Presses keys by their captions, blanks between them.
  KeypadRequest Press(const std::string& captions) {
    KeypadRequest request = KeypadRequest::kNone;
    std::istringstream words(captions);
    for (std::string caption; words >> caption;) request = engine_.Press(KeyCalled(caption));
    return request;
  }

  // The display after `captions` on a keypad opened over `text`.
  std::string After(const std::string& text, const std::string& captions) {
    OpenOver(text);
    Press(captions);
    return display_.text;
  }

  static CalculatorKey KeyCalled(const std::string& caption) {
    for (const auto& [array, count] : kArrays) {
      for (int index = 0; index < count; ++index) {
        if (CaptionOf({array, index}) == caption) return {array, index};
      }
    }
    throw std::logic_error("no key " + caption);
  }

  static constexpr std::pair<CalculatorKeys, int> kArrays[] = {{CalculatorKeys::kNum, kNumKeys},
                                                               {CalculatorKeys::kOperation, kOperationKeys},
                                                               {CalculatorKeys::kSpecial, kSpecialKeys}};

  conversions::Conversions conversions_;
  PlainDisplay display_;
  CalculatorEngine engine_{conversions_, display_};
};

}  // namespace levelwidgets
