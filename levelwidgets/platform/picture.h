// A picture in memory.
#pragma once

#include <cstdint>
#include <vector>

#include <levelwidgets/platform/types.h>

namespace levelwidgets {

// Pixels are ColorRef values (0x00BBGGRR), row by row from the top, without padding.
struct Picture {
  PixelSize size;
  std::vector<std::uint32_t> pixels;

  // kInvalidColorRef outside.
  ColorRef At(PixelPoint p) const {
    if (p.x < 0 || p.y < 0 || p.x >= size.width || p.y >= size.height) return kInvalidColorRef;
    return {pixels[static_cast<std::size_t>(p.y) * static_cast<std::size_t>(size.width) +
                   static_cast<std::size_t>(p.x)]};
  }
  friend bool operator==(const Picture&, const Picture&) = default;
};

}  // namespace levelwidgets
