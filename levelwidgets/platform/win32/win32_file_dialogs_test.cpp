#include <levelwidgets/platform/file_dialogs.h>

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include <levelwidgets/platform/win32/win32_platform.h>

namespace levelwidgets::win32 {

namespace {

constexpr char kTitle[] = "A file, please";
constexpr int kNameBox = 0x480;  // edt1, of dlgs.h

class Win32FileDialogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::create_directories(folder_);
    for (const char* name : {"one.txt", "two.txt"}) std::ofstream(folder_ / name) << name;
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  FileDialogApi& Dialogs() { return *FileDialogsOf(platform_); }
  FileDialog Question() const { return {.title = kTitle, .folder = Text(folder_)}; }
  std::string Path(const char* name) const { return Text(folder_ / name); }

  // Once the question is seen: a name, where one is given, and the button.
  void Answer(const char* name, WPARAM button) {
    timer_ = platform_.Clock().SetTimer(20, [this, name, button] {
      const HWND dialog = ::FindWindowA(nullptr, kTitle);
      if (!dialog || !::IsWindowVisible(dialog)) return;
      platform_.Clock().KillTimer(timer_);
      if (name) ::SetDlgItemTextA(dialog, kNameBox, name);
      ::PostMessageA(dialog, WM_COMMAND, button, 0);
    });
  }

  Win32Platform platform_;
  TimerHandle timer_;

 private:
  static std::string Text(const std::filesystem::path& path) {
    return std::filesystem::path(path).make_preferred().string();
  }
  const std::filesystem::path folder_ = std::filesystem::temp_directory_path() / "levelwidgets_dialogs";
};

}  // namespace

TEST_F(Win32FileDialogTest, ThePersonGivesAFileThatExists) {
  Answer("two.txt", IDOK);
  EXPECT_EQ(Dialogs().GetOpenFileNameA(Question()), Path("two.txt"));
}

TEST_F(Win32FileDialogTest, ThePersonTakesTheNameThatIsProposed) {
  FileDialog question = Question();
  question.name = "new.txt";
  question.patterns = {"*.txt", "*.toml"};
  Answer(nullptr, IDOK);
  EXPECT_EQ(Dialogs().GetSaveFileNameA(question), Path("new.txt"));
}

TEST_F(Win32FileDialogTest, ThePersonGivesNone) {
  Answer(nullptr, IDCANCEL);
  EXPECT_EQ(Dialogs().GetOpenFileNameA(Question()), std::nullopt);
}

TEST_F(Win32FileDialogTest, AProposalThatIsNoNameIsLeftOut) {
  FileDialog question = Question();
  question.name = "a<b>|c";
  Answer("one.txt", IDOK);
  EXPECT_EQ(Dialogs().GetOpenFileNameA(question), Path("one.txt"));
}

TEST_F(Win32FileDialogTest, TheCurrentFolderStaysWhatItWas) {
  const auto before = std::filesystem::current_path();
  Answer("one.txt", IDOK);
  Dialogs().GetOpenFileNameA(Question());
  EXPECT_EQ(std::filesystem::current_path(), before);
}

TEST_F(Win32FileDialogTest, WhatAHandlerThrowsMeanwhileIsThrownAtTheEnd) {
  Answer("one.txt", IDOK);
  platform_.Clock().Post([] { throw std::runtime_error("meanwhile"); });
  EXPECT_THROW(Dialogs().GetOpenFileNameA(Question()), std::runtime_error);
}

}  // namespace levelwidgets::win32
