// For tests of the gallery: its sheets, and one of them on a desktop of its own.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <levelwidgets/host/script/script_host.h>
#include <levelwidgets/platform/hand.h>
#include <levelwidgets/platform/memory/system_colors.h>
#include <levelwidgets/testing/contrast.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets {

inline std::vector<std::string> Sheets() {
  std::vector<std::string> sheets;
  for (const auto& entry :
       std::filesystem::directory_iterator(std::string(SourceDir()) + "/examples/gallery")) {
    const std::string name = entry.path().filename().string();
    if (name.ends_with(".form.toml")) sheets.push_back(name.substr(0, name.find('.')));
  }
  return sheets;
}

inline std::string PathOfSheet(const std::string& sheet) {
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

  Picture Capture(const std::string& name) { return host_.Desktop().Capture(At(name).ScreenRect()); }
  // Away from all controls.
  void LeaveControls() { MoveByHand(Desktop(), Desktop().GetPlatform().Windows(), {0, 0}); }
  // To a place that the text leaves free.
  void Hover(const std::string& name) {
    const PixelRect rect = At(name).ScreenRect();
    MoveByHand(Desktop(), Desktop().GetPlatform().Windows(), {rect.left + 2, rect.bottom - 2});
    Desktop().Settle();
  }
  void Press(const std::string& name) {
    Hover(name);
    Desktop().Press(kLeftButton);
    Desktop().Settle();
  }

  void SetText(const std::string& name, const std::string& text) {
    Control& control = *At(name).GetControl();
    const ClassInfo& table = At(name).ControlClass();
    const PropertyInfo* property = table.FindProperty("Text");
    if (!property) property = table.FindProperty("Caption");
    if (!property) {
      // An edit box whose value is no text: what it shows is selected and replaced.
      table.FindProperty("SelStart")->set(control, std::int16_t{0});
      table.FindProperty("SelLength")->set(control, std::int16_t{99});
      property = table.FindProperty("SelText");
    }
    property->set(control, text);
  }

 private:
  ScriptHost host_;
  std::shared_ptr<Form> form_;
};

// For suites of tests whose parameter is a palette.
inline auto EveryPalette() {
  return ::testing::ValuesIn(memory::PaletteNames().begin(), memory::PaletteNames().end());
}

// A palette as a part of a test's name.
struct NameOfPalette {
  template <typename Info>
  std::string operator()(const Info& palette) const {
    std::string name(palette.param);
    std::erase(name, '-');
    return name;
  }
};

}  // namespace levelwidgets
