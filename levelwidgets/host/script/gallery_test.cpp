// The gallery's sheets, in each palette.
#include <gtest/gtest.h>

#include <set>

#include <levelwidgets/host/script/gallery_fixture.h>

namespace levelwidgets {
namespace {

class Gallery : public ::testing::TestWithParam<std::string> {};

TEST_P(Gallery, LooksDifferentInEachPaletteAndRaisesNoError) {
  const std::string path = PathOfSheet(GetParam());
  std::set<std::vector<std::uint32_t>> pictures;
  for (const std::string_view name : memory::PaletteNames()) {
    std::string reports;
    ScriptHost host([&](const std::string& text) { reports += text + "\n"; });
    host.MakeDesktop({.palette = std::string(name)});
    const auto form = host.LoadForm(path);
    form->Show();
    host.Desktop().Settle();
    pictures.insert(host.Desktop().Capture(form->ScreenRect()).pixels);
    EXPECT_EQ(reports, "") << name;
  }
  EXPECT_EQ(pictures.size(), memory::PaletteNames().size());
}

TEST_P(Gallery, FramesEachTextBoxSoThatItStandsOutFromItsFormInEachPalette) {
  for (const std::string_view palette : memory::PaletteNames()) {
    ShownSheet sheet(GetParam(), palette);
    for (const auto& control : sheet.GetForm().Controls()) {
      const std::string_view name = control->ControlClass().Name();
      if (name != "FlatTextBox" && name != "FlatDropDown") continue;
      const PixelRect box = control->ScreenRect();
      const ColorRef inside = sheet.PixelAt({box.left, box.bottom - 1});
      const ColorRef frame = sheet.PixelAt({box.left - 1, box.top - 1});
      const ColorRef outside = sheet.PixelAt({box.left - 2, box.top - 2});
      EXPECT_GE(Contrast(frame, outside), 3) << control->Name() << " " << palette;
      // Only a box in a strong colour of its own may be as its frame.
      if (Contrast(inside, outside) > 2) continue;
      EXPECT_GE(Contrast(frame, inside), 3) << control->Name() << " " << palette;
    }
  }
}

// Windows of several sheets are open at once.
TEST_P(Gallery, SaysInItsTitleWhatItShows) {
  const ShownSheet sheet(GetParam(), "light");
  const std::string title = sheet.GetForm().Caption();
  EXPECT_NE(title.find(": "), std::string::npos) << title;
  for (const std::string& other : Sheets()) {
    if (other == GetParam()) continue;
    EXPECT_NE(ShownSheet(other, "light").GetForm().Caption(), title);
  }
}

INSTANTIATE_TEST_SUITE_P(Sheets, Gallery, ::testing::ValuesIn(Sheets()),
                         [](const auto& sheet) { return sheet.param; });

class Overview : public ::testing::TestWithParam<std::string_view> {};

TEST_P(Overview, HasTheTextsOfARowOnOneLine) {
  ShownSheet overview("overview", GetParam());
  const std::vector<std::vector<std::string>> rows{
      {"lblCustomer", "txtCustomer", "lnkHistory"}, {"lblAmount", "calcAmount", "lblDelivery", "calDelivery"},
      {"lblPieces", "lblCount", "cboUnit"},         {"lblNotes", "txtNotes"},
      {"lblState", "cmdConfirm", "cmdInvoice"},     {"cmdSave", "cmdCancel"}};
  for (const auto& row : rows) {
    const int first = overview.Baseline(row.front());
    EXPECT_GT(first, 0) << row.front();
    for (const std::string& name : row) EXPECT_EQ(overview.Baseline(name), first) << name;
  }
}

TEST_P(Overview, ShowsTheFrameOfItsDefaultButton) {
  ShownSheet overview("overview", GetParam());
  const PixelRect button = overview.At("cmdSave").ScreenRect();
  ASSERT_TRUE(overview.At("cmdSave").Default());
  const ColorRef outer = overview.PixelAt({button.left, button.top});
  const ColorRef inner = overview.PixelAt({button.left + 1, button.top + 1});
  const ColorRef face = overview.PixelAt({button.left + 2, button.top + 2});
  const ColorRef form = overview.PixelAt({button.left - 1, button.top});
  EXPECT_EQ(outer, inner);
  EXPECT_GE(Contrast(outer, form), 4.5);
  EXPECT_GE(Contrast(outer, face), 4.5) << "which is also that of the caption";
}

INSTANTIATE_TEST_SUITE_P(Palettes, Overview, EveryPalette(), NameOfPalette());

}  // namespace
}  // namespace levelwidgets
