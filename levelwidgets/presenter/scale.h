// From pixels of the desktop in memory to the screen's and back.
#pragma once

#include <levelwidgets/platform/types.h>

namespace levelwidgets::presenter {

// A desktop pixel is a square of `factor` screen pixels. Windows are placed and pointed at in native units,
// each of `density` screen pixels: 1 on most systems, more where the system itself scales.
class Scale {
 public:
  Scale() = default;
  // Both at least 1; what is less counts as 1.
  Scale(int factor, double density);

  int Factor() const { return factor_; }

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
  int factor_ = 1;
  double density_ = 1;
  PixelPoint origin_;
};

// The factor for a display of `dpi` dots per inch, seen through units of `density` pixels: whole, so that
// every pixel stays a square, and rounded down from what would make the forms as large as on 96 dots.
int FactorFor(double dpi, double density);

}  // namespace levelwidgets::presenter
