#include <levelwidgets/platform/file_dialogs.h>

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include <levelwidgets/platform/win32/win32_platform.h>

namespace levelwidgets::win32 {

namespace {

constexpr char kTitle[] = "A file, please";
constexpr int kMostTicks = 300;

// A question that is not answered must not hold up the other tests.
BOOL CALLBACK GiveUp(HWND window, LPARAM) {
  char text[200] = "";
  ::GetWindowTextA(window, text, sizeof text);
  if (::IsWindowVisible(window)) ADD_FAILURE() << "left open: " << text;
  ::PostMessageA(window, WM_COMMAND, IDCANCEL, 0);
  return TRUE;
}

class Win32FileDialogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::create_directories(folder_);
    for (const char* name : {"one.txt", "two.txt"}) std::ofstream(folder_ / name) << name;
  }
  void TearDown() override {
    platform_.Clock().KillTimer(timer_);
    EXPECT_LE(ticks_, kMostTicks) << "The question was given up.";
    std::filesystem::remove_all(folder_);
  }

  FileDialogApi& Dialogs() { return *FileDialogsOf(platform_); }
  FileDialog Question() const { return {.title = kTitle, .folder = Text(folder_), .name = "one.txt"}; }
  std::string Path(const char* name) const { return Text(folder_ / name); }

  // Once the question is seen: the button.
  void Answer(WPARAM button) {
    timer_ = platform_.Clock().SetTimer(20, [this, button] {
      const HWND dialog = ::FindWindowA(nullptr, kTitle);
      if (++ticks_ > kMostTicks) ::EnumThreadWindows(::GetCurrentThreadId(), GiveUp, 0);
      if (!dialog || !::IsWindowVisible(dialog)) return;
      if (++seen_ % 25 != 10) return;  // it has begun, or has not heard
      ::PostMessageA(dialog, WM_COMMAND, button, 0);
    });
  }

  Win32Platform platform_;
  TimerHandle timer_;
  int ticks_ = 0;
  int seen_ = 0;

 private:
  static std::string Text(const std::filesystem::path& path) {
    return std::filesystem::path(path).make_preferred().string();
  }
  const std::filesystem::path folder_ = std::filesystem::temp_directory_path() / "levelwidgets_dialogs";
};

TEST_F(Win32FileDialogTest, ThePersonGivesAFileThatExists) {
  Answer(IDOK);
  EXPECT_EQ(Dialogs().GetOpenFileNameA(Question()), Path("one.txt"));
}

TEST_F(Win32FileDialogTest, ThePersonTakesTheNameThatIsProposed) {
  FileDialog question = Question();
  question.name = "new.txt";
  question.patterns = {"*.txt", "*.toml"};
  Answer(IDOK);
  EXPECT_EQ(Dialogs().GetSaveFileNameA(question), Path("new.txt"));
}

TEST_F(Win32FileDialogTest, ThePersonGivesNone) {
  Answer(IDCANCEL);
  EXPECT_EQ(Dialogs().GetOpenFileNameA(Question()), std::nullopt);
}

TEST_F(Win32FileDialogTest, TheCurrentFolderStaysWhatItWas) {
  const auto before = std::filesystem::current_path();
  Answer(IDOK);
  Dialogs().GetOpenFileNameA(Question());
  EXPECT_EQ(std::filesystem::current_path(), before);
}

TEST_F(Win32FileDialogTest, WhatAHandlerThrowsMeanwhileIsThrownAtTheEnd) {
  Answer(IDOK);
  platform_.Clock().Post([] { throw std::runtime_error("meanwhile"); });
  EXPECT_THROW(Dialogs().GetOpenFileNameA(Question()), std::runtime_error);
}

}  // namespace

}  // namespace levelwidgets::win32
