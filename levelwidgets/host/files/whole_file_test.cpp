#include <levelwidgets/host/files/whole_file.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <system_error>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace levelwidgets {
namespace {

namespace fs = std::filesystem;

// A file of the test's own: what it says, and what happens to it while it is read.
class ScriptedFiles final : public ReadableFiles {
 public:
  std::string text;
  std::uint64_t told_size = 0;  // instead of the text's own where it is not 0
  std::size_t most_at_once = 1000;
  int changes = 0;       // how many reads find that another program has written meanwhile
  int failing_call = 0;  // counted over Open, StateOf and Read
  int opened = 0;
  int closed = 0;

  File Open(const Path&) override {
    Count();
    ++opened;
    at_ = 0;
    return opened;
  }
  State StateOf(File) override {
    Count();
    return {Kind::kOrdinary, told_size != 0 ? told_size : text.size(), modified_};
  }
  std::size_t Read(File, char* to, std::size_t count) override {
    Count();
    count = std::min({count, most_at_once, text.size() - at_});
    std::memcpy(to, text.data() + at_, count);
    at_ += count;
    if (count > 0 && changes > 0 && at_ == text.size()) {
      --changes;
      ++modified_;
    }
    return count;
  }
  void Close(File) noexcept override { ++closed; }

 private:
  void Count() {
    if (--failing_call == 0) throw std::system_error(std::make_error_code(std::errc::io_error));
  }

  std::size_t at_ = 0;
  std::int64_t modified_ = 0;
};

std::string CauseOf(ReadableFiles& files, std::uint64_t largest = kLargestFile) {
  try {
    ReadWholeFile("f", largest, files);
    return "";
  } catch (const Unreadable& cause) {
    return cause.what();
  }
}

TEST(WholeFile, IsPutTogetherFromShortReads) {
  ScriptedFiles files;
  files.text = "some text";
  files.most_at_once = 2;
  EXPECT_EQ(ReadWholeFile("f", kLargestFile, files), "some text");
  EXPECT_EQ(files.closed, files.opened);
}

TEST(WholeFile, IsRefusedUnreadWhenItIsTooLarge) {
  ScriptedFiles files;
  files.text = "12345";
  EXPECT_EQ(ReadWholeFile("f", 5, files), "12345");
  EXPECT_EQ(CauseOf(files, 4), "it has 5 bytes; at most 4 are taken");
  files.told_size = 100'000'000;
  files.failing_call = 3;  // the first read
  EXPECT_EQ(CauseOf(files), "it has 100,000,000 bytes; at most 16,777,216 are taken");
  EXPECT_EQ(files.closed, files.opened);
}

TEST(WholeFile, IsReadAgainWhenItChangesMeanwhile) {
  ScriptedFiles files;
  files.text = "text";
  files.changes = 2;
  EXPECT_EQ(ReadWholeFile("f", kLargestFile, files), "text");
  EXPECT_EQ(files.opened, 3);
  EXPECT_EQ(files.closed, 3);
}

TEST(WholeFile, IsRefusedWhenItIsWrittenAllTheTime) {
  ScriptedFiles files;
  files.text = "text";
  files.changes = 1000;
  EXPECT_EQ(CauseOf(files), "it is being written: it changed each time while it was read");
  EXPECT_EQ(files.opened, 3);
  EXPECT_EQ(files.closed, 3);
}

TEST(WholeFile, IsRefusedWhenItGrowsOrShrinksMeanwhile) {
  ScriptedFiles files;
  files.text = "text";
  files.told_size = 3;
  EXPECT_EQ(CauseOf(files), "it is being written: it changed each time while it was read");
  files.told_size = 5;
  EXPECT_EQ(CauseOf(files), "it is being written: it changed each time while it was read");
}

TEST(WholeFile, AFailureAtAnyCallIsReportedAndClosesTheFile) {
  for (int call = 1; call <= 5; ++call) {
    ScriptedFiles files;
    files.text = "text";
    files.failing_call = call;
    EXPECT_EQ(CauseOf(files), std::make_error_code(std::errc::io_error).message()) << call;
    EXPECT_EQ(files.closed, files.opened) << call;
  }
}

class WholeFileOnDisk : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    const auto seed = std::to_string(::testing::UnitTest::GetInstance()->start_timestamp());
    folder_ = fs::path(::testing::TempDir()) / ("whole_file_" + seed + test->name());
    fs::create_directories(folder_);
  }
  void TearDown() override { fs::remove_all(folder_); }
  fs::path Put(const char* name, const std::string& text) {
    std::ofstream(folder_ / name, std::ios::binary) << text;
    return folder_ / name;
  }
  static std::string Cause(const fs::path& path) {
    try {
      ReadWholeFile(path);
      return "";
    } catch (const Unreadable& cause) {
      return cause.what();
    }
  }
  fs::path folder_;
};

TEST_F(WholeFileOnDisk, HasAllItsBytes) {
  std::string text(3'000'000, 'x');
  text += std::string("\0\r\n\x1A", 4);
  EXPECT_TRUE(ReadWholeFile(Put("a", text)) == text);
  EXPECT_EQ(ReadWholeFile(Put("empty", "")), "");
}

TEST_F(WholeFileOnDisk, SaysWhyItCannotBeRead) {
  EXPECT_EQ(Cause(folder_ / "none"), "No such file or directory");
  EXPECT_EQ(Cause(folder_), "Is a directory");
}

// As sparse as can be: nothing of it is on the disk, and nothing of it is read.
TEST_F(WholeFileOnDisk, IsRefusedWithAHundredMegabytes) {
  fs::resize_file(Put("large", ""), 100'000'000);
  EXPECT_EQ(Cause(folder_ / "large"), "it has 100,000,000 bytes; at most 16,777,216 are taken");
}

#ifndef _WIN32

TEST_F(WholeFileOnDisk, IsRefusedWhenItNeverEndsOrNeverBegins) {
  EXPECT_EQ(Cause("/dev/zero"), "it is a pipe or a device, not an ordinary file");
  const fs::path pipe = folder_ / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(Cause(pipe), "it is a pipe or a device, not an ordinary file");  // nobody writes to it
}

#endif

}  // namespace
}  // namespace levelwidgets
