#include <levelwidgets/presenter/scale.h>

#include <algorithm>
#include <cmath>

namespace levelwidgets::presenter {

namespace {

constexpr double kStandardDpi = 96;
// Displays that report a wrong size (0 by 0 millimetres, or those of a postcard) are no reason for more.
constexpr int kLargestFactor = 4;

int Floor(double value) { return static_cast<int>(std::floor(value)); }
int Ceiling(double value) { return static_cast<int>(std::ceil(value)); }

}  // namespace

Scale::Scale(int factor, double density) : factor_(std::max(1, factor)), density_(std::max(1.0, density)) {}

PixelPoint Scale::ToNative(PixelPoint desktop) const {
  return {origin_.x + Floor(desktop.x * factor_ / density_),
          origin_.y + Floor(desktop.y * factor_ / density_)};
}

PixelPoint Scale::ToDesktop(PixelPoint native) const {
  return InWindow({native.x - origin_.x, native.y - origin_.y});
}

PixelSize Scale::ToNative(PixelSize desktop) const {
  return {std::max(1, Ceiling(desktop.width * factor_ / density_)),
          std::max(1, Ceiling(desktop.height * factor_ / density_))};
}

PixelSize Scale::ToDesktop(PixelSize native) const {
  return {Ceiling(native.width * density_ / factor_), Ceiling(native.height * density_ / factor_)};
}

PixelPoint Scale::InWindow(PixelPoint native) const {
  return {Floor(native.x * density_ / factor_), Floor(native.y * density_ / factor_)};
}

int FactorFor(double dpi, double density) {
  const double wanted = std::max(std::isfinite(dpi) ? dpi / kStandardDpi : 1, density);
  return static_cast<int>(std::clamp(std::floor(wanted), 1.0, static_cast<double>(kLargestFactor)));
}

}  // namespace levelwidgets::presenter
