#include <tools/levelwidgets/file_watch.h>

#include <string_view>

namespace levelwidgets {

namespace {

bool MakesForms(const std::filesystem::path& file) {
  const std::string name = file.filename().string();
  return name.ends_with(".lua") || name.ends_with(".form.toml");
}

}  // namespace

FileWatch::FileWatch(const std::filesystem::path& form) : form_(form), seen_(Look()) {}

// What disappears meanwhile is not there.
FileWatch::Stamps FileWatch::Look() const {
  Stamps stamps;
  const auto note = [&](const std::filesystem::path& file) {
    std::error_code failed;
    const auto time = std::filesystem::last_write_time(file, failed);
    if (failed) return;
    const auto size = std::filesystem::file_size(file, failed);
    if (!failed) stamps[file.filename()] = {time, size};
  };
  note(form_);
  const std::filesystem::path folder = form_.has_parent_path() ? form_.parent_path() : ".";
  std::error_code failed;
  for (std::filesystem::directory_iterator file(folder, failed), end; !failed && file != end;
       file.increment(failed)) {
    if (MakesForms(file->path())) note(file->path());
  }
  return stamps;
}

bool FileWatch::HasChanged() {
  Stamps now = Look();
  if (now != seen_) {
    seen_ = std::move(now);
    changing_ = true;
    return false;
  }
  return std::exchange(changing_, false);
}

}  // namespace levelwidgets
