// Writing a file so that a crash leaves either the old or the new one whole.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace levelwidgets {

// Paths in the API are UTF-8. Raises std::system_error for one with a NUL character, at which the system
// would cut it off.
std::filesystem::path PathOf(std::string_view utf8);
std::string TextOfPath(const std::filesystem::path& path);

// What such a write asks of the system. Each call but Remove and CloseQuietly throws std::system_error, and
// may throw it with EINTR when a signal has come in between: it is then made again, Close excepted.
class FileSystem {
 public:
  using Path = std::filesystem::path;
  using File = int;

  virtual ~FileSystem() = default;
  // What `path` leads to when it is a symbolic link; else `path`.
  virtual Path Target(const Path& path) = 0;
  // Whether there is a file. Refuses what is no ordinary file, or may not be written.
  virtual bool CheckExisting(const Path& path) = 0;
  // Nothing when there is a file of that name.
  virtual std::optional<File> Create(const Path& path) = 0;
  // And the owner, where that is allowed.
  virtual void CopyPermissions(const Path& from, const Path& to) = 0;
  // How many bytes of the text's beginning were written.
  virtual std::size_t Write(File file, std::string_view text) = 0;
  // To the disk itself.
  virtual void Flush(File file) = 0;
  virtual void Close(File file) = 0;
  virtual void Rename(const Path& from, const Path& to) = 0;
  // Makes a renaming in the folder last.
  virtual void FlushFolder(const Path& folder) = 0;
  virtual void CloseQuietly(File file) noexcept = 0;
  virtual void Remove(const Path& path) noexcept = 0;
};

FileSystem& SystemFiles();

// Writes a new file beside `path`, flushes it to disk and renames it over `path`. A symbolic link stays one,
// permissions stay those of the old file. Throws std::system_error; the old file is then untouched and the
// new one gone. Once the file is renamed nothing fails any more. What a crash leaves beside the file, its
// name and ".new0" for instance, disturbs no later write.
void WriteFileAtomically(FileSystem& files, const std::filesystem::path& path, std::string_view text);

}  // namespace levelwidgets
