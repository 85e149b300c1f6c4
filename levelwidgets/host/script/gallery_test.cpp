// The gallery's sheets, in each palette.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include <levelwidgets/host/script/script_host.h>
#include <levelwidgets/platform/memory/system_colors.h>
#include <levelwidgets/testing/contrast.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets {
namespace {

std::vector<std::string> Sheets() {
  std::vector<std::string> sheets;
  for (const auto& entry :
       std::filesystem::directory_iterator(std::string(SourceDir()) + "/examples/gallery")) {
    const std::string name = entry.path().filename().string();
    if (name.ends_with(".form.toml")) sheets.push_back(name.substr(0, name.find('.')));
  }
  return sheets;
}

std::string PathOfSheet(const std::string& sheet) {
  return std::string(SourceDir()) + "/examples/gallery/" + sheet + ".form.toml";
}

// A sheet on a desktop of its own.
class ShownSheet {
 public:
  ShownSheet(const std::string& sheet, std::string_view palette) {
    host_.MakeDesktop({.palette = std::string(palette)});
    form_ = host_.LoadForm(PathOfSheet(sheet));
    form_->Show();
  }

  const Form& GetForm() const { return *form_; }
  HostedControl& At(const std::string& name) const { return *form_->Find(name); }
  ColorRef PixelAt(PixelPoint point) { return host_.Desktop().PixelAt(point); }
  DesktopDriver& Desktop() { return host_.Desktop(); }

  // How well the best pixel of the control's text can be told from `background`.
  double ContrastOfText(const std::string& name, ColorRef background) {
    double best = 1;
    for (const std::uint32_t pixel : Capture(name).pixels) {
      best = std::max(best, Contrast({pixel}, background));
    }
    return best;
  }

  // The row of the screen on which the text of a control that is shown stands.
  int Baseline(const std::string& name) {
    SetText(name, "");
    const Picture without = Capture(name);
    SetText(name, "H");
    const Picture with = Capture(name);
    for (int y = with.size.height - 1; y >= 0; --y) {
      for (int x = 0; x < with.size.width; ++x) {
        if (with.At({x, y}).value != without.At({x, y}).value) return At(name).ScreenRect().top + y;
      }
    }
    return -1;
  }

 private:
  Picture Capture(const std::string& name) { return host_.Desktop().Capture(At(name).ScreenRect()); }

  void SetText(const std::string& name, const std::string& text) {
    Control& control = *At(name).GetControl();
    const ClassInfo& table = At(name).ControlClass();
    const PropertyInfo* property = table.FindProperty("Text");
    if (!property) property = table.FindProperty("Caption");
    property->set(control, text);
  }

  ScriptHost host_;
  std::shared_ptr<Form> form_;
};

class Gallery : public testing::TestWithParam<std::string> {};

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
      if (control->ControlClass().Name() != "FlatTextBox") continue;
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

INSTANTIATE_TEST_SUITE_P(Sheets, Gallery, testing::ValuesIn(Sheets()),
                         [](const auto& sheet) { return sheet.param; });

class Overview : public testing::TestWithParam<std::string_view> {};

TEST_P(Overview, HasTheTextsOfARowOnOneLine) {
  ShownSheet overview("overview", GetParam());
  const std::vector<std::vector<std::string>> rows{{"lblCustomer", "txtCustomer", "lnkHistory"},
                                                   {"lblAmount", "txtAmount"},
                                                   {"lblPieces", "lblCount"},
                                                   {"lblNotes", "txtNotes"},
                                                   {"lblState", "cmdConfirm", "cmdInvoice"},
                                                   {"cmdSave", "cmdCancel"}};
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

class DarkGallery : public testing::TestWithParam<std::string_view> {};

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
    // One label shows that a text in the colour of its background cannot be seen.
    if (name != "lblDefaults") {
      EXPECT_GE(sheet.ContrastOfText(name, at_rest), 4.5) << name;
    }
    sheet.Desktop().MovePointer(edge);
    sheet.Desktop().Press(kLeftButton);
    sheet.Desktop().Settle();
    const ColorRef pressed = sheet.PixelAt(edge);
    EXPECT_GE(Contrast(pressed, at_rest), kLeastOfAreas) << name;
    EXPECT_GE(Contrast(pressed, form), kLeastOfAreas) << name;
    EXPECT_GE(sheet.ContrastOfText(name, pressed), 4.5) << name;
    sheet.Desktop().Release(kLeftButton);
  }
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

INSTANTIATE_TEST_SUITE_P(Palettes, DarkGallery, testing::Values("dark", "high-contrast"),
                         [](const auto& palette) {
                           return palette.param == "dark" ? "Dark" : "HighContrast";
                         });

INSTANTIATE_TEST_SUITE_P(Palettes, Overview,
                         testing::ValuesIn(memory::PaletteNames().begin(), memory::PaletteNames().end()),
                         [](const auto& palette) {
                           std::string name(palette.param);
                           std::erase(name, '-');
                           return name;
                         });

}  // namespace
}  // namespace levelwidgets
