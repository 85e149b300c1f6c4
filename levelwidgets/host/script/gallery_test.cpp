// The gallery's sheets, in each palette.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include <levelwidgets/host/script/script_host.h>
#include <levelwidgets/platform/memory/system_colors.h>
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

class Gallery : public testing::TestWithParam<std::string> {};

TEST_P(Gallery, LooksDifferentInEachPaletteAndRaisesNoError) {
  const std::string path = std::string(SourceDir()) + "/examples/gallery/" + GetParam() + ".form.toml";
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

INSTANTIATE_TEST_SUITE_P(Sheets, Gallery, testing::ValuesIn(Sheets()),
                         [](const auto& sheet) { return sheet.param; });

}  // namespace
}  // namespace levelwidgets
