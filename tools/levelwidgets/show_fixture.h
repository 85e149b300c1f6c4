// For tests of the command `show`: the built program on a native screen, as a person sees it. Not on Windows.
#pragma once

#ifndef _WIN32

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <levelwidgets/testing/becomes.h>
#include <levelwidgets/testing/virtual_screen.h>

namespace levelwidgets {

inline constexpr ColorRef kForm{0x00604020};
inline constexpr ColorRef kButton{0x00112233};
inline constexpr ColorRef kOther{0x00332211};
inline constexpr ColorRef kBefore{0x00FF0000};
inline constexpr ColorRef kAfter{0x0000FF00};
inline constexpr ColorRef kLast{0x000000FF};

// A form of 300 by 200 pixels with a button, a label that the script colours, and a text box and a bar.
inline constexpr char kFormFile[] = R"([form]
Name = "frmOrder"
Caption = "Order"
Width = 4500
Height = 3000
BackColor = 0x00604020
Script = "order.lua"

[[control]]
Class = "FlatButton"
Name = "cmdSave"
Left = 300
Top = 300
Width = 1200
Height = 450
TabIndex = 1
Properties = { BackColor = 0x00112233, BackColorMouseOver = 0x00112233, BackColorPushed = 0x00112233, Caption = "&Save" }

[[control]]
Class = "FlatLabel"
Name = "lblState"
Left = 1800
Top = 300
Width = 1200
Height = 450
Properties = { BackColor = 0x00FF0000, BackColorMouseOver = 0x00FF0000, Caption = "" }

[[control]]
Class = "FlatTextBox"
Name = "txtNote"
Left = 300
Top = 1050
Width = 2700
Height = 1500
TabIndex = 0
Properties = { MultiLine = true, BackColor = 0x00C0FFFF }

[[control]]
Class = "FlatScroll"
Name = "scrCount"
Left = 3600
Top = 300
Width = 255
Height = 2250
Properties = { ButtonColor = 0x00332211, ButtonColorMouseOver = 0x00332211, ButtonColorPushed = 0x00332211 }
)";

// What each script begins with.
inline constexpr char kScriptHead[] = R"(
local function state(color) lblState.BackColor, lblState.BackColorMouseOver = color, color end
local kAfter, kLast = 0x0000FF00, 0x000000FF
)";

class ShowCommand : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { screen_ = new VirtualScreen; }
  static void TearDownTestSuite() { delete std::exchange(screen_, nullptr); }

  ShowCommand() { std::filesystem::create_directories(folder_); }
  ~ShowCommand() override {
    program_.reset();
    EXPECT_TRUE(Screen().WaitUntilEmpty());
    std::filesystem::remove_all(folder_);
  }

  static VirtualScreen& Screen() { return *screen_; }

  // Written beside it and renamed, as editors save.
  void File(const std::string& name, const std::string& text) {
    std::ofstream(folder_ / "new") << text;
    std::filesystem::rename(folder_ / "new", folder_ / name);
  }
  void Script(const std::string& text) { File("order.lua", kScriptHead + text); }

  void Start(std::vector<std::string> options = {}) {
    program_ = Launch("order.form.toml", "errors.txt", std::move(options));
  }
  // A program of its own with that form. What it complains of goes to the file `errors`.
  std::unique_ptr<ChildProcess> Launch(const std::string& form, const std::string& errors,
                                       std::vector<std::string> options = {}) {
    const auto built =
        std::filesystem::read_symlink("/proc/self/exe").parent_path() / "levelwidgets";  // runtime path
    std::vector<std::string> command{built.string(), "show", form};
    command.insert(command.end(), options.begin(), options.end());
    return std::make_unique<ChildProcess>(
        command, ChildProcess::Options{.environment = {{"DISPLAY", Screen().Name()}, {"LC_ALL", "C"}},
                                       .folder = folder_,
                                       .errors = folder_ / errors});
  }
  // Starts with a script and waits until the form is there as a whole, in its frame and with the keyboard.
  void Show(const std::string& script, std::vector<std::string> options = {}) {
    const auto scale = std::ranges::find(options, "--scale");
    const double factor = scale == options.end() ? 1 : std::stod(*std::next(scale));
    File("order.form.toml", kFormFile);
    Script(script);
    Start(std::move(options));
    ASSERT_FALSE(Screen().WaitFor(kButton).empty()) << Errors();
    Screen().Activate("Order");
    ASSERT_TRUE(WaitUntil([&] { return IsWhole(factor); }))
        << "the form is at " << ::testing::PrintToString(Screen().Find(kForm)) << ", its button at "
        << ::testing::PrintToString(Screen().Find(kButton)) << "; " << Errors();
    do {
      form_ = Screen().WaitForAll(kForm);
      button_ = Screen().WaitForAll(kButton);
    } while (form_ != Screen().Find(kForm));
  }

  // Whether the form and its button are as large as the form file has them, and the button where it belongs,
  // give or take two pixels: its border is not of its colour.
  static bool IsWhole(double scale) {
    const auto is_about = [scale](int pixels, int in_file) { return std::abs(pixels - in_file * scale) < 3; };
    const PixelRect form = Screen().Find(kForm);
    const PixelRect button = Screen().Find(kButton);
    return is_about(form.width(), 300) && is_about(form.height(), 200) && is_about(button.width(), 80) &&
           is_about(button.height(), 30) && is_about(button.left - form.left, 20) &&
           is_about(button.top - form.top, 20);
  }
  static PixelSize FormSize() {
    const PixelRect form = Screen().Find(kForm);
    return {form.width(), form.height()};
  }

  std::string Errors() {
    std::ifstream file(folder_ / "errors.txt");
    return {std::istreambuf_iterator<char>(file), {}};
  }
  bool WaitForError(const std::string& text) {
    return WaitUntil([&] { return Errors().find(text) != std::string::npos; });
  }
  static std::string Middle(const PixelRect& rect) {
    return std::to_string((rect.left + rect.right) / 2) + " " + std::to_string((rect.top + rect.bottom) / 2);
  }
  static void Click(const PixelRect& rect) { Screen().Do("mousemove " + Middle(rect) + " click 1"); }
  static bool Shows(ColorRef color) { return !Screen().WaitFor(color).empty(); }

  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      (std::string("levelwidgets_show_") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
  std::unique_ptr<ChildProcess> program_;
  // Where they are when the form has been shown.
  PixelRect form_;
  PixelRect button_;

 private:
  inline static VirtualScreen* screen_ = nullptr;
};

}  // namespace levelwidgets

#endif
