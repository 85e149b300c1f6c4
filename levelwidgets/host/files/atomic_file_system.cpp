#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <system_error>

#include <levelwidgets/host/files/atomic_file.h>
#include <levelwidgets/host/files/throw_errno.h>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace levelwidgets {

namespace {

namespace fs = std::filesystem;

// --- The few calls that have other names on Windows --------------------------------------------------

#ifdef _WIN32

int OpenNew(const fs::path& path) {
  return ::_wopen(path.c_str(), _O_CREAT | _O_EXCL | _O_WRONLY | _O_BINARY | _O_NOINHERIT,
                  _S_IREAD | _S_IWRITE);
}
int WriteSome(int file, std::string_view text) {
  constexpr std::size_t kMost = 1 << 20;
  return ::_write(file, text.data(), static_cast<unsigned>(std::min(text.size(), kMost)));
}
int FlushToDisk(int file) { return ::_commit(file); }
int CloseFile(int file) { return ::_close(file); }
bool MayWrite(const fs::path& path) { return ::_waccess(path.c_str(), 2) == 0; }
void CopyOwner(const fs::path&, const fs::path&) {}
// A renaming is in the file system's log: there is nothing to flush.
void FlushEntries(const fs::path&) {}

#else

int OpenNew(const fs::path& path) {
  return ::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666);
}
ssize_t WriteSome(int file, std::string_view text) { return ::write(file, text.data(), text.size()); }
int FlushToDisk(int file) { return ::fsync(file); }
int CloseFile(int file) { return ::close(file); }
bool MayWrite(const fs::path& path) { return ::access(path.c_str(), W_OK) == 0; }

// Only the administrator may give files away.
void CopyOwner(const fs::path& from, const fs::path& to) {
  struct stat old {};
  if (::stat(from.c_str(), &old) == 0 && ::chown(to.c_str(), old.st_uid, old.st_gid) != 0) errno = 0;
}

void FlushEntries(const fs::path& folder) {
  const int file = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (file < 0) ThrowErrno();
  const int result = ::fsync(file);
  const int reason = errno;
  ::close(file);
  errno = reason;
  if (result != 0) ThrowErrno();
}

#endif

// --- All systems ---------------------------------------------------------------------------------------

class RealFiles final : public FileSystem {
 public:
  Path Target(const Path& path) override {
    constexpr int kMostLinks = 40;
    Path target = path;
    for (int links = 0; fs::is_symlink(fs::symlink_status(target)); ++links) {
      if (links == kMostLinks)
        throw std::system_error(std::make_error_code(std::errc::too_many_symbolic_link_levels));
      target = target.parent_path() / fs::read_symlink(target);
    }
    return target;
  }

  bool CheckExisting(const Path& path) override {
    const fs::file_status status = fs::status(path);
    if (!fs::exists(status)) return false;
    if (fs::is_directory(status)) throw std::system_error(std::make_error_code(std::errc::is_a_directory));
    if (!fs::is_regular_file(status)) {
      throw std::system_error(std::make_error_code(std::errc::operation_not_supported));
    }
    if (!MayWrite(path)) ThrowErrno();
    return true;
  }

  std::optional<File> Create(const Path& path) override {
    const File file = OpenNew(path);
    if (file >= 0) return file;
    if (errno == EEXIST) return std::nullopt;
    ThrowErrno();
  }

  void CopyPermissions(const Path& from, const Path& to) override {
    CopyOwner(from, to);
    fs::permissions(to, fs::status(from).permissions());
  }

  std::size_t Write(File file, std::string_view text) override {
    const auto written = WriteSome(file, text);
    if (written < 0) ThrowErrno();
    return static_cast<std::size_t>(written);
  }

  void Flush(File file) override {
    if (FlushToDisk(file) != 0) ThrowErrno();
  }
  void Close(File file) override {
    if (CloseFile(file) != 0) ThrowErrno();
  }
  void Rename(const Path& from, const Path& to) override { fs::rename(from, to); }
  void FlushFolder(const Path& folder) override { FlushEntries(folder); }
  void CloseQuietly(File file) noexcept override { CloseFile(file); }
  void Remove(const Path& path) noexcept override {
    std::error_code ignored;
    fs::remove(path, ignored);
  }
};

}  // namespace

std::filesystem::path PathOf(std::string_view utf8) {
  if (utf8.find('\0') != std::string_view::npos) {
    throw std::system_error(std::make_error_code(std::errc::invalid_argument), "a path has no NUL character");
  }
  return std::u8string(utf8.begin(), utf8.end());
}

std::string TextOfPath(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

FileSystem& SystemFiles() {
  static RealFiles files;
  return files;
}

}  // namespace levelwidgets
