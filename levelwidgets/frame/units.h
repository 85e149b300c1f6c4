// Twips, and the one rounding division that turns them into pixels.
#pragma once

#include <compare>
#include <cstdint>

#include <levelwidgets/platform/types.h>

namespace levelwidgets {

// A length or coordinate in twips (1/1440 inch), single precision as the container hands it out.
struct Twips {
  float value = 0;

  constexpr Twips() = default;
  constexpr explicit Twips(float twips) : value(twips) {}
  constexpr explicit Twips(int twips) : value(static_cast<float>(twips)) {}

  friend constexpr auto operator<=>(Twips, Twips) = default;
  friend constexpr Twips operator+(Twips a, Twips b) { return Twips(a.value + b.value); }
  friend constexpr Twips operator-(Twips a, Twips b) { return Twips(a.value - b.value); }
};

struct TwipPoint {
  Twips x;
  Twips y;
  friend constexpr bool operator==(TwipPoint, TwipPoint) = default;
};

struct TwipSize {
  Twips width;
  Twips height;
  friend constexpr bool operator==(TwipSize, TwipSize) = default;
};

// The nearest whole number, ties to even. Raises 6 (overflow) outside 32 bits.
std::int32_t RoundToWhole(double value);

// The integer division of the whole library: both operands are rounded by RoundToWhole, the quotient is
// truncated toward zero. Raises 11 (division by zero) when the divisor rounds to 0, 6 (overflow) outside 32
// bits.
std::int32_t IntegerDivide(double dividend, double divisor);

// Pixels of a length in twips on a display of `twips_per_pixel`.
inline int ToPixels(Twips length, float twips_per_pixel) {
  return IntegerDivide(length.value, twips_per_pixel);
}

inline Twips ToTwips(int pixels, float twips_per_pixel) {
  return Twips(static_cast<float>(pixels) * twips_per_pixel);
}

}  // namespace levelwidgets
