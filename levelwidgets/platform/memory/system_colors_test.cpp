#include <levelwidgets/platform/memory/system_colors.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace levelwidgets::memory {
namespace {

// Relative luminance and contrast ratio as WCAG 2.1 defines them; 1 to 21.
double Luminance(ColorRef color) {
  const auto channel = [&](int shift) {
    const double c = static_cast<double>(color.value >> shift & 0xFF) / 255;
    return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * channel(0) + 0.7152 * channel(8) + 0.0722 * channel(16);
}

double Contrast(ColorRef a, ColorRef b) {
  const double one = Luminance(a);
  const double other = Luminance(b);
  return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

class Palettes : public testing::TestWithParam<std::string_view> {};

TEST_P(Palettes, TextsCanBeReadOnWhatTheyStandOn) {
  const SystemPalette palette = *FindPalette(GetParam());
  // AAA for the one made for it; else what the usual white on blue has (AA asks for 4.5).
  const double least = GetParam() == "high-contrast" ? 7 : 4.2;
  constexpr std::array<std::pair<int, int>, 4> kTextOn{{{kColorWindowText, kColorWindow},
                                                        {kColorHighlightText, kColorHighlight},
                                                        {kColorButtonText, kColorButtonFace},
                                                        {kColorWindowText, kColorButtonFace}}};
  for (const auto& [text, ground] : kTextOn) {
    EXPECT_GE(Contrast(palette.At(text), palette.At(ground)), least) << text << " on " << ground;
  }
}

TEST_P(Palettes, FramesAndGreyTextStandOutFromFaces) {
  const SystemPalette palette = *FindPalette(GetParam());
  EXPECT_GE(Contrast(palette.At(kColorButtonShadow), palette.At(kColorButtonFace)), 2);
  EXPECT_GE(Contrast(palette.At(kColorGrayText), palette.At(kColorButtonFace)), 2.5);
}

INSTANTIATE_TEST_SUITE_P(All, Palettes, testing::ValuesIn(PaletteNames().begin(), PaletteNames().end()),
                         [](const auto& name) {
                           std::string text(name.param);
                           std::erase(text, '-');
                           return text;
                         });

TEST(PaletteNamesTest, AreFourInTheOrderInWhichTheyAreOffered) {
  EXPECT_EQ(std::vector(PaletteNames().begin(), PaletteNames().end()),
            (std::vector<std::string_view>{"light", "classic", "dark", "high-contrast"}));
  EXPECT_EQ(FindPalette("mauve"), std::nullopt);
  EXPECT_EQ(FindPalette("light"), StandardPalette());
}

TEST(PaletteNamesTest, PaletteColorsHaveRedInTheLowByte) {
  EXPECT_EQ(StandardPalette().At(kColorHighlight).value, 0xD77800u);
}

}  // namespace
}  // namespace levelwidgets::memory
