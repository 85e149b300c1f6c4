// Numbers as the decimal digits that are shown of them.
#pragma once

#include <cstddef>
#include <cstdint>

namespace levelwidgets::conversions {

// 0.d1 d2 ... dn times ten to the power of `point`: 12.5 is "125" with point 2. Neither the first nor the
// last digit is '0'; zero has no digits and is never negative.
struct Decimal {
  static constexpr int kMaxDigits = 20;

  char digits[kMaxDigits];
  int count = 0;
  int point = 0;
  bool negative = false;

  bool IsZero() const { return count == 0; }
  // The digit worth ten to the power of `place`.
  char At(int place) const {
    const int index = point - 1 - place;
    return index >= 0 && index < count ? digits[index] : '0';
  }
  // Keeps digits worth at least ten to the power of `place`; halves go away from zero.
  void RoundTo(int place);
};

// The digits that the automation layer shows: 15 of a double, 7 of a single, halves away from zero.
inline constexpr int kDoubleDigits = 15;
inline constexpr int kSingleDigits = 7;

// `number` must be finite.
Decimal DecimalOf(double number);
Decimal DecimalOf(float number);
Decimal DecimalOf(std::int32_t number);

}  // namespace levelwidgets::conversions
