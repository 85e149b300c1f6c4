#include <levelwidgets/host/files/atomic_file.h>

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

// The program has ended: nothing of it runs any more.
struct Crash {};

// Does what the system does, a few bytes at a time, until something happens at one of the calls.
class FailingFiles final : public FileSystem {
 public:
  enum class Fault { kNone, kFails, kInterrupted, kCrashesBefore, kCrashesAfter };
  FailingFiles(Fault fault, int at_call) : fault_(fault), left_(at_call) {}
  FailingFiles() : FailingFiles(Fault::kNone, 0) {}

  const std::string& Calls() const { return calls_; }
  int CallCount() const { return count_; }

  Path Target(const Path& path) override {
    return Do("Target", [&] { return SystemFiles().Target(path); });
  }
  bool CheckExisting(const Path& path) override {
    return Do("CheckExisting", [&] { return SystemFiles().CheckExisting(path); });
  }
  std::optional<File> Create(const Path& path) override {
    return Do("Create", [&] {
      const auto file = SystemFiles().Create(path);
      if (crashed_ && file) SystemFiles().CloseQuietly(*file);  // as the end of a program does
      return file;
    });
  }
  void CopyPermissions(const Path& from, const Path& to) override {
    Do("CopyPermissions", [&] { SystemFiles().CopyPermissions(from, to); });
  }
  std::size_t Write(File file, std::string_view text) override {
    return Do("Write", [&] { return SystemFiles().Write(file, text.substr(0, 3)); });
  }
  void Flush(File file) override {
    Do("Flush", [&] { SystemFiles().Flush(file); });
  }
  // The file is closed all the same.
  void Close(File file) override {
    SystemFiles().Close(file);
    Do("Close", [] {});
  }
  void Rename(const Path& from, const Path& to) override {
    Do("Rename", [&] { SystemFiles().Rename(from, to); });
  }
  void FlushFolder(const Path& folder) override {
    Do("FlushFolder", [&] { SystemFiles().FlushFolder(folder); });
  }
  void CloseQuietly(File file) noexcept override { SystemFiles().CloseQuietly(file); }
  void Remove(const Path& path) noexcept override {
    if (!crashed_) SystemFiles().Remove(path);
  }

 private:
  template <typename Call>
  auto Do(const std::string& name, Call call) -> decltype(call()) {
    ++count_;
    calls_ += (calls_.empty() ? "" : " ") + name;
    const Fault fault = --left_ == 0 ? fault_ : Fault::kNone;
    if (fault == Fault::kFails) throw std::system_error(std::make_error_code(std::errc::no_space_on_device));
    if (fault == Fault::kInterrupted) throw std::system_error(std::make_error_code(std::errc::interrupted));
    crashed_ = fault == Fault::kCrashesBefore || fault == Fault::kCrashesAfter;
    if (fault == Fault::kCrashesBefore) throw Crash();
    if (fault == Fault::kCrashesAfter) {
      call();
      throw Crash();
    }
    return call();
  }

  Fault fault_;
  int left_;
  int count_ = 0;
  bool crashed_ = false;
  std::string calls_;
};

using Fault = FailingFiles::Fault;
constexpr int kCalls = 11;  // of a write of eight bytes over an old file
constexpr int kRename = 10;

TEST_F(AtomicFile, WritesANewFile) {
  WriteFileAtomically(SystemFiles(), InFolder("a"), "new\r\n");
  EXPECT_EQ(Read(InFolder("a")), "new\r\n");
  EXPECT_EQ(FileCount(), 1u);
}

TEST_F(AtomicFile, FlushesBeforeItRenamesAndTheFolderAfterwards) {
  Put(InFolder("a"), "old");
  FailingFiles files;
  WriteFileAtomically(files, InFolder("a"), "new text");
  EXPECT_EQ(files.Calls(),
            "Target CheckExisting Create CopyPermissions Write Write Write Flush Close Rename FlushFolder");
  EXPECT_EQ(files.CallCount(), kCalls);
  EXPECT_EQ(Read(InFolder("a")), "new text");
}

TEST_F(AtomicFile, AFailureAtAnyCallLeavesTheOldFileWholeAndNothingBesideIt) {
  for (int call = 1; call <= kRename; ++call) {
    Put(InFolder("a"), "old");
    FailingFiles files(Fault::kFails, call);
    try {
      WriteFileAtomically(files, InFolder("a"), "new text");
      FAIL() << "no error from " << files.Calls();
    } catch (const std::system_error& error) {
      EXPECT_EQ(error.code(), std::errc::no_space_on_device);
    }
    EXPECT_EQ(files.CallCount(), call);
    EXPECT_EQ(Read(InFolder("a")), "old") << files.Calls();
    EXPECT_EQ(FileCount(), 1u) << files.Calls();
  }
}

TEST_F(AtomicFile, OnceRenamedTheNewFileStays) {
  Put(InFolder("a"), "old");
  FailingFiles files(Fault::kFails, kCalls);
  WriteFileAtomically(files, InFolder("a"), "new text");
  EXPECT_TRUE(files.Calls().ends_with("FlushFolder"));
  EXPECT_EQ(Read(InFolder("a")), "new text");
  EXPECT_EQ(FileCount(), 1u);
}

TEST_F(AtomicFile, ACrashAtAnyCallLeavesTheOldFileOrTheNewOneWholeAndDisturbsNoLaterWrite) {
  for (const Fault fault : {Fault::kCrashesBefore, Fault::kCrashesAfter}) {
    for (int call = 1; call <= kCalls; ++call) {
      Put(InFolder("a"), "old");
      FailingFiles files(fault, call);
      EXPECT_THROW(WriteFileAtomically(files, InFolder("a"), "new text"), Crash);
      const bool renamed = call > kRename || (call == kRename && fault == Fault::kCrashesAfter);
      EXPECT_EQ(Read(InFolder("a")), renamed ? "new text" : "old") << files.Calls();
      WriteFileAtomically(SystemFiles(), InFolder("a"), "next");
      EXPECT_EQ(Read(InFolder("a")), "next") << files.Calls();
      EXPECT_LE(FileCount(), 2u) << files.Calls();
      fs::remove(InFolder("a.new0"));
      EXPECT_EQ(FileCount(), 1u) << files.Calls();
    }
  }
}

TEST_F(AtomicFile, CallsThatASignalInterruptsAreMadeAgain) {
  constexpr int kCreate = 3;
  constexpr int kFirstWrite = 5;
  constexpr int kFlush = 8;
  constexpr int kClose = 9;
  for (const int call : {kCreate, kFirstWrite, kFirstWrite + 1, kFlush, kClose}) {
    Put(InFolder("a"), "old");
    FailingFiles files(Fault::kInterrupted, call);
    WriteFileAtomically(files, InFolder("a"), "new text");
    EXPECT_EQ(Read(InFolder("a")), "new text") << call;
    EXPECT_EQ(files.CallCount(), call == kClose ? kCalls : kCalls + 1);  // a file is not closed twice
    EXPECT_EQ(FileCount(), 1u) << call;
  }
}

TEST_F(AtomicFile, ANameAsLongAsTheSystemTakesIsWritten) {
  const std::string name(255, 'n');
  WriteFileAtomically(SystemFiles(), folder_ / name, "new");
  WriteFileAtomically(SystemFiles(), folder_ / name, "newer");
  EXPECT_EQ(Read(folder_ / name), "newer");
  EXPECT_EQ(FileCount(), 1u);
  EXPECT_THROW(WriteFileAtomically(SystemFiles(), folder_ / (name + "n"), "new"), std::system_error);
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
