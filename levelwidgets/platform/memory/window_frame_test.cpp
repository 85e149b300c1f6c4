// The frame of the desktop's own windows, at several resolutions.
#include <gtest/gtest.h>

#include <levelwidgets/platform/memory/desktop.h>

namespace levelwidgets::memory {
namespace {

constexpr std::uint32_t kStyle = kWsCaption | kWsVisible | kWsSysMenu;

// What surrounds the letters of a form's title, relative to its outer corner.
PixelRect TitleAt(int dpi) {
  Desktop desktop({.dpi_x = dpi, .dpi_y = dpi});
  const int width = 300 * dpi / 96;
  const WindowHandle form = desktop.Windows().CreateWindowExA(
      {.title = "HHHH", .style = kStyle & ~kWsSysMenu, .rect = {0, 0, width, 200}});
  desktop.Windows().SetActiveWindow(form);
  const int caption = 22 * dpi / 96;
  const Picture picture = desktop.Capture({1, 1, width - 1, 1 + caption});
  const ColorRef background = picture.At({0, 0});
  PixelRect letters{width, caption, 0, 0};
  for (int y = 0; y < picture.size.height; ++y) {
    for (int x = 0; x < picture.size.width; ++x) {
      if (picture.At({x, y}) == background) continue;
      letters = {std::min(letters.left, x), std::min(letters.top, y), std::max(letters.right, x + 1),
                 std::max(letters.bottom, y + 1)};
    }
  }
  return letters;
}

TEST(WindowFrame, TheTitleGrowsWithTheResolution) {
  const PixelRect at_96 = TitleAt(96);
  ASSERT_FALSE(at_96.empty());
  for (const auto& [dpi, scale] : {std::pair{144, 1.5}, {168, 1.75}, {192, 2.0}, {288, 3.0}}) {
    const PixelRect title = TitleAt(dpi);
    EXPECT_NEAR(title.height(), at_96.height() * scale, scale) << dpi;
    EXPECT_NEAR(title.width(), at_96.width() * scale, at_96.width() * scale / 10) << dpi;
    EXPECT_NEAR(title.left, at_96.left * scale, scale) << dpi;
    EXPECT_NEAR(title.top + title.bottom, (at_96.top + at_96.bottom) * scale, 2 * scale) << dpi;
  }
}

}  // namespace
}  // namespace levelwidgets::memory
