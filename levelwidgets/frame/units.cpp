#include <cmath>
#include <limits>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/frame/units.h>

namespace levelwidgets {

std::int32_t RoundToWhole(double value) {
  // The default rounding mode of <cmath> is ties to even.
  const double whole = std::nearbyint(value);
  if (!(whole >= std::numeric_limits<std::int32_t>::min() &&
        whole <= std::numeric_limits<std::int32_t>::max())) {
    throw Error(kOverflow);
  }
  return static_cast<std::int32_t>(whole);
}

std::int32_t IntegerDivide(double dividend, double divisor) {
  const std::int64_t whole_dividend = RoundToWhole(dividend);
  const std::int64_t whole_divisor = RoundToWhole(divisor);
  if (whole_divisor == 0) throw Error(kDivisionByZero);
  return RoundToWhole(static_cast<double>(whole_dividend / whole_divisor));
}

}  // namespace levelwidgets
