#include <levelwidgets/controls/calculator/calculator_engine_fixture.h>

#include <cmath>
#include <random>

#include <levelwidgets/testing/error_of.h>
#include <levelwidgets/testing/rounds.h>

namespace levelwidgets {
namespace {

using enum CalculatorKeys;

// What holds after every key: finite numbers, an operator there is, a display that the numbers explain.
void CheckInvariants(const CalculatorEngine& engine, const PlainDisplay& display, ConversionApi& conversions,
                     CalculatorKey key, KeypadRequest request, std::int32_t error) {
  ASSERT_TRUE(std::isfinite(engine.Accumulator()));
  ASSERT_TRUE(std::isfinite(engine.CurrentEntry()));
  const auto pending = static_cast<std::int32_t>(engine.PendingOperator());
  ASSERT_TRUE(pending >= 0 && pending <= 4);
  if (error != 0) {
    ASSERT_EQ(key.array, kNum) << "only digits raise";
    ASSERT_TRUE(error == 13 || error == 6);
    return;
  }
  if (display.text == "Error") {
    ASSERT_EQ(request, KeypadRequest::kClose);
    ASSERT_TRUE(engine.Accumulator() == 0 && engine.CurrentEntry() == 0 && pending == 0);
  } else if (key.array == kOperation && key.index != kChangeSignKey) {
    ASSERT_EQ(engine.CurrentEntry(), 0);
    ASSERT_EQ(pending, key.index);
    ASSERT_EQ(display.text, conversions.Format(engine.Accumulator(), engine.FormatString()).value);
    ASSERT_EQ(request == KeypadRequest::kClose, key.index == 0);
  } else if (key.array == kSpecial) {
    ASSERT_EQ(engine.CurrentEntry(), 0);
    ASSERT_EQ(display.text, engine.Formatted("0"));
    ASSERT_EQ(request, KeypadRequest::kNone);
  } else {
    ASSERT_EQ(engine.CurrentEntry(), conversions.ToDouble(std::string_view(display.text)).value);
    ASSERT_EQ(request, KeypadRequest::kNone);
  }
}

TEST_F(CalculatorEngineTest, AMillionRandomKeysKeepTheInvariants) {
  std::mt19937 random(20240515);
  std::vector<CalculatorKey> keys;
  for (const auto& [array, count] : kArrays) {
    for (int index = 0; index < count; ++index) keys.push_back({array, index});
  }
  const std::string formats[] = {"", "", "0.00", "#,##0.###", "Currency", "Scientific"};
  OpenOver("0");
  int closings = 0;
  int failures = 0;
  for (int i = 0; i < testing::Rounds(1'000'000); ++i) {
    const CalculatorKey key = keys[random() % keys.size()];
    KeypadRequest request = KeypadRequest::kNone;
    const std::int32_t error = ErrorOf([&] { request = engine_.Press(key); });
    CheckInvariants(engine_, display_, conversions_, key, request, error);
    if (HasFatalFailure()) FAIL() << "key " << i << " " << CaptionOf(key) << " shows " << display_.text;
    if (error != 0) ++failures;
    if (request == KeypadRequest::kClose) {
      ++closings;
      engine_.SetFormatString(formats[random() % std::size(formats)]);
      engine_.Open();
    }
    display_.calls.clear();
  }
  EXPECT_GT(closings, testing::Rounds(10'000));
  EXPECT_GT(failures, testing::Rounds(10'000));
}

TEST_F(CalculatorEngineTest, ChainsOfWholeNumbersAgreeWithPlainArithmetic) {
  std::mt19937 random(7);
  for (int chain = 0; chain < 5'000; ++chain) {
    OpenOver("0");
    double expected = 0;
    char waiting = '=';
    for (int step = 0; step < 5; ++step) {
      const auto number = static_cast<double>(random() % 99 + 1);
      std::string keys;
      for (const char digit : std::to_string(static_cast<int>(number))) keys += {digit, ' '};
      switch (waiting) {
        case '+': expected += number; break;
        case '-': expected -= number; break;
        case '*': expected *= number; break;
        default: expected = number;
      }
      waiting = step == 4 ? '=' : "+-*"[random() % 3];
      Press(keys + waiting);
    }
    ASSERT_EQ(engine_.Accumulator(), expected);
    ASSERT_EQ(display_.text, conversions_.ToText(expected).value);
  }
}

}  // namespace
}  // namespace levelwidgets
