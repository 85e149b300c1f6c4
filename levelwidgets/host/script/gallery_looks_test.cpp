// The looks of the gallery's sheets, on desktops with light texts and under the pointer.
#include <levelwidgets/host/script/gallery_fixture.h>

namespace levelwidgets {
namespace {

class DarkGallery : public ::testing::TestWithParam<std::string_view> {};

// Colours that can be told apart where they meet in areas; texts and frames ask for more.
constexpr double kLeastOfAreas = 1.15;

TEST_P(DarkGallery, ALabelStandsOutFromItsFormAndShowsThatItIsPressed) {
  ShownSheet sheet("label", GetParam());
  for (const std::string name : {"lblNormal", "lblDefaults", "lblLeft", "lblAccessKey"}) {
    const PixelRect label = sheet.At(name).ScreenRect();
    const PixelPoint edge{label.left + 1, label.bottom - 2};
    const ColorRef form = sheet.PixelAt({label.left - 1, label.top - 1});
    const ColorRef at_rest = sheet.PixelAt(edge);
    EXPECT_GE(Contrast(at_rest, form), kLeastOfAreas) << name;
    sheet.Press(name);
    const ColorRef pressed = sheet.PixelAt(edge);
    EXPECT_GE(Contrast(pressed, at_rest), kLeastOfAreas) << name;
    EXPECT_GE(Contrast(pressed, form), kLeastOfAreas) << name;
    EXPECT_GE(sheet.ContrastOfText(name, pressed), 4.5) << name;
    sheet.Desktop().Release(kLeftButton);
  }
}

TEST_P(DarkGallery, AButtonWithAColorForPressesShowsThatItIsPressed) {
  ShownSheet sheet("button", GetParam());
  const PixelRect button = sheet.At("cmdPushedOwn").ScreenRect();
  const PixelRect other = sheet.At("cmdNormal").ScreenRect();
  EXPECT_GE(Contrast(sheet.PixelAt({button.left + 3, button.top + 3}),
                     sheet.PixelAt({other.left + 3, other.top + 3})),
            kLeastOfAreas);
}

TEST_P(DarkGallery, ATextBoxStandsOutFromItsForm) {
  ShownSheet sheet("textbox", GetParam());
  const PixelRect box = sheet.At("txtLeft").ScreenRect();
  EXPECT_GE(
      Contrast(sheet.PixelAt({box.right - 3, box.bottom - 2}), sheet.PixelAt({box.left - 3, box.top - 3})),
      kLeastOfAreas);
}

TEST_P(DarkGallery, AButtonOfABarUnderThePointerStandsOutFromTheOthers) {
  ShownSheet sheet("scroll", GetParam());
  const PixelRect bar = sheet.At("scrLive").ScreenRect();
  const PixelPoint inside{bar.left + 3, bar.top + 3};
  sheet.LeaveControls();
  const ColorRef at_rest = sheet.PixelAt(inside);
  MoveByHand(sheet.Desktop(), sheet.Desktop().GetPlatform().Windows(),
             {bar.left + 4, (bar.top + bar.bottom) / 2});
  sheet.Desktop().Settle();
  EXPECT_GE(Contrast(sheet.PixelAt(inside), at_rest), kLeastOfAreas);
}

TEST_P(DarkGallery, TheTrackOfABarStandsOutFromItsForm) {
  ShownSheet sheet("scroll", GetParam());
  for (const char* name : {"scrStart", "scrEnd", "scrLeft", "scrRight"}) {
    const PixelRect bar = sheet.At(name).ScreenRect();
    const ColorRef form = sheet.PixelAt({bar.left - 2, bar.top - 2});
    const ColorRef track = sheet.PixelAt({(bar.left + bar.right) / 2, (bar.top + bar.bottom) / 2});
    EXPECT_GE(Contrast(track, form), kLeastOfAreas) << name;
  }
}

INSTANTIATE_TEST_SUITE_P(Palettes, DarkGallery, ::testing::Values("dark", "high-contrast"),
                         [](const auto& palette) {
                           return palette.param == "dark" ? "Dark" : "HighContrast";
                         });

class GalleryLooks : public ::testing::TestWithParam<std::string_view> {};

TEST_P(GalleryLooks, HeadingsAndExplanationsCanBeReadAndDoNotReactToThePointer) {
  for (const char* name :
       {"button", "calculator", "calendar", "dropdown", "label", "scroll", "tabstrip", "textbox"}) {
    ShownSheet sheet(name, GetParam());
    for (const std::string text : {"head01", "txt03"}) {
      SCOPED_TRACE(std::string(name) + " " + text);
      const PixelRect rect = sheet.At(text).ScreenRect();
      const Picture at_rest = sheet.Capture(text);
      EXPECT_GE(sheet.ContrastOfText(text, sheet.PixelAt({rect.left - 1, rect.top})), 4.5);
      sheet.Hover(text);
      EXPECT_EQ(sheet.Capture(text), at_rest);
      sheet.Press(text);
      EXPECT_EQ(sheet.Capture(text), at_rest);
      sheet.Desktop().Release(kLeftButton);
    }
  }
}

TEST_P(GalleryLooks, ALabelWithoutColorsForThePointerHidesItsTextUnderIt) {
  ShownSheet sheet("label", GetParam());
  const PixelRect label = sheet.At("lblDefaults").ScreenRect();
  const ColorRef ground = sheet.PixelAt({label.left + 1, label.top + 1});
  EXPECT_EQ(sheet.ContrastOfText("lblDefaults", ground), 1);
}

INSTANTIATE_TEST_SUITE_P(Palettes, GalleryLooks, EveryPalette(), NameOfPalette());

}  // namespace
}  // namespace levelwidgets
