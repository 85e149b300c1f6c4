// How well two colours can be told apart.
#pragma once

#include <algorithm>
#include <cmath>

#include <levelwidgets/platform/types.h>

namespace levelwidgets {

// Relative luminance as WCAG 2.1 defines it, 0 to 1.
inline double Luminance(ColorRef color) {
  const auto channel = [&](int shift) {
    const double c = static_cast<double>(color.value >> shift & 0xFF) / 255;
    return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * channel(0) + 0.7152 * channel(8) + 0.0722 * channel(16);
}

// The contrast ratio, 1 to 21. Texts ask for 4.5, parts that are no text for 3.
inline double Contrast(ColorRef a, ColorRef b) {
  const double one = Luminance(a);
  const double other = Luminance(b);
  return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

}  // namespace levelwidgets
