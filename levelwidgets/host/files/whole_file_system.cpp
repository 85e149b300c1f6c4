#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include <levelwidgets/host/files/throw_errno.h>
#include <levelwidgets/host/files/whole_file.h>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace levelwidgets {

namespace {

constexpr std::size_t kMostAtOnce = 1 << 20;

#ifdef _WIN32

using SystemState = struct _stat64;
int OpenForReading(const std::filesystem::path& path) {
  // A folder cannot be opened, which would be reported as a lack of rights.
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored)) return errno = EISDIR, -1;
  return ::_wopen(path.c_str(), _O_RDONLY | _O_BINARY | _O_NOINHERIT);
}
int GetState(int file, SystemState& state) { return ::_fstat64(file, &state); }
int ReadSome(int file, char* to, std::size_t count) {
  return ::_read(file, to, static_cast<unsigned>(std::min(count, kMostAtOnce)));
}
void CloseReadable(int file) { ::_close(file); }
bool IsFolder(const SystemState& state) { return (state.st_mode & _S_IFMT) == _S_IFDIR; }
bool IsOrdinary(const SystemState& state) { return (state.st_mode & _S_IFMT) == _S_IFREG; }
std::int64_t ModifiedTime(const SystemState& state) { return state.st_mtime; }

#else

using SystemState = struct stat;
// Without O_NONBLOCK a pipe is waited for, without O_NOCTTY a terminal becomes this program's own.
int OpenForReading(const std::filesystem::path& path) {
  return ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}
int GetState(int file, SystemState& state) { return ::fstat(file, &state); }
ssize_t ReadSome(int file, char* to, std::size_t count) {
  return ::read(file, to, std::min(count, kMostAtOnce));
}
void CloseReadable(int file) { ::close(file); }
bool IsFolder(const SystemState& state) { return S_ISDIR(state.st_mode); }
bool IsOrdinary(const SystemState& state) { return S_ISREG(state.st_mode); }
std::int64_t ModifiedTime(const SystemState& state) {
  return std::int64_t{state.st_mtim.tv_sec} * 1'000'000'000 + state.st_mtim.tv_nsec;
}

#endif

class RealReadableFiles final : public ReadableFiles {
 public:
  File Open(const Path& path) override {
    for (;;) {
      const File file = OpenForReading(path);
      if (file >= 0) return file;
      if (errno != EINTR) ThrowErrno();
    }
  }

  State StateOf(File file) override {
    SystemState state{};
    if (GetState(file, state) != 0) ThrowErrno();
    const Kind kind = IsFolder(state) ? Kind::kFolder : IsOrdinary(state) ? Kind::kOrdinary : Kind::kOther;
    return {kind, static_cast<std::uint64_t>(state.st_size), ModifiedTime(state)};
  }

  std::size_t Read(File file, char* to, std::size_t count) override {
    for (;;) {
      const auto read = ReadSome(file, to, count);
      if (read >= 0) return static_cast<std::size_t>(read);
      if (errno != EINTR) ThrowErrno();
    }
  }

  void Close(File file) noexcept override { CloseReadable(file); }
};

}  // namespace

ReadableFiles& SystemReadableFiles() {
  static RealReadableFiles files;
  return files;
}

}  // namespace levelwidgets
