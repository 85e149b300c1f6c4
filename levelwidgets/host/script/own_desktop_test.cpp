// What scripts have when they are given no desktop.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/host/script/script_host.h>
#include <levelwidgets/platform/memory/system_colors.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets {
namespace {

TEST(OwnDesktop, DesktopIsMadeOnceAsAskedForOrByDefault) {
  ScriptHost host;
  host.MakeDesktop({.size = {640, 480}, .dpi = 120});
  EXPECT_EQ(host.Desktop().GetPlatform().Screen().Size(), (PixelSize{640, 480}));
  EXPECT_EQ(host.Desktop().GetPlatform().Screen().TwipsPerPixelX(), 12);
  EXPECT_THROW(host.MakeDesktop({}), Error);

  ScriptHost other;
  EXPECT_EQ(other.Desktop().GetPlatform().Screen().Size(), (PixelSize{1024, 768}));
  EXPECT_EQ(other.Desktop().GetPlatform().Screen().TwipsPerPixelX(), 15);
}

TEST(OwnDesktop, DesktopHasTheColorsOfThePaletteThatIsNamed) {
  ScriptHost host;
  host.RunText("lw.desktop{ palette='dark' } frm = lw.form{ Name='frm', Width=3000, Height=1500 } frm:show()",
               "test.lua");
  const PixelRect rect = host.Desktop().TopLevelWindows().front().rect;
  EXPECT_EQ(host.Desktop().PixelAt({(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2}),
            memory::FindPalette("dark")->At(kColorButtonFace));
}

TEST(OwnDesktop, UnknownPaletteIsRefusedWithTheNamesOfThePalettes) {
  ScriptHost host;
  try {
    host.RunText("lw.desktop{ palette='mauve' }", "test.lua");
    FAIL() << "no failure";
  } catch (const ScriptFailure& failure) {
    EXPECT_THAT(
        failure.what(),
        ::testing::HasSubstr("There is no palette \"mauve\"; the palettes: \"light\", \"classic\", \"dark\", "
                             "\"high-contrast\" (error 5, LevelWidgets.Desktop)"));
  }
  EXPECT_EQ(host.RunText("lw.desktop{ palette='classic' } return 7", "test.lua"), 7)
      << "nothing had been made";
}

// A label with `caption`, of a desktop with `settings`, as it is drawn.
Picture PictureOfLabel(const std::string& settings, const std::string& caption) {
  ScriptHost host;
  host.RunText("lw.desktop{ " + settings + " } frm = lw.form{ Name='frm', Width=6000, Height=1500 }\n" +
                   "frm:add('FlatLabel', 'lbl', { Width=6000, Height=600, Properties={} }).Caption = " +
                   caption + "\nfrm:show()",
               "test.lua");
  return host.Desktop().Capture(host.Desktop().TopLevelWindows().front().rect);
}

TEST(OwnDesktop, ItsLongDateIsShownInTheCodePageOfItsLocale) {
  const std::string long_date = "lw.format(lw.date(2024, 5, 15), 'Long Date')";
  const Picture shown = PictureOfLabel("locale='ja-JP'", long_date);
  EXPECT_EQ(shown, PictureOfLabel("locale='ja-JP'", "'2024\u5E745\u670815\u65E5'"));
  EXPECT_EQ(shown, PictureOfLabel("code_page=932", "'2024\u5E745\u670815\u65E5'"));
  const Picture lost = PictureOfLabel("locale='ja-JP'", "'2024?5?15?'");
  EXPECT_NE(shown, lost);
  EXPECT_EQ(PictureOfLabel("locale='ja-JP', code_page=1252", long_date), lost);
}

TEST(OwnDesktop, TextBoxKeepsWhatItsCodePageHas) {
  ScriptHost host;
  EXPECT_EQ(host.RunText("lw.desktop{ code_page=1251 } frm = lw.form{ Name='frm' }\n"
                         "local box = frm:add('FlatTextBox', 'box', { Text='\u0416\u00E9' })\n"
                         "return box.Text == '\u0416?' and 1 or 2",
                         "test.lua"),
            1);
}

TEST(OwnDesktop, UnknownCodePageIsRefusedWithTheOnesThatThereAre) {
  ScriptHost host;
  try {
    host.RunText("lw.desktop{ code_page=65001 }", "test.lua");
    FAIL() << "no failure";
  } catch (const ScriptFailure& failure) {
    EXPECT_THAT(failure.what(),
                ::testing::HasSubstr(
                    "There is no code page 65001 here; those that desktops have are 1250 to 1258, "));
  }
}

class OwnDesktopScript : public ::testing::TestWithParam<const char*> {};

TEST_P(OwnDesktopScript, EndsWithoutAFailedCheck) {
  const std::string path =
      std::string(SourceDir()) + "/levelwidgets/host/script/testdata/" + GetParam() + ".lua";
  ScriptHost host;
  try {
    host.RunFile(path);
    EXPECT_TRUE(host.HandlerErrors().empty());
  } catch (const ScriptFailure& failure) {
    ADD_FAILURE() << failure.what();
  }
}

INSTANTIATE_TEST_SUITE_P(Files, OwnDesktopScript,
                         ::testing::Values("default_desktop", "desktop", "invariants", "jumps",
                                           "locale_values", "pairs_of_bytes", "panels", "timers", "windows"),
                         [](const auto& script) { return std::string(script.param); });

}  // namespace
}  // namespace levelwidgets
