#include <levelwidgets/native/native_windows.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <levelwidgets/testing/source_dir.h>
#include <levelwidgets/testing/virtual_screen.h>

namespace levelwidgets {

namespace {

constexpr ColorRef kButtonMouseOver{0x00D9E5E9};

// Of the example, in pixels from where its window's client area begins: 15 twips each.
constexpr int kLabelLeft = 8, kLabelTop = 8, kLabelWidth = 224, kLabelHeight = 20;
constexpr int kButtonLeft = 8, kButtonTop = 40;

// examples/one_button, built beside the program of the tests.
std::string OneButton() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path() / "one_button";  // runtime path
}

// What is drawn in the label, when `button` is inside the button's border.
PixelRect LabelText(const VirtualScreen& screen, const PixelRect& button) {
  const int left = button.left - kButtonLeft - 1 + kLabelLeft;
  const int top = button.top - kButtonTop - 1 + kLabelTop;
  return screen.FindDrawn({left, top, left + kLabelWidth, top + kLabelHeight});
}

// For a program whose own leaks end it with a failure, under the sanitizer.
std::pair<std::string, std::string> OnlyItsOwnLeaks() {
  const std::string list = std::string(SourceDir()) + "/levelwidgets/native/testdata/leaks_of_the_system.txt";
  return {"LSAN_OPTIONS", "print_suppressions=0:suppressions='" + list + "'"};
}

TEST(NativeWindowsTest, OneButtonShowsAWindowInWhichAClickOnTheButtonChangesTheLabel) {
  const VirtualScreen screen;
  ChildProcess program({OneButton()},
                       {.environment = {{"DISPLAY", screen.Name()}, {"LC_ALL", "C"}, OnlyItsOwnLeaks()}});
  screen.Activate("One button");
  screen.DoAtLast("search --onlyvisible --name One.button mousemove --window %1 20 50");
  const PixelRect button = screen.WaitForAll(kButtonMouseOver);
  ASSERT_FALSE(button.empty());
  const PixelRect not_saved_yet = LabelText(screen, button);
  EXPECT_GT(not_saved_yet.width(), 50);

  screen.Do("click 1");
  EXPECT_TRUE(WaitUntil([&] {
    const PixelRect saved = LabelText(screen, button);
    return !saved.empty() && saved.width() < not_saved_yet.width() * 2 / 3;
  }));

  EXPECT_TRUE(program.Runs());
  screen.Do("key alt+F4");
  EXPECT_EQ(program.Ended(), 0);
}

TEST(NativeWindowsTest, OneButtonClicksItsOwnButtonWhenAskedTo) {
  const VirtualScreen screen;
  const auto printed = std::filesystem::temp_directory_path() / "levelwidgets_one_button.txt";
  ChildProcess program({"sh", "-c", "exec '" + OneButton() + "' --click >'" + printed.string() + "'"},
                       {.environment = {{"DISPLAY", screen.Name()}, OnlyItsOwnLeaks()}});
  EXPECT_EQ(program.Ended(), 0);
  std::string text;
  std::getline(std::ifstream(printed), text);
  EXPECT_EQ(text, "Saved");
  std::filesystem::remove(printed);
}

TEST(NativeWindowsTest, WithoutADisplayNoWindowsAreOpened) {
  const char* display = std::getenv("DISPLAY");
  const std::string before = display ? display : "";
  setenv("DISPLAY", ":no-such-display", 1);
  EXPECT_THROW(NativeWindows::Open(), NoDisplay);
  if (display) {
    setenv("DISPLAY", before.c_str(), 1);
  } else {
    unsetenv("DISPLAY");
  }
}

}  // namespace

}  // namespace levelwidgets
