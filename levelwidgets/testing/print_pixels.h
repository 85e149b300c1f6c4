// How GoogleTest prints places on the screen.
#pragma once

#include <ostream>

#include <levelwidgets/platform/types.h>

namespace levelwidgets {

inline void PrintTo(const PixelSize& size, std::ostream* out) {
  *out << size.width << " by " << size.height << " pixels";
}

// Right and bottom are those after the last pixel.
inline void PrintTo(const PixelRect& rect, std::ostream* out) {
  *out << rect.left << "," << rect.top << " to " << rect.right << "," << rect.bottom;
}

}  // namespace levelwidgets
