#include <levelwidgets/platform/conversions/number_text.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace levelwidgets::conversions {
namespace {

std::string_view DigitsOf(const Decimal& number, int from, int to) {
  return {number.digits + from, static_cast<std::size_t>(to - from)};
}

void AppendScientific(const Decimal& number, const Locale& locale, TextBuilder& out) {
  out.Append(number.digits[0]);
  if (number.count > 1) {
    out.Append(locale.decimal);
    out.Append(DigitsOf(number, 1, number.count));
  }
  const int exponent = number.point - 1;
  out.Append(exponent < 0 ? "E-" : "E+");
  out.AppendNumber(std::abs(exponent), 2);
}

void AppendFixed(const Decimal& number, const Locale& locale, TextBuilder& out) {
  if (number.point >= number.count) {
    out.Append(DigitsOf(number, 0, number.count));
    out.Append(static_cast<std::size_t>(number.point - number.count), '0');
    return;
  }
  if (number.point > 0) {
    out.Append(DigitsOf(number, 0, number.point));
  } else {
    out.Append('0');
  }
  out.Append(locale.decimal);
  if (number.point < 0) out.Append(static_cast<std::size_t>(-number.point), '0');
  out.Append(DigitsOf(number, std::max(number.point, 0), number.count));
}

template <typename Real>
void AppendReal(Real number, int digits, const Locale& locale, TextBuilder& out) {
  if (!std::isfinite(number)) return out.Append(NotFiniteText(static_cast<double>(number)));
  AppendGeneral(DecimalOf(number), digits, locale, out);
}

}  // namespace

std::string_view NotFiniteText(double number) {
  if (std::isnan(number)) return "1.#QNAN";
  return number < 0 ? "-1.#INF" : "1.#INF";
}

void AppendGeneral(const Decimal& number, int digits, const Locale& locale, TextBuilder& out) {
  if (number.IsZero()) return out.Append('0');
  if (number.negative) out.Append('-');
  if (number.point > digits || number.count - number.point > digits) {
    AppendScientific(number, locale, out);
  } else {
    AppendFixed(number, locale, out);
  }
}

void AppendGeneral(double number, const Locale& locale, TextBuilder& out) {
  AppendReal(number, kDoubleDigits, locale, out);
}

void AppendGeneral(float number, const Locale& locale, TextBuilder& out) {
  AppendReal(number, kSingleDigits, locale, out);
}

}  // namespace levelwidgets::conversions
