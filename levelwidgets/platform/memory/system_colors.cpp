#include <levelwidgets/platform/memory/system_colors.h>

#include <algorithm>
#include <cctype>

namespace levelwidgets::memory {

namespace {

constexpr std::array<std::string_view, 4> kNames{"light", "classic", "dark", "high-contrast"};

// 0xRRGGBB in the order of the names.
constexpr std::uint32_t kColors[kSystemColorCount][kNames.size()] = {
    {0xC8C8C8, 0xD4D0C8, 0x3A3A3A, 0x303030},  // 0 scroll bar
    {0x000000, 0x3A6EA5, 0x101010, 0x000000},  // 1 desktop background
    {0x99B4D1, 0x0A246A, 0x2B3A4B, 0x800080},  // 2 active caption
    {0xBFCDDB, 0x808080, 0x2A2A2A, 0x008000},  // 3 inactive caption
    {0xF0F0F0, 0xD4D0C8, 0x2B2B2B, 0x000000},  // 4 menu
    {0xFFFFFF, 0xFFFFFF, 0x1E1E1E, 0x303030},  // 5 window
    {0x646464, 0x000000, 0x8A8A8A, 0xFFFFFF},  // 6 window frame
    {0x000000, 0x000000, 0xF0F0F0, 0xFFFFFF},  // 7 menu text
    {0x000000, 0x000000, 0xF0F0F0, 0xFFFFFF},  // 8 window text
    {0x000000, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF},  // 9 caption text
    {0xB4B4B4, 0xD4D0C8, 0x3C3C3C, 0xFFFF00},  // 10 active border
    {0xF4F7FC, 0xD4D0C8, 0x2E2E2E, 0x008000},  // 11 inactive border
    {0xABABAB, 0x808080, 0x181818, 0x000000},  // 12 application workspace
    {0x0078D7, 0x0A246A, 0x1F6FC4, 0x00FFFF},  // 13 highlight
    {0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0x000000},  // 14 highlight text
    {0xF0F0F0, 0xD4D0C8, 0x2D2D2D, 0x000000},  // 15 button face
    {0xA0A0A0, 0x808080, 0x6A6A6A, 0xFFFFFF},  // 16 button shadow
    {0x6D6D6D, 0x808080, 0x9A9A9A, 0x00FF00},  // 17 grey text
    {0x000000, 0x000000, 0xF0F0F0, 0xFFFFFF},  // 18 button text
    {0x000000, 0xD4D0C8, 0xB0B0B0, 0xFFFFFF},  // 19 inactive caption text
    {0xFFFFFF, 0xFFFFFF, 0x4A4A4A, 0x404040},  // 20 button highlight
    {0x696969, 0x404040, 0x0A0A0A, 0x000080},  // 21 dark shadow
    {0xE3E3E3, 0xD4D0C8, 0x3F3F3F, 0xC0C0C0},  // 22 light edge
    {0x000000, 0x000000, 0xF0F0F0, 0xFFFFFF},  // 23 tip text
    {0xFFFFE1, 0xFFFFE1, 0x3A3A3A, 0x000000},  // 24 tip background
    {0x000000, 0xB5B5B5, 0x000000, 0x000000},  // 25 not in use
    {0x0066CC, 0x000080, 0x6CB4FF, 0xFFFF00},  // 26 hot-tracked item
    {0xB9D1EA, 0xA6CAF0, 0x2B3A4B, 0x800080},  // 27 active caption, right end
    {0xD7E4F2, 0xC0C0C0, 0x2A2A2A, 0x008000},  // 28 inactive caption, right end
    {0x3399FF, 0x0A246A, 0x1F6FC4, 0x00FFFF},  // 29 menu highlight
    {0xF0F0F0, 0xD4D0C8, 0x2B2B2B, 0x000000},  // 30 menu bar
};

constexpr ColorRef Rgb(std::uint32_t rrggbb) {
  return {(rrggbb & 0xFF) << 16 | (rrggbb & 0xFF00) | rrggbb >> 16};
}

SystemPalette PaletteAt(std::size_t column) {
  SystemPalette palette;
  for (int index = 0; index < kSystemColorCount; ++index) palette.Set(index, Rgb(kColors[index][column]));
  return palette;
}

}  // namespace

SystemPalette StandardPalette() { return PaletteAt(0); }

std::span<const std::string_view> PaletteNames() { return kNames; }

std::optional<SystemPalette> FindPalette(std::string_view name) {
  const auto found = std::ranges::find(kNames, name);
  if (found == kNames.end()) return std::nullopt;
  return PaletteAt(static_cast<std::size_t>(found - kNames.begin()));
}

}  // namespace levelwidgets::memory
