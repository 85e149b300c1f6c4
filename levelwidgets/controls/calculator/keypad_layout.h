// Where the keys and lines of a calculator's keypad are, in twips of its panel.
#pragma once

#include <array>

#include <levelwidgets/controls/calculator/calculator_engine.h>
#include <levelwidgets/frame/units.h>

namespace levelwidgets {

inline constexpr TwipSize kKeypadSize{Twips(1815), Twips(2295)};

struct KeypadKey {
  CalculatorKey key;
  TwipPoint position;
  TwipSize size{Twips(300), Twips(300)};
};

struct KeypadLine {
  TwipPoint start;
  TwipPoint end;
};

namespace keypad {

constexpr Twips Column(int column) { return Twips(240 + 360 * column); }
constexpr Twips Row(int row) { return Twips(360 + 360 * row); }
constexpr KeypadKey Num(int index, int column, int row) {
  return {{CalculatorKeys::kNum, index}, {Column(column), Row(row)}};
}
constexpr KeypadKey Operation(CalculatorOperator which, int column, int row) {
  return {{CalculatorKeys::kOperation, static_cast<int>(which)}, {Column(column), Row(row)}};
}
constexpr KeypadKey Special(int index, int column, int row) {
  return {{CalculatorKeys::kSpecial, index}, {Column(column), Row(row)}};
}
constexpr KeypadLine Line(int x1, int y1, int x2, int y2) {
  return {{Twips(x1), Twips(y1)}, {Twips(x2), Twips(y2)}};
}

}  // namespace keypad

// Row by row.
inline constexpr std::array kKeypadKeys{
    keypad::Num(7, 0, 0),
    keypad::Num(8, 1, 0),
    keypad::Num(9, 2, 0),
    keypad::Operation(CalculatorOperator::kDivide, 3, 0),
    keypad::Num(4, 0, 1),
    keypad::Num(5, 1, 1),
    keypad::Num(6, 2, 1),
    keypad::Operation(CalculatorOperator::kMultiply, 3, 1),
    keypad::Num(1, 0, 2),
    keypad::Num(2, 1, 2),
    keypad::Num(3, 2, 2),
    keypad::Operation(CalculatorOperator::kSubtract, 3, 2),
    keypad::Num(0, 0, 3),
    keypad::Num(kPointKey, 1, 3),
    KeypadKey{{CalculatorKeys::kOperation, kChangeSignKey}, {keypad::Column(2), keypad::Row(3)}},
    keypad::Operation(CalculatorOperator::kAdd, 3, 3),
    keypad::Special(kClearAllKey, 0, 4),
    keypad::Special(kClearEntryKey, 1, 4),
    // As wide as two.
    KeypadKey{{CalculatorKeys::kOperation, static_cast<int>(CalculatorOperator::kEquals)},
              {keypad::Column(2), keypad::Row(4)},
              {Twips(660), Twips(300)}},
};
static_assert(kKeypadKeys.size() == kNumKeys + kOperationKeys + kSpecialKeys);

// A frame, whose upper edge is double.
inline constexpr std::array kKeypadLines{
    keypad::Line(120, 120, 1680, 120),   keypad::Line(120, 240, 1680, 240),
    keypad::Line(120, 2160, 1680, 2160), keypad::Line(120, 120, 120, 2160),
    keypad::Line(1680, 120, 1680, 2160),
};

}  // namespace levelwidgets
