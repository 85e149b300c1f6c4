// The screen's size and its twips per pixel.
#pragma once

#include <algorithm>
#include <cmath>

#include <levelwidgets/platform/types.h>

namespace levelwidgets {

// Twips (1440 to the inch) to the pixel of a display: 15 at 96 dots per inch, 9 at 168, 8 at 192. Whole, by
// the rounding that twips become pixels with (ties to even), so that the way back from pixels to twips leads
// to the same pixel. At least 1.
inline float WholeTwipsPerPixel(int dots_per_inch) {
  constexpr float kTwipsPerInch = 1440;
  return std::max(1.0F, std::nearbyint(kTwipsPerInch / static_cast<float>(dots_per_inch)));
}

class ScreenApi {
 public:
  virtual ~ScreenApi() = default;

  virtual PixelSize Size() = 0;
  // WholeTwipsPerPixel of its dots per inch. The two differ on displays with oblong pixels.
  virtual float TwipsPerPixelX() = 0;
  virtual float TwipsPerPixelY() = 0;
};

}  // namespace levelwidgets
