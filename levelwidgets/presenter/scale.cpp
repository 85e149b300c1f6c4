#include <levelwidgets/presenter/scale.h>

#include <algorithm>
#include <cmath>

namespace levelwidgets::presenter {

namespace {

// Displays that report a wrong size (0 by 0 millimetres, or those of a postcard) are no reason for more.
constexpr double kLargestOwnScale = 4;
constexpr double kSteps = 4;  // for each time as large
// Sizes come in whole millimetres: a little less than a step is one.
constexpr double kNearlyAStep = 0.1;

int Floor(double value) { return static_cast<int>(std::floor(value)); }
int Ceiling(double value) { return static_cast<int>(std::ceil(value)); }

}  // namespace

Scale::Scale(double density) : density_(std::max(1.0, density)) {}

PixelPoint Scale::ToNative(PixelPoint desktop) const {
  return {origin_.x + Floor(desktop.x / density_), origin_.y + Floor(desktop.y / density_)};
}

PixelPoint Scale::ToDesktop(PixelPoint native) const {
  return InWindow({native.x - origin_.x, native.y - origin_.y});
}

PixelSize Scale::ToNative(PixelSize desktop) const {
  return {std::max(1, Ceiling(desktop.width / density_)), std::max(1, Ceiling(desktop.height / density_))};
}

PixelSize Scale::ToDesktop(PixelSize native) const {
  return {Ceiling(native.width * density_), Ceiling(native.height * density_)};
}

PixelPoint Scale::InWindow(PixelPoint native) const {
  return {Floor(native.x * density_), Floor(native.y * density_)};
}

double OwnScale(double dpi, double density) {
  const double wanted = std::max(std::isfinite(dpi) ? dpi / kStandardDpi : 1, density);
  return std::clamp(std::floor(wanted * kSteps + kNearlyAStep) / kSteps, 1.0, kLargestOwnScale);
}

int DotsPerInchAt(double scale) { return static_cast<int>(std::lround(kStandardDpi * scale)); }

}  // namespace levelwidgets::presenter
