#include <levelwidgets/host/files/folder.h>

#include <filesystem>
#include <fstream>

#include <levelwidgets/host/files/atomic_file.h>

namespace levelwidgets {

namespace {

class FolderTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::create_directories(folder_ / "inside/below");
    std::filesystem::create_directories(folder_ / "inside/Above");
    std::filesystem::create_directories(folder_ / "outside");
    for (const char* name :
         {"inside/b.txt", "inside/a.TXT", "inside/c.toml", "inside/.hidden.txt", "outside/secret.txt"}) {
      std::ofstream(folder_ / name) << name;
    }
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  // Where links are not for everybody, the test is skipped.
  void Link(const std::string& target, const std::string& name) const {
    std::error_code error;
    std::filesystem::create_directory_symlink(folder_ / target, folder_ / name, error);
    if (error) GTEST_SKIP() << "no symbolic links here: " << error.message();
  }
  std::vector<std::string> Names(const std::vector<std::string>& patterns = {},
                                 const std::filesystem::path& root = {}) const {
    std::vector<std::string> names;
    for (const FolderEntry& entry : EntriesOf(folder_ / "inside", patterns, root)) {
      names.push_back(entry.name + (entry.is_folder ? "/" : ""));
    }
    return names;
  }

  const std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      (std::string("levelwidgets_folder_") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
};

using ::testing::ElementsAre;

TEST_F(FolderTest, FoldersComeFirstAndHiddenFilesNotAtAll) {
  EXPECT_THAT(Names(), ElementsAre("Above/", "below/", "a.TXT", "b.txt", "c.toml"));
}

TEST_F(FolderTest, PatternsAreForFilesAndOneIsEnough) {
  EXPECT_THAT(Names({"*.txt"}), ElementsAre("Above/", "below/", "a.TXT", "b.txt"));
  EXPECT_THAT(Names({"b*", "*.toml"}), ElementsAre("Above/", "below/", "b.txt", "c.toml"));
}

TEST_F(FolderTest, WhatLeadsOutOfTheRootIsLeftOut) {
  Link("outside", "inside/way out");
  Link("inside/below", "inside/shortcut");
  if (IsSkipped()) return;
  EXPECT_THAT(Names({"-"}), ElementsAre("Above/", "below/", "shortcut/", "way out/"));
  EXPECT_THAT(Names({"-"}, folder_ / "inside"), ElementsAre("Above/", "below/", "shortcut/"));
}

TEST_F(FolderTest, AFolderThatCannotBeReadHasNothing) {
  EXPECT_TRUE(EntriesOf(folder_ / "nowhere", {}).empty());
  EXPECT_TRUE(EntriesOf(folder_ / "inside/b.txt", {}).empty());
}

TEST_F(FolderTest, AFolderBeyondAMeasureIsShownInPart) {
  constexpr std::size_t kMost = 3;
  for (std::size_t i = 0; i < kMost; ++i) std::ofstream(folder_ / "outside" / std::to_string(i));
  EXPECT_EQ(EntriesOf(folder_ / "outside", {}).size(), kMost + 1);
  EXPECT_EQ(EntriesOf(folder_ / "outside", {}, {}, kMost).size(), kMost);
}

#ifndef _WIN32  // where making so many files takes long

TEST_F(FolderTest, AFolderBeyondEveryMeasureIsShownInPart) {
  for (std::size_t i = 0; i <= kMostEntries; ++i) std::ofstream(folder_ / "outside" / std::to_string(i));
  EXPECT_EQ(EntriesOf(folder_ / "outside", {}).size(), kMostEntries);
}

#endif

TEST_F(FolderTest, InAFolderIsWhatIsThereWhereverLinksLead) {
  EXPECT_TRUE(IsInFolder(folder_ / "inside", folder_ / "inside"));
  EXPECT_TRUE(IsInFolder(folder_ / "inside", folder_ / "inside/below/../b.txt"));
  EXPECT_FALSE(IsInFolder(folder_ / "inside", folder_ / "inside/../outside"));
  EXPECT_FALSE(IsInFolder(folder_ / "inside", folder_ / "inside/nowhere"));
  std::filesystem::create_directories(folder_ / "inside and more");
  EXPECT_FALSE(IsInFolder(folder_ / "inside", folder_ / "inside and more"));
  EXPECT_TRUE(IsInFolder("", std::filesystem::current_path()));
  Link("outside", "inside/way out");
  EXPECT_FALSE(IsInFolder(folder_ / "inside", folder_ / "inside/way out/secret.txt"));
}

TEST(PatternTest, AStarIsAnyTextAndAQuestionMarkOneCharacter) {
  EXPECT_TRUE(MatchesPattern("order.form.toml", "*.form.toml"));
  EXPECT_TRUE(MatchesPattern("a.b.c.toml", "a*c*.TOML"));
  EXPECT_TRUE(MatchesPattern("aab", "*ab"));
  EXPECT_TRUE(MatchesPattern("", "**"));
  EXPECT_TRUE(MatchesPattern("x1", "x?"));
  EXPECT_FALSE(MatchesPattern("x", "x?"));
  EXPECT_FALSE(MatchesPattern("order.toml.txt", "*.toml"));
  EXPECT_FALSE(MatchesPattern("order", ""));
}

TEST(PatternTest, ManyStarsAreNoDelay) {
  std::string pattern;
  for (int i = 0; i < 60; ++i) pattern += "*a";
  EXPECT_FALSE(MatchesPattern(std::string(5000, 'a') + "b", pattern));
}

}  // namespace

}  // namespace levelwidgets
