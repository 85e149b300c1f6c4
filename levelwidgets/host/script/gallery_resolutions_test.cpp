// The gallery's sheets at each resolution.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/platform/memory/desktop.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets {
namespace {

struct Sizes {
  PixelSize text;
  PixelSize control;

  bool Fits() const { return text.width <= control.width && text.height <= control.height; }
};

template <typename T>
void Measure(const HostedControl& hosted, std::map<std::string, Sizes>& sizes) {
  const auto control = std::dynamic_pointer_cast<T>(hosted.GetControl());
  if (!control) return;
  const Surface& surface = control->GetSurface();
  PixelSize text;
  surface.Drawing().GetTextExtentPoint32A(surface.hDC(), control->Caption(), text);
  const PixelRect client = surface.ClientPixels();
  sizes[hosted.Name()] = {text, {client.width(), client.height()}};
}

// By the names of the controls that have a caption.
std::map<std::string, Sizes> CaptionsAt(int dpi, const std::string& path) {
  memory::Desktop desktop({.screen = {4000, 3000}, .dpi_x = dpi, .dpi_y = dpi});
  const auto form = LoadForm(desktop, path).form;
  std::map<std::string, Sizes> sizes;
  for (const auto& control : form->Controls()) {
    Measure<FlatButton>(*control, sizes);
    Measure<FlatLabel>(*control, sizes);
  }
  return sizes;
}

TEST(GalleryResolutions, CaptionsThatFitAtNinetySixFitAtEachOfThem) {
  int fitting = 0;
  for (const auto& entry :
       std::filesystem::directory_iterator(std::string(SourceDir()) + "/examples/gallery")) {
    if (!entry.path().string().ends_with(".form.toml")) continue;
    const auto at_96 = CaptionsAt(96, entry.path().string());
    for (const int dpi : {120, 144, 168, 192, 216, 240, 264, 288}) {
      const auto there = CaptionsAt(dpi, entry.path().string());
      for (const auto& [name, sizes] : at_96) {
        if (!sizes.Fits()) continue;
        ++fitting;
        const Sizes& now = there.at(name);
        EXPECT_TRUE(now.Fits()) << entry.path().filename() << " " << name << " at " << dpi << ": "
                                << now.text.width << " by " << now.text.height << " in " << now.control.width
                                << " by " << now.control.height;
        EXPECT_NEAR(now.control.width, sizes.control.width * dpi / 96.0, dpi / 96.0 + 1)
            << name << " at " << dpi;
        EXPECT_NEAR(now.control.height, sizes.control.height * dpi / 96.0, dpi / 96.0 + 1)
            << name << " at " << dpi;
      }
    }
  }
  EXPECT_GT(fitting, 100);
}

}  // namespace
}  // namespace levelwidgets
