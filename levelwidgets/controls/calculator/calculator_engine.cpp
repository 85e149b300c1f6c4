#include <levelwidgets/controls/calculator/calculator_engine.h>

#include <cmath>
#include <span>

#include <levelwidgets/frame/conversions.h>
#include <levelwidgets/platform/constants.h>

namespace levelwidgets {

namespace {

constexpr std::string_view kNumCaptions[kNumKeys] = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "."};
constexpr std::string_view kOperationCaptions[kOperationKeys] = {"=", "/", "*", "-", "+", "+-"};
constexpr std::string_view kSpecialCaptions[kSpecialKeys] = {"C", "<-"};

std::span<const std::string_view> CaptionsOf(CalculatorKeys array) {
  switch (array) {
    case CalculatorKeys::kOperation: return kOperationCaptions;
    case CalculatorKeys::kSpecial: return kSpecialCaptions;
    default: return kNumCaptions;
  }
}

constexpr char kPoint = '.';  // whatever the locale's
constexpr char kMinus = '-';

// Nothing for a division by zero and for a result that is no finite number.
std::optional<double> Combine(CalculatorOperator pending, double accumulator, double x) {
  double result = x;
  switch (pending) {
    case CalculatorOperator::kAdd: result = x + accumulator; break;
    case CalculatorOperator::kSubtract: result = accumulator - x; break;
    case CalculatorOperator::kMultiply: result = x * accumulator; break;
    case CalculatorOperator::kDivide:
      if (x == 0) return std::nullopt;
      result = accumulator / x;
      break;
    case CalculatorOperator::kEquals: break;
  }
  if (!std::isfinite(result)) return std::nullopt;
  return result;
}

}  // namespace

std::string_view CaptionOf(CalculatorKey key) {
  const auto captions = CaptionsOf(key.array);
  const auto index = static_cast<std::size_t>(key.index);
  if (index >= captions.size()) throw Error(kSubscriptOutOfRange);
  return captions[index];
}

std::optional<CalculatorKey> CalculatorKeyOf(std::int16_t key_code) {
  using enum CalculatorKeys;
  if (key_code >= 48 && key_code <= 57) return CalculatorKey{kNum, key_code - 48};   // main keyboard
  if (key_code >= 96 && key_code <= 105) return CalculatorKey{kNum, key_code - 96};  // numeric pad
  switch (key_code) {
    case 106: return CalculatorKey{kOperation, static_cast<int>(CalculatorOperator::kMultiply)};
    case 107: return CalculatorKey{kOperation, static_cast<int>(CalculatorOperator::kAdd)};
    case 109: return CalculatorKey{kOperation, static_cast<int>(CalculatorOperator::kSubtract)};
    case 110: return CalculatorKey{kNum, kPointKey};
    case 111: return CalculatorKey{kOperation, static_cast<int>(CalculatorOperator::kDivide)};
    case kKeyEnter: return CalculatorKey{kOperation, static_cast<int>(CalculatorOperator::kEquals)};
    case 'C': return CalculatorKey{kSpecial, kClearAllKey};
    case kKeyBackspace: return CalculatorKey{kSpecial, kClearEntryKey};
    default: return std::nullopt;
  }
}

std::string CalculatorEngine::Formatted(std::string_view text) const {
  return ResultOf(conversions_.Format(text, format_string_));
}

double CalculatorEngine::DisplayedNumber() const { return ResultOf(conversions_.ToDouble(display_.Text())); }

void CalculatorEngine::Open() {
  if (!conversions_.IsNumeric(display_.Text())) display_.ShowText("0");
  accumulator_ = DisplayedNumber();
  current_entry_ = 0;
  pending_ = CalculatorOperator::kEquals;
}

KeypadRequest CalculatorEngine::Press(CalculatorKey key) {
  CaptionOf(key);  // refuses what is no key
  switch (key.array) {
    case CalculatorKeys::kNum: PressNum(key.index); break;
    case CalculatorKeys::kSpecial: PressSpecial(key.index); break;
    case CalculatorKeys::kOperation: return PressOperation(key.index);
  }
  return KeypadRequest::kNone;
}

KeypadRequest CalculatorEngine::KeyDown(std::int16_t key_code) {
  if (key_code == kKeyEscape) return KeypadRequest::kClose;
  const auto key = CalculatorKeyOf(key_code);
  return key ? Press(*key) : KeypadRequest::kNone;
}

void CalculatorEngine::PressNum(int index) {
  const std::string caption(CaptionOf({CalculatorKeys::kNum, index}));
  // An entry of 0 is a fresh one, typed zeros included. So a point then stands alone, and is no number.
  if (current_entry_ == 0) {
    display_.ShowText(caption);
  } else if (const std::string text = display_.Text();
             index != kPointKey || text.find(kPoint) == std::string::npos) {
    display_.ShowText(text + caption);
  }
  current_entry_ = DisplayedNumber();
  display_.SetCaretToSelectionLength();
}

void CalculatorEngine::PressSpecial(int index) {
  display_.AssignText("0");
  current_entry_ = 0;
  if (index == kClearAllKey) ClearNumbers();
}

KeypadRequest CalculatorEngine::PressOperation(int index) {
  const bool done = index == kChangeSignKey ? ChangeSign() : Operate(static_cast<CalculatorOperator>(index));
  if (!done) {
    display_.ShowText("Error");
    ClearNumbers();
    return KeypadRequest::kClose;
  }
  return index == static_cast<int>(CalculatorOperator::kEquals) ? KeypadRequest::kClose
                                                                : KeypadRequest::kNone;
}

bool CalculatorEngine::Operate(CalculatorOperator next) {
  const Converted<double> x = conversions_.ToDouble(display_.Text());
  if (!x) return false;
  const auto result = Combine(pending_, accumulator_, x.value);
  if (!result) return false;
  accumulator_ = *result;
  const Converted<std::string> text = conversions_.Format(accumulator_, format_string_);
  if (!text) return false;
  display_.ShowText(text.value);
  pending_ = next;
  current_entry_ = 0;
  return true;
}

bool CalculatorEngine::ChangeSign() {
  const std::string text = display_.Text();
  display_.ShowText(text.starts_with(kMinus) ? text.substr(1) : kMinus + text);
  const Converted<double> number = conversions_.ToDouble(display_.Text());
  if (number) current_entry_ = number.value;
  return static_cast<bool>(number);
}

void CalculatorEngine::ClearNumbers() {
  accumulator_ = 0;
  current_entry_ = 0;
  pending_ = CalculatorOperator::kEquals;
}

}  // namespace levelwidgets
