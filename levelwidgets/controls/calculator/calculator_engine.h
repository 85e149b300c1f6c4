// The arithmetic behind the keypad of a calculator.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <levelwidgets/platform/conversion.h>

namespace levelwidgets {

// The keypad's three rows of keys.
enum class CalculatorKeys { kNum, kOperation, kSpecial };

struct CalculatorKey {
  CalculatorKeys array = CalculatorKeys::kNum;
  int index = 0;

  friend constexpr bool operator==(CalculatorKey, CalculatorKey) = default;
};

inline constexpr int kNumKeys = 11;       // the digits by their values, then the decimal point
inline constexpr int kOperationKeys = 6;  // the operators by their values, then the change of sign
inline constexpr int kSpecialKeys = 2;    // clear all, clear entry

inline constexpr int kPointKey = 10;
inline constexpr int kChangeSignKey = 5;
inline constexpr int kClearAllKey = 0;
inline constexpr int kClearEntryKey = 1;

// An operator key, and the one that waits for its second operand.
enum class CalculatorOperator : std::int32_t { kEquals = 0, kDivide, kMultiply, kSubtract, kAdd };

// "7", ".", "+-", "C". Raises 9 (subscript out of range) for an unknown key.
std::string_view CaptionOf(CalculatorKey key);
// The key that a key code stands for; none for Escape and for codes that do nothing.
std::optional<CalculatorKey> CalculatorKeyOf(std::int16_t key_code);

// The edit box that shows the calculation.
class CalculatorDisplay {
 public:
  virtual ~CalculatorDisplay() = default;

  virtual std::string Text() const = 0;
  // As given.
  virtual void ShowText(const std::string& text) = 0;
  // As the control's own Text is assigned: formatted by the engine's Formatted, with the container notified.
  virtual void AssignText(const std::string& text) = 0;
  // Puts the caret to the position that equals the length of the selection.
  virtual void SetCaretToSelectionLength() = 0;
};

enum class KeypadRequest { kNone, kClose };

// Evaluates at once, from left to right. What is typed is held by the display alone: each key reads it back
// as a number. An exception from the display passes through.
class CalculatorEngine {
 public:
  // Both outlive the engine.
  CalculatorEngine(ConversionApi& conversions, CalculatorDisplay& display)
      : conversions_(conversions), display_(display) {}

  // Format of results; the general form when empty.
  const std::string& FormatString() const { return format_string_; }
  void SetFormatString(std::string format) { format_string_ = std::move(format); }
  // `text` by FormatString; as given where that does not apply to it.
  std::string Formatted(std::string_view text) const;

  // Before the keypad is shown: begins with the number displayed, "0" for anything else.
  void Open();
  // Answers kClose, as its last act, when the keypad is to be closed: after "=" and after a failed operator
  // key, which shows "Error". A digit raises 13 or 6 when the display is no number then.
  [[nodiscard]] KeypadRequest Press(CalculatorKey key);
  // A key pressed while the keypad is open; other keys do nothing.
  [[nodiscard]] KeypadRequest KeyDown(std::int16_t key_code);

  // --- State ------------------------------------------------------------------------------------

  double Accumulator() const { return accumulator_; }
  // 0 marks a fresh entry: the next digit replaces the display.
  double CurrentEntry() const { return current_entry_; }
  // kEquals for none.
  CalculatorOperator PendingOperator() const { return pending_; }

 private:
  double DisplayedNumber() const;
  void PressNum(int index);
  void PressSpecial(int index);
  KeypadRequest PressOperation(int index);
  // False when the arithmetic or a conversion fails.
  bool Operate(CalculatorOperator next);
  bool ChangeSign();
  void ClearNumbers();

  ConversionApi& conversions_;
  CalculatorDisplay& display_;
  std::string format_string_;
  double accumulator_ = 0;
  double current_entry_ = 0;
  CalculatorOperator pending_ = CalculatorOperator::kEquals;
};

}  // namespace levelwidgets
