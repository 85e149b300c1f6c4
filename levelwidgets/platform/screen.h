// The screen's size, its twips per pixel and the monitors that make it.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include <levelwidgets/platform/types.h>

namespace levelwidgets {

// Twips (1440 to the inch) to the pixel of a display: 15 at 96 dots per inch, 9 at 168, 8 at 192. Whole, so
// that the way back from pixels to twips leads to the same pixel, and rounded up, so that lengths in them are
// never more than their inches.
inline float WholeTwipsPerPixel(int dots_per_inch) {
  constexpr float kTwipsPerInch = 1440;
  return std::ceil(kTwipsPerInch / static_cast<float>(dots_per_inch));
}

// Screen pixels. Those of a monitor to the left of the primary one, or above it, are negative.
struct Monitor {
  PixelRect area;
  PixelRect work_area;  // without what the system keeps for itself, such as a task bar

  friend constexpr bool operator==(const Monitor&, const Monitor&) = default;
};

// Dots per inch by which texts are sized, so that they stay in proportion to lengths in whole twips to the
// pixel: 96 at 96, 160 at 168, 180 at 192. What fits a control at one resolution then fits it at all.
inline int TextDotsPerInch(int dots_per_inch) {
  constexpr float kTwipsPerInch = 1440;
  return static_cast<int>(std::lround(kTwipsPerInch / WholeTwipsPerPixel(dots_per_inch)));
}

class ScreenApi {
 public:
  virtual ~ScreenApi() = default;

  // Of the primary monitor.
  virtual PixelSize Size() = 0;
  // The same in twips.
  virtual float Width() { return static_cast<float>(Size().width) * TwipsPerPixelX(); }
  virtual float Height() { return static_cast<float>(Size().height) * TwipsPerPixelY(); }
  // The primary one first, whose left top corner is (0, 0).
  virtual std::vector<Monitor> Monitors() = 0;
  // WholeTwipsPerPixel of its dots per inch. The two differ on displays with oblong pixels.
  virtual float TwipsPerPixelX() = 0;
  virtual float TwipsPerPixelY() = 0;
  // Across and down.
  virtual PixelSize DotsPerInch() = 0;
};

}  // namespace levelwidgets
