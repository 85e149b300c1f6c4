// The colours of the desktop in memory.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>

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

// "light": light grey faces, white windows, blue selection; what a desktop shows that is told nothing.
SystemPalette StandardPalette();

// "light", "classic" (warm grey, dark blue), "dark" and "high-contrast" (white on black).
std::span<const std::string_view> PaletteNames();
// Nothing for a name that is none of them.
std::optional<SystemPalette> FindPalette(std::string_view name);

}  // namespace levelwidgets::memory
