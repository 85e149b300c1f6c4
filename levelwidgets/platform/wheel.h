// Turns of the wheel, in whole notches.
#pragma once

#include <cstdint>

#include <levelwidgets/platform/window.h>

namespace levelwidgets {

// What a wheel of whole notches sends for one.
inline constexpr int kWheelDelta = 120;

// A fine wheel sends less than a notch at a time: what is left over counts with the next message.
class WheelNotches {
 public:
  // Those that are complete with `delta`, positive away from the user.
  int Add(int delta) {
    rest_ += delta;
    const int notches = rest_ / kWheelDelta;
    rest_ -= notches * kWheelDelta;
    return notches;
  }
  // The same with a kWmMouseWheel of this first parameter.
  int Take(WParam wparam) { return Add(static_cast<std::int16_t>(wparam >> 16)); }

 private:
  int rest_ = 0;
};

// Lines or rows by which whatever scrolls does so.
inline constexpr int kRowsPerNotch = 3;

}  // namespace levelwidgets
