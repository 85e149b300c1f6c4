// Turns of the wheel, in whole notches.
#pragma once

#include <cstdint>

#include <levelwidgets/platform/window.h>

namespace levelwidgets {

// A fine wheel sends less than a notch at a time: what is left over counts with the next message.
class WheelNotches {
 public:
  // Those that are complete with a kWmMouseWheel of this first parameter, positive away from the user.
  int Take(WParam wparam) {
    rest_ += static_cast<std::int16_t>(wparam >> 16);
    const int notches = rest_ / kNotch;
    rest_ -= notches * kNotch;
    return notches;
  }

 private:
  static constexpr int kNotch = 120;

  int rest_ = 0;
};

// Rows that a list or a grid scrolls by each.
inline constexpr int kRowsPerNotch = 3;

}  // namespace levelwidgets
