#include <levelwidgets/frame/reach.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace levelwidgets {

namespace {

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

}  // namespace

int WithinReach(std::int64_t pixel) {
  return static_cast<int>(std::clamp<std::int64_t>(pixel, -kFarthestPixel, kFarthestPixel));
}

int PixelsWithinReach(Twips length, float twips_per_pixel) {
  return WithinReach(IntegerDivide(NearestWhole(length.value), twips_per_pixel));
}

std::int32_t NearestWhole(double value) {
  if (std::isnan(value)) return 0;
  return RoundToWhole(std::clamp<double>(value, kLeast, kMost));
}

std::int32_t Within32Bits(std::int64_t value) {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, kLeast, kMost));
}

}  // namespace levelwidgets
