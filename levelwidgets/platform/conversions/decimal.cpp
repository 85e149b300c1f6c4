#include <levelwidgets/platform/conversions/decimal.h>

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <string_view>

namespace levelwidgets::conversions {
namespace {

void DropTrailingZeros(Decimal& decimal) {
  while (decimal.count > 0 && decimal.digits[decimal.count - 1] == '0') --decimal.count;
  if (decimal.count > 0) return;
  decimal.point = 0;
  decimal.negative = false;
}

// "-1.25e+03" as std::to_chars writes it.
Decimal FromScientific(std::string_view text) {
  Decimal decimal;
  if (text.front() == '-') {
    decimal.negative = true;
    text.remove_prefix(1);
  }
  const std::size_t exponent_mark = text.find('e');
  for (char c : text.substr(0, exponent_mark)) {
    if (c != '.' && decimal.count < Decimal::kMaxDigits) decimal.digits[decimal.count++] = c;
  }
  std::string_view exponent = text.substr(exponent_mark + 1);
  if (exponent.front() == '+') exponent.remove_prefix(1);
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), decimal.point);
  decimal.point += 1;
  DropTrailingZeros(decimal);
  return decimal;
}

template <typename Real>
Decimal Shortest(Real number) {
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text, number, std::chars_format::scientific).ptr;
  return FromScientific({text, static_cast<std::size_t>(end - text)});
}

// Whether `number` is at least half way up from its first `digits` digits to the next number of so many.
bool IsUpperHalf(double number, int digits) {
  constexpr int kExact = 780;  // more than a double ever has
  char text[kExact + 16];
  std::to_chars(text, text + sizeof text, number, std::chars_format::scientific, kExact);
  const char* first = text + (number < 0 ? 1 : 0);
  return first[digits + 1] >= '5';  // behind the first digit stands the point
}

// The shortest digits that stand for the number are within half a unit of its last one, which is not enough
// to tell on which side of a half it lies when one '5' is cut off.
bool LooksLikeHalf(const Decimal& decimal, int digits) {
  return decimal.count == digits + 1 && decimal.digits[digits] == '5';
}

// Numbers too small for full precision have fewer digits that stand for them than are shown.
Decimal TinyDecimal(double number) {
  constexpr int kFraction = Decimal::kMaxDigits - 1;
  char text[kFraction + 16];
  const auto end =
      std::to_chars(text, text + sizeof text, number, std::chars_format::scientific, kFraction).ptr;
  return FromScientific({text, static_cast<std::size_t>(end - text)});
}

template <typename Real>
Decimal CutDecimal(Real number, int digits) {
  const auto exact = static_cast<double>(number);
  const bool tiny = number != 0 && std::fabs(number) < std::numeric_limits<Real>::min();
  Decimal decimal = tiny ? TinyDecimal(exact) : Shortest(number);
  if (decimal.count <= digits) return decimal;
  if (LooksLikeHalf(decimal, digits)) decimal.digits[digits] = IsUpperHalf(exact, digits) ? '5' : '4';
  decimal.RoundTo(decimal.point - digits);
  return decimal;
}

}  // namespace

void Decimal::RoundTo(int place) {
  const int kept = point - place;
  if (kept >= count) return;
  if (kept < 0) {
    count = 0;
  } else {
    const bool up = digits[kept] >= '5';
    count = kept;
    if (up) {
      while (count > 0 && digits[count - 1] == '9') --count;
      if (count > 0) {
        ++digits[count - 1];
      } else {
        digits[count++] = '1';
        ++point;
      }
    }
  }
  DropTrailingZeros(*this);
}

Decimal DecimalOf(double number) { return CutDecimal(number, kDoubleDigits); }

Decimal DecimalOf(float number) { return CutDecimal(number, kSingleDigits); }

Decimal DecimalOf(std::int32_t number) {
  char text[16];
  const auto end = std::to_chars(text, text + sizeof text, number).ptr;
  const bool negative = text[0] == '-';
  Decimal decimal;
  decimal.negative = negative;
  decimal.count = static_cast<int>(end - text) - (negative ? 1 : 0);
  decimal.point = decimal.count;
  std::memcpy(decimal.digits, text + (negative ? 1 : 0), static_cast<std::size_t>(decimal.count));
  DropTrailingZeros(decimal);
  return decimal;
}

}  // namespace levelwidgets::conversions
