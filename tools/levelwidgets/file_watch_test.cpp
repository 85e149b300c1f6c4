#include <tools/levelwidgets/file_watch.h>

#include <fstream>

#include <gtest/gtest.h>

namespace levelwidgets {
namespace {

class FileWatchTest : public ::testing::Test {
 protected:
  FileWatchTest() {
    std::filesystem::create_directories(folder_);
    Write("order.form.toml", "one");
    Write("order.lua", "one");
  }
  ~FileWatchTest() override { std::filesystem::remove_all(folder_); }

  void Write(const std::string& name, const std::string& text) { std::ofstream(folder_ / name) << text; }
  // As it is asked again and again.
  int CountChanges(FileWatch& watch) {
    int changes = 0;
    for (int i = 0; i < 4; ++i) changes += watch.HasChanged() ? 1 : 0;
    return changes;
  }

  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      (std::string("levelwidgets_watch_") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
  std::filesystem::path form_ = folder_ / "order.form.toml";
};

TEST_F(FileWatchTest, NothingHasChangedAtFirst) {
  FileWatch watch(form_);
  EXPECT_EQ(CountChanges(watch), 0);
}

TEST_F(FileWatchTest, AChangeIsReportedOnce) {
  FileWatch watch(form_);
  Write("order.form.toml", "longer");
  EXPECT_EQ(CountChanges(watch), 1);
  Write("order.lua", "longer");
  EXPECT_EQ(CountChanges(watch), 1);
}

TEST_F(FileWatchTest, ModulesAndOtherFormsOfTheFolderCount) {
  FileWatch watch(form_);
  Write("module.lua", "new");
  EXPECT_EQ(CountChanges(watch), 1);
  Write("lines.form.toml", "new");
  EXPECT_EQ(CountChanges(watch), 1);
  std::filesystem::remove(folder_ / "module.lua");
  EXPECT_EQ(CountChanges(watch), 1);
}

TEST_F(FileWatchTest, OtherFilesDoNotCount) {
  FileWatch watch(form_);
  Write("notes.txt", "new");
  Write(".order.form.toml.swp", "new");
  EXPECT_EQ(CountChanges(watch), 0);
}

TEST_F(FileWatchTest, AFileThatIsStillBeingWrittenIsNotReported) {
  FileWatch watch(form_);
  Write("order.form.toml", "first part");
  EXPECT_FALSE(watch.HasChanged());
  Write("order.form.toml", "first part, second part");
  EXPECT_FALSE(watch.HasChanged());
  EXPECT_TRUE(watch.HasChanged());
}

TEST_F(FileWatchTest, AFileThatIsReplacedByAnotherIsReportedOnce) {
  FileWatch watch(form_);
  std::filesystem::remove(form_);
  EXPECT_FALSE(watch.HasChanged());
  Write("new", "another text");
  std::filesystem::rename(folder_ / "new", form_);
  EXPECT_EQ(CountChanges(watch), 1);
}

TEST_F(FileWatchTest, AFormNamedWithoutAFolderIsInTheCurrentOne) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder_);
  FileWatch watch("order.form.toml");
  Write("order.lua", "longer");
  EXPECT_EQ(CountChanges(watch), 1);
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace levelwidgets
