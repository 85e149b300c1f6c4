#include <levelwidgets/host/atomic_file.h>

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <system_error>

namespace levelwidgets {
namespace {

namespace fs = std::filesystem;

// A folder that is gone after the test.
class AtomicFile : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    const auto seed = std::to_string(::testing::UnitTest::GetInstance()->start_timestamp());
    folder_ = fs::path(::testing::TempDir()) / ("atomic_file_" + seed + test->name());
    fs::create_directories(folder_);
  }
  void TearDown() override { fs::remove_all(folder_); }

  fs::path InFolder(const char* name) const { return folder_ / name; }
  static std::string Read(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }
  static void Put(const fs::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
  }
  std::size_t FileCount() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
  }

  fs::path folder_;
};

// Does what the system does, and fails at one of the calls; a failing write writes half before.
class FailingFiles final : public FileSystem {
 public:
  explicit FailingFiles(int failing_call) : left_(failing_call) {}

  const std::string& Calls() const { return calls_; }

  Path Target(const Path& path) override {
    Count("Target");
    return SystemFiles().Target(path);
  }
  bool CheckExisting(const Path& path) override {
    Count("CheckExisting");
    return SystemFiles().CheckExisting(path);
  }
  std::optional<File> Create(const Path& path) override {
    Count("Create");
    return SystemFiles().Create(path);
  }
  void CopyPermissions(const Path& from, const Path& to) override {
    Count("CopyPermissions");
    SystemFiles().CopyPermissions(from, to);
  }
  void Write(File file, std::string_view text) override {
    if (left_ == 1) SystemFiles().Write(file, text.substr(0, text.size() / 2));
    Count("Write");
    SystemFiles().Write(file, text);
  }
  void Flush(File file) override {
    Count("Flush");
    SystemFiles().Flush(file);
  }
  void Close(File file) override {
    SystemFiles().Close(file);
    Count("Close");
  }
  void Rename(const Path& from, const Path& to) override {
    Count("Rename");
    SystemFiles().Rename(from, to);
  }
  void FlushFolder(const Path& folder) override {
    Count("FlushFolder");
    SystemFiles().FlushFolder(folder);
  }
  void CloseQuietly(File file) noexcept override { SystemFiles().CloseQuietly(file); }
  void Remove(const Path& path) noexcept override { SystemFiles().Remove(path); }

 private:
  void Count(const std::string& call) {
    calls_ += (calls_.empty() ? "" : " ") + call;
    if (--left_ == 0) throw std::system_error(std::make_error_code(std::errc::no_space_on_device));
  }

  int left_;
  std::string calls_;
};

TEST_F(AtomicFile, WritesANewFile) {
  WriteFileAtomically(SystemFiles(), InFolder("a"), "new\r\n");
  EXPECT_EQ(Read(InFolder("a")), "new\r\n");
  EXPECT_EQ(FileCount(), 1u);
}

TEST_F(AtomicFile, FlushesBeforeItRenamesAndTheFolderAfterwards) {
  Put(InFolder("a"), "old");
  FailingFiles files(0);
  WriteFileAtomically(files, InFolder("a"), "new");
  EXPECT_EQ(files.Calls(),
            "Target CheckExisting Create CopyPermissions Write Flush Close Rename FlushFolder");
  EXPECT_EQ(Read(InFolder("a")), "new");
}

TEST_F(AtomicFile, AFailureAtAnyCallLeavesTheOldFileWhole) {
  const std::string text(100'000, 'n');
  constexpr int kRename = 8;
  for (int call = 1; call <= kRename; ++call) {
    Put(InFolder("a"), "old");
    FailingFiles files(call);
    try {
      WriteFileAtomically(files, InFolder("a"), text);
      FAIL() << "no error from " << files.Calls();
    } catch (const std::system_error& error) {
      EXPECT_EQ(error.code(), std::errc::no_space_on_device);
    }
    EXPECT_EQ(Read(InFolder("a")), "old") << files.Calls();
    EXPECT_EQ(FileCount(), 1u) << files.Calls();
  }
}

TEST_F(AtomicFile, OnceRenamedTheNewFileStays) {
  Put(InFolder("a"), "old");
  FailingFiles files(9);
  WriteFileAtomically(files, InFolder("a"), "new");
  EXPECT_TRUE(files.Calls().ends_with("FlushFolder"));
  EXPECT_EQ(Read(InFolder("a")), "new");
  EXPECT_EQ(FileCount(), 1u);
}

TEST_F(AtomicFile, PassesOverWhatACrashHasLeft) {
  Put(InFolder("a.new0"), "half");
  WriteFileAtomically(SystemFiles(), InFolder("a"), "new");
  EXPECT_EQ(Read(InFolder("a")), "new");
  EXPECT_EQ(Read(InFolder("a.new0")), "half");
}

TEST_F(AtomicFile, RefusesAFolder) {
  try {
    WriteFileAtomically(SystemFiles(), folder_, "new");
    FAIL() << "no error";
  } catch (const std::system_error& error) {
    EXPECT_EQ(error.code(), std::errc::is_a_directory);
  }
  EXPECT_EQ(FileCount(), 0u);
}

TEST_F(AtomicFile, NamesTheCauseWhenTheFolderIsMissing) {
  try {
    WriteFileAtomically(SystemFiles(), InFolder("none") / "a", "new");
    FAIL() << "no error";
  } catch (const std::system_error& error) {
    EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
  }
}

TEST_F(AtomicFile, TakesNamesInUtf8) {
  const fs::path path = folder_ / PathOf("\xC3\xA4\xE2\x82\xAC");
  WriteFileAtomically(SystemFiles(), path, "new");
  EXPECT_EQ(Read(path), "new");
  EXPECT_TRUE(TextOfPath(path).ends_with("\xC3\xA4\xE2\x82\xAC"));
}

#ifndef _WIN32

TEST_F(AtomicFile, KeepsThePermissions) {
  Put(InFolder("a"), "old");
  fs::permissions(InFolder("a"), fs::perms(0640));
  WriteFileAtomically(SystemFiles(), InFolder("a"), "new");
  EXPECT_EQ(fs::status(InFolder("a")).permissions(), fs::perms(0640));
}

TEST_F(AtomicFile, FollowsASymbolicLink) {
  fs::create_directory(InFolder("there"));
  Put(InFolder("there") / "a", "old");
  fs::create_symlink("there/a", InFolder("link"));
  fs::create_symlink("link", InFolder("link2"));
  WriteFileAtomically(SystemFiles(), InFolder("link2"), "new");
  EXPECT_EQ(Read(InFolder("there") / "a"), "new");
  EXPECT_TRUE(fs::is_symlink(InFolder("link")));
  EXPECT_TRUE(fs::is_symlink(InFolder("link2")));
}

TEST_F(AtomicFile, RefusesACircleOfLinks) {
  fs::create_symlink("b", InFolder("a"));
  fs::create_symlink("a", InFolder("b"));
  EXPECT_THROW(WriteFileAtomically(SystemFiles(), InFolder("a"), "new"), std::system_error);
}

TEST_F(AtomicFile, RefusesADevice) {
  EXPECT_THROW(WriteFileAtomically(SystemFiles(), "/dev/null", "new"), std::system_error);
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

#endif

}  // namespace
}  // namespace levelwidgets
