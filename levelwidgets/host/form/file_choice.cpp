#include <levelwidgets/host/form/file_choice.h>

#include <system_error>

#include <levelwidgets/host/files/atomic_file.h>

namespace levelwidgets {

namespace {

namespace fs = std::filesystem;

constexpr char kAbove[] = "..";

fs::path Canonical(const fs::path& folder) {
  std::error_code missing;
  return fs::canonical(folder.empty() ? "." : folder, missing);
}

bool IsFolder(const fs::path& path) {
  std::error_code missing;
  return fs::is_directory(path, missing);
}

FileChoice::Outcome Refused(std::string reason) {
  return {.kind = FileChoice::Kind::kRefused, .reason = std::move(reason)};
}

}  // namespace

FileChoice::FileChoice(Options options) : options_(std::move(options)) {
  if (!options_.root.empty()) options_.root = Canonical(options_.root);
  const bool usable = IsFolder(Canonical(options_.folder)) && !IsOutside(Canonical(options_.folder));
  Enter(Canonical(usable ? options_.folder : options_.root));
}

void FileChoice::Enter(const fs::path& folder) {
  folder_ = folder;
  entries_ = EntriesOf(folder_, options_.patterns, options_.root);
  if (folder_ != options_.root && folder_.has_relative_path()) {
    entries_.insert(entries_.begin(), {kAbove, true});
  }
}

bool FileChoice::IsOutside(const fs::path& path) const {
  return !options_.root.empty() && !IsInFolder(options_.root, path);
}

FileChoice::Outcome FileChoice::Give(std::string_view name) {
  const std::size_t begin = name.find_first_not_of(' ');
  if (begin == std::string_view::npos) return {};
  const std::string given(name.substr(begin, name.find_last_not_of(' ') + 1 - begin));
  fs::path path;
  try {
    path = folder_ / PathOf(given);
  } catch (const std::system_error&) {
    return Refused("\"" + given + "\" is no name for a file");
  }
  if (!IsFolder(path)) return GiveFile(path, given);
  if (IsOutside(path)) return Refused("\"" + given + "\" is outside the folder to choose from");
  Enter(Canonical(path));
  return {.kind = Kind::kEntered};
}

FileChoice::Outcome FileChoice::GiveFile(const fs::path& path, const std::string& name) const {
  std::error_code missing;
  const bool exists = fs::exists(path, missing);
  const fs::path folder = Canonical(path.parent_path());
  if (folder.empty()) return Refused("There is no folder for \"" + name + "\"");
  if (IsOutside(exists ? path : folder)) {
    return Refused("\"" + name + "\" is outside the folder to choose from");
  }
  if (exists && !fs::is_regular_file(path, missing)) return Refused("\"" + name + "\" is no ordinary file");
  if (!exists && (!options_.to_save || fs::is_symlink(fs::symlink_status(path, missing)))) {
    return Refused("There is no file \"" + name + "\" in " + TextOfPath(folder_));
  }
  return {.kind = options_.to_save && exists ? Kind::kExists : Kind::kChosen,
          .path = folder / path.filename()};
}

}  // namespace levelwidgets
