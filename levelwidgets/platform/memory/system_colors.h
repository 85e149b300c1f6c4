// The colours of the desktop in memory.
#pragma once

#include <array>
#include <cstdint>
#include <iterator>
#include <optional>
#include <span>
#include <string_view>

#include <levelwidgets/platform/constants.h>
#include <levelwidgets/platform/types.h>

namespace levelwidgets::memory {

// What the top byte of a colour says that is none of its own and no system colour's.
inline constexpr std::uint32_t kPaletteIndex = 0x01;
inline constexpr std::uint32_t kPaletteRgb = 0x02;

// The 20 colours (0x00BBGGRR) that every display has, whatever its palette; the first one from 20 on.
constexpr std::uint32_t DisplayColor(std::uint32_t index) {
  constexpr std::uint32_t kColors[] = {0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000,
                                       0xC0C0C0, 0xC0DCC0, 0xF0CAA6, 0xF0FBFF, 0xA4A0A0, 0x808080, 0x0000FF,
                                       0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF};
  return kColors[index < std::size(kColors) ? index : 0];
}

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

// "light": light grey faces, white windows, blue selection; the palette of a desktop whose options name none.
SystemPalette StandardPalette();

// "light", "classic" (warm grey, dark blue), "dark" and "high-contrast" (white on black).
std::span<const std::string_view> PaletteNames();
// Nothing for an unknown name.
std::optional<SystemPalette> FindPalette(std::string_view name);

}  // namespace levelwidgets::memory
