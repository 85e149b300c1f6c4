#include <levelwidgets/platform/memory/system_colors.h>

namespace levelwidgets::memory {

namespace {

constexpr ColorRef Rgb(std::uint32_t rrggbb) {
  return {(rrggbb & 0xFF) << 16 | (rrggbb & 0xFF00) | rrggbb >> 16};
}

}  // namespace

SystemPalette StandardPalette() {
  return {{
      Rgb(0xC8C8C8),  // 0 scroll bar
      Rgb(0x000000),  // 1 desktop background
      Rgb(0x99B4D1),  // 2 active caption
      Rgb(0xBFCDDB),  // 3 inactive caption
      Rgb(0xF0F0F0),  // 4 menu
      Rgb(0xFFFFFF),  // 5 window
      Rgb(0x646464),  // 6 window frame
      Rgb(0x000000),  // 7 menu text
      Rgb(0x000000),  // 8 window text
      Rgb(0x000000),  // 9 caption text
      Rgb(0xB4B4B4),  // 10 active border
      Rgb(0xF4F7FC),  // 11 inactive border
      Rgb(0xABABAB),  // 12 application workspace
      Rgb(0x0078D7),  // 13 highlight
      Rgb(0xFFFFFF),  // 14 highlight text
      Rgb(0xF0F0F0),  // 15 button face
      Rgb(0xA0A0A0),  // 16 button shadow
      Rgb(0x6D6D6D),  // 17 grey text
      Rgb(0x000000),  // 18 button text
      Rgb(0x000000),  // 19 inactive caption text
      Rgb(0xFFFFFF),  // 20 button highlight
      Rgb(0x696969),  // 21 dark shadow
      Rgb(0xE3E3E3),  // 22 light edge
      Rgb(0x000000),  // 23 tip text
      Rgb(0xFFFFE1),  // 24 tip background
      Rgb(0x000000),  // 25 not in use
      Rgb(0x0066CC),  // 26 hot-tracked item
      Rgb(0xB9D1EA),  // 27 active caption, right end
      Rgb(0xD7E4F2),  // 28 inactive caption, right end
      Rgb(0x3399FF),  // 29 menu highlight
      Rgb(0xF0F0F0),  // 30 menu bar
  }};
}

}  // namespace levelwidgets::memory
