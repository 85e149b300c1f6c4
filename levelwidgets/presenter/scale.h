// From pixels of the desktop in memory to the native screen's units and back, and how large forms are there.
#pragma once

#include <levelwidgets/platform/types.h>

namespace levelwidgets::presenter {

// Dots per inch at which a native pixel is one of the desktop.
inline constexpr double kStandardDpi = 96;

// A desktop pixel is a screen pixel. Windows are placed and pointed at in native units, each of `density`
// screen pixels: 1 on most systems, more where the system itself scales.
class Scale {
 public:
  Scale() = default;
  // What is less than 1 counts as 1.
  explicit Scale(double density);

  // The place of the desktop's left top corner on the native screen, in native units.
  PixelPoint Origin() const { return origin_; }
  void SetOrigin(PixelPoint origin) { origin_ = origin; }

  // A place on the desktop in native units, and the other way: the desktop pixel that covers it.
  PixelPoint ToNative(PixelPoint desktop) const;
  PixelPoint ToDesktop(PixelPoint native) const;
  // At least one native unit each way.
  PixelSize ToNative(PixelSize desktop) const;
  // As many pixels as cover it, a part of one at the end included.
  PixelSize ToDesktop(PixelSize native) const;
  // A point in a window as the number of desktop pixels from its corner; negative to the left and above.
  PixelPoint InWindow(PixelPoint native) const;

 private:
  double density_ = 1;
  PixelPoint origin_;
};

// How many times as large as at 96 dots per inch forms are by themselves on a display of `dpi` dots per inch,
// seen through units of `density` pixels: in quarters, rounded down, 1 to 4.
double OwnScale(double dpi, double density);

// The dots per inch at which forms are so many times as large as at 96.
int DotsPerInchAt(double scale);

}  // namespace levelwidgets::presenter
