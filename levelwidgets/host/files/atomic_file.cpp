#include <levelwidgets/host/files/atomic_file.h>

#include <system_error>

namespace levelwidgets {

namespace {

struct NewFile {
  std::filesystem::path path;
  FileSystem::File file;
};

// Makes a call again that a signal has interrupted.
template <typename Call>
auto Uninterrupted(Call call) {
  for (;;) {
    try {
      return call();
    } catch (const std::system_error& error) {
      if (error.code() != std::errc::interrupted) throw;
    }
  }
}

// The names of files that a crash has left are passed over.
NewFile CreateBeside(FileSystem& files, const std::filesystem::path& path) {
  constexpr int kAttempts = 1000;
  constexpr std::size_t kLongestName = 200;  // with what is added still one that file systems take
  const auto name = path.filename().native().substr(0, kLongestName);
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    std::filesystem::path beside = path.parent_path() / name;
    beside += ".new" + std::to_string(attempt);
    if (const auto file = Uninterrupted([&] { return files.Create(beside); })) {
      return {std::move(beside), *file};
    }
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
    while (!text.empty()) {
      text.remove_prefix(Uninterrupted([&] { return files_.Write(new_.file, text); }));
    }
    Uninterrupted([&] { files_.Flush(new_.file); });
    Close();
  }
  void TakePermissions() { files_.CopyPermissions(target_, new_.path); }
  void Rename() {
    files_.Rename(new_.path, target_);
    renamed_ = true;
  }

 private:
  // Whatever it fails with, the file is closed; what was interrupted had nothing left to write.
  void Close() {
    open_ = false;
    try {
      files_.Close(new_.file);
    } catch (const std::system_error& error) {
      if (error.code() != std::errc::interrupted) throw;
    }
  }

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
