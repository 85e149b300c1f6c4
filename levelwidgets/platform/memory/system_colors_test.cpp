#include <levelwidgets/platform/memory/system_colors.h>

#include <gtest/gtest.h>

#include <array>

#include <levelwidgets/testing/contrast.h>

namespace levelwidgets::memory {
namespace {

class Palettes : public ::testing::TestWithParam<std::string_view> {};

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

TEST_P(Palettes, LinksCanBeReadOnWindowsAndFaces) {
  constexpr int kHotTracked = 26;
  const SystemPalette palette = *FindPalette(GetParam());
  for (const int ground : {kColorWindow, kColorButtonFace}) {
    EXPECT_GE(Contrast(palette.At(kHotTracked), palette.At(ground)), 4.5) << ground;
  }
}

// A text box has the colour of windows, a form that of faces, and neither draws a frame.
TEST_P(Palettes, TextBoxesStandOutFromForms) {
  const SystemPalette palette = *FindPalette(GetParam());
  const double least = GetParam() == "high-contrast" ? 1.5 : 1.1;
  EXPECT_GE(Contrast(palette.At(kColorWindow), palette.At(kColorButtonFace)), least);
  for (const int ground : {kColorWindow, kColorButtonFace}) {
    EXPECT_GE(Contrast(palette.At(kColorWindowFrame), palette.At(ground)), 3) << ground;
  }
}

INSTANTIATE_TEST_SUITE_P(All, Palettes, ::testing::ValuesIn(PaletteNames().begin(), PaletteNames().end()),
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
