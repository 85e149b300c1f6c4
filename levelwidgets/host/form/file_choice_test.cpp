#include <levelwidgets/host/form/file_choice.h>

#include <fstream>
#include <ostream>

#include <levelwidgets/host/files/atomic_file.h>

namespace levelwidgets {

using Kind = FileChoice::Kind;

namespace {

class FileChoiceTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::create_directories(folder_ / "orders/old");
    std::filesystem::create_directories(folder_ / "others");
    for (const char* name : {"orders/one.toml", "orders/notes.txt", "orders/old/two.toml", "others/x.toml"}) {
      std::ofstream(folder_ / name) << name;
    }
    orders_ = std::filesystem::canonical(folder_ / "orders");
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  FileChoice ToOpen() const { return FileChoice({.folder = orders_}); }
  FileChoice ToSave() const { return FileChoice({.to_save = true, .folder = orders_}); }
  FileChoice Confined(bool to_save = false) const {
    return FileChoice({.to_save = to_save, .folder = orders_, .root = orders_});
  }
  static std::vector<std::string> Names(const FileChoice& choice) {
    std::vector<std::string> names;
    for (const FolderEntry& entry : choice.Entries()) names.push_back(entry.name);
    return names;
  }
  void ExpectRefused(FileChoice choice, const std::string& name, const std::string& reason) const {
    const auto outcome = choice.Give(name);
    EXPECT_EQ(outcome.kind, Kind::kRefused) << name;
    EXPECT_EQ(outcome.reason, reason);
    EXPECT_EQ(outcome.path, "");
    EXPECT_EQ(choice.Folder(), orders_);
  }

  const std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      (std::string("levelwidgets_choice_") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
  std::filesystem::path orders_;
};

using ::testing::ElementsAre;

TEST_F(FileChoiceTest, ItShowsTheFolderWithTheWayUp) {
  EXPECT_THAT(Names(ToOpen()), ElementsAre("..", "old", "notes.txt", "one.toml"));
  EXPECT_THAT(Names(FileChoice({.folder = orders_, .patterns = {"*.toml"}})),
              ElementsAre("..", "old", "one.toml"));
}

TEST_F(FileChoiceTest, ItBeginsInTheCurrentFolderUnlessItIsGivenOne) {
  EXPECT_EQ(FileChoice({}).Folder(), std::filesystem::current_path());
  EXPECT_EQ(FileChoice({.folder = folder_ / "nowhere"}).Folder(), std::filesystem::current_path());
  EXPECT_EQ(FileChoice({.folder = folder_ / "others", .root = orders_}).Folder(), orders_);
}

TEST_F(FileChoiceTest, AFolderIsEntered) {
  FileChoice choice = ToOpen();
  EXPECT_EQ(choice.Give("old").kind, Kind::kEntered);
  EXPECT_EQ(choice.Folder(), orders_ / "old");
  EXPECT_THAT(Names(choice), ElementsAre("..", "two.toml"));
  EXPECT_EQ(choice.Give("..").kind, Kind::kEntered);
  EXPECT_EQ(choice.Folder(), orders_);
  EXPECT_EQ(choice.Give(TextOfPath(folder_ / "others")).kind, Kind::kEntered);
  EXPECT_THAT(Names(choice), ElementsAre("..", "x.toml"));
}

TEST_F(FileChoiceTest, AFileIsChosenByNameWayOrPath) {
  FileChoice choice = ToOpen();
  EXPECT_EQ(choice.Give(" one.toml ").path, orders_ / "one.toml");
  EXPECT_EQ(choice.Give("old/two.toml").path, orders_ / "old/two.toml");
  EXPECT_EQ(choice.Give("old/../one.toml").path, orders_ / "one.toml");
  EXPECT_EQ(choice.Give(TextOfPath(orders_ / "notes.txt")).kind, Kind::kChosen);
}

TEST_F(FileChoiceTest, NoNameIsNoAnswer) {
  EXPECT_EQ(ToOpen().Give("").kind, Kind::kNothing);
  EXPECT_EQ(ToOpen().Give("   ").kind, Kind::kNothing);
}

TEST_F(FileChoiceTest, WhatDoesNotExistCannotBeOpened) {
  ExpectRefused(ToOpen(), "three.toml", "There is no file \"three.toml\" in " + TextOfPath(orders_));
  ExpectRefused(ToOpen(), "no/three.toml", "There is no folder for \"no/three.toml\"");
  ExpectRefused(ToOpen(), std::string("one.toml\0x", 10),
                "\"" + std::string("one.toml\0x", 10) + "\" is no name for a file");
}

TEST_F(FileChoiceTest, ToSaveANewNameIsChosenAndAnOldOneAskedAbout) {
  EXPECT_EQ(ToSave().Give("three.toml").kind, Kind::kChosen);
  EXPECT_EQ(ToSave().Give("old/three.toml").path, orders_ / "old/three.toml");
  EXPECT_EQ(ToSave().Give("one.toml").kind, Kind::kExists);
  EXPECT_EQ(ToSave().Give("one.toml").path, orders_ / "one.toml");
  ExpectRefused(ToSave(), "no/three.toml", "There is no folder for \"no/three.toml\"");
}

TEST_F(FileChoiceTest, NothingOutsideTheRootCounts) {
  EXPECT_THAT(Names(Confined()), ElementsAre("old", "notes.txt", "one.toml"));
  for (const bool to_save : {false, true}) {
    for (const std::string name : {"../others/x.toml", "..", "old/../../others", "../new.toml"}) {
      ExpectRefused(Confined(to_save), name, "\"" + name + "\" is outside the folder to choose from");
    }
    const std::string path = TextOfPath(folder_ / "others" / "x.toml");
    ExpectRefused(Confined(to_save), path, "\"" + path + "\" is outside the folder to choose from");
  }
  FileChoice choice = Confined();
  EXPECT_EQ(choice.Give("old").kind, Kind::kEntered);
  EXPECT_THAT(Names(choice), ElementsAre("..", "two.toml"));
  EXPECT_EQ(choice.Give("../one.toml").path, orders_ / "one.toml");
}

TEST_F(FileChoiceTest, ALinkOutOfTheRootIsOutside) {
  std::error_code error;
  std::filesystem::create_symlink(folder_ / "others/x.toml", orders_ / "link.toml", error);
  if (error) GTEST_SKIP() << "no symbolic links here: " << error.message();
  ExpectRefused(Confined(), "link.toml", "\"link.toml\" is outside the folder to choose from");
  EXPECT_EQ(ToOpen().Give("link.toml").path, orders_ / "link.toml");
  std::filesystem::create_symlink(folder_ / "others/nothing.toml", orders_ / "dangling.toml");
  EXPECT_EQ(Confined(true).Give("dangling.toml").kind, Kind::kRefused);
}

#ifndef _WIN32
TEST_F(FileChoiceTest, WhatIsNoOrdinaryFileIsRefused) {
  ExpectRefused(ToOpen(), "/dev/null", "\"/dev/null\" is no ordinary file");  // runtime path
  ExpectRefused(ToSave(), "/dev/null", "\"/dev/null\" is no ordinary file");  // runtime path
}
#endif

}  // namespace

}  // namespace levelwidgets
