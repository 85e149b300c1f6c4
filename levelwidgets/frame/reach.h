// Places that drawing operations can address.
#pragma once

#include <cstdint>

#include <levelwidgets/frame/units.h>

namespace levelwidgets {

// Places beyond are moved here, so that no length, however large, overflows; nothing so far out can be seen.
inline constexpr int kFarthestPixel = 1 << 26;

int WithinReach(std::int64_t pixel);

// The integer division, with a quotient beyond kFarthestPixel (or of no number) brought within it.
int PixelsWithinReach(Twips length, float twips_per_pixel);

// The nearest whole number, ties to even; one beyond 32 bits is brought within them, and no number is 0.
std::int32_t NearestWhole(double value);

// A sum that may have left the 32 bits, brought within them.
std::int32_t Within32Bits(std::int64_t value);

}  // namespace levelwidgets
