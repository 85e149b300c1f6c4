// The colours of the desktop in memory.
#pragma once

#include <array>

#include <levelwidgets/platform/constants.h>
#include <levelwidgets/platform/types.h>

namespace levelwidgets::memory {

// One value for each system colour index, 0 to 30.
struct SystemPalette {
  std::array<ColorRef, kSystemColorCount> colors{};

  // Black outside 0 to 30, as on the real desktop.
  ColorRef At(int index) const {
    if (index < 0 || index >= kSystemColorCount) return {};
    return colors[static_cast<std::size_t>(index)];
  }
  void Set(int index, ColorRef color) {
    if (index >= 0 && index < kSystemColorCount) colors[static_cast<std::size_t>(index)] = color;
  }
  friend bool operator==(const SystemPalette&, const SystemPalette&) = default;
};

// What a fresh installation shows: light grey faces, white windows, blue selection.
SystemPalette StandardPalette();

}  // namespace levelwidgets::memory
