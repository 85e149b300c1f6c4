// Reading a file that anybody may have made: no larger than is sane, without waiting, all of it of one
// moment.
#pragma once

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace levelwidgets {

// What such a read asks of the system. Each call but Close throws std::system_error.
class ReadableFiles {
 public:
  using Path = std::filesystem::path;
  using File = int;
  enum class Kind { kOrdinary, kFolder, kOther };
  struct State {
    Kind kind = Kind::kOrdinary;
    std::uint64_t size = 0;     // bytes
    std::int64_t modified = 0;  // a time that changes with the content; its unit is the system's
    bool operator==(const State&) const = default;
  };

  virtual ~ReadableFiles() = default;
  // Returns at once, also for a pipe without a writer.
  virtual File Open(const Path& path) = 0;
  virtual State StateOf(File file) = 0;
  // At most `count` bytes; 0 at the end.
  virtual std::size_t Read(File file, char* to, std::size_t count) = 0;
  virtual void Close(File file) noexcept = 0;
};

ReadableFiles& SystemReadableFiles();

// Form files and scripts are far smaller.
inline constexpr std::uint64_t kLargestFile = 16 * 1024 * 1024;

// Why a file was not read, without its name: "No such file or directory", "it has 104,857,600 bytes; ...".
class Unreadable : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The bytes of the ordinary file at `path`. Refuses folders, pipes and devices, and more than `largest`
// bytes before anything is read. A file that changes meanwhile is read again; one that does not come to rest
// is refused, so that what is returned has stood in the file at one moment. Throws Unreadable.
std::string ReadWholeFile(const std::filesystem::path& path, std::uint64_t largest = kLargestFile,
                          ReadableFiles& files = SystemReadableFiles());

}  // namespace levelwidgets
