#include <levelwidgets/host/atomic_file.h>

#include <system_error>

namespace levelwidgets {

namespace {

struct NewFile {
  std::filesystem::path path;
  FileSystem::File file;
};

// The names of files that a crash has left are passed over.
NewFile CreateBeside(FileSystem& files, const std::filesystem::path& path) {
  constexpr int kAttempts = 1000;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    std::filesystem::path beside = path;
    beside += ".new" + std::to_string(attempt);
    if (const auto file = files.Create(beside)) return {std::move(beside), *file};
  }
  throw std::system_error(std::make_error_code(std::errc::file_exists));
}

// A new file that is removed again unless it was renamed.
class Replacement {
 public:
  Replacement(FileSystem& files, const std::filesystem::path& path)
      : files_(files), target_(path), new_(CreateBeside(files, path)) {}
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;
  ~Replacement() {
    if (open_) files_.CloseQuietly(new_.file);
    if (!renamed_) files_.Remove(new_.path);
  }

  void Fill(std::string_view text) {
    files_.Write(new_.file, text);
    files_.Flush(new_.file);
    open_ = false;  // also when closing fails
    files_.Close(new_.file);
  }
  void TakePermissions() { files_.CopyPermissions(target_, new_.path); }
  void Rename() {
    files_.Rename(new_.path, target_);
    renamed_ = true;
  }

 private:
  FileSystem& files_;
  const std::filesystem::path& target_;
  NewFile new_;
  bool open_ = true;
  bool renamed_ = false;
};

}  // namespace

void WriteFileAtomically(FileSystem& files, const std::filesystem::path& path, std::string_view text) {
  const std::filesystem::path target = files.Target(path);
  const bool exists = files.CheckExisting(target);
  Replacement replacement(files, target);
  if (exists) replacement.TakePermissions();
  replacement.Fill(text);
  replacement.Rename();
  try {
    files.FlushFolder(target.parent_path());
  } catch (const std::system_error&) {
    // Whichever of the two the disk now has, it is whole.
  }
}

}  // namespace levelwidgets
