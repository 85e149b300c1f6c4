#include <levelwidgets/host/files/folder.h>

#include <algorithm>

#include <levelwidgets/host/files/atomic_file.h>

namespace levelwidgets {

namespace {

namespace fs = std::filesystem;

char SmallLetter(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

bool IsInFolder(const fs::path& folder, const fs::path& path) {
  std::error_code missing;
  const auto real_folder = fs::canonical(folder.empty() ? "." : folder, missing);
  if (missing) return false;
  const auto real_path = fs::canonical(path.empty() ? "." : path, missing);
  if (missing) return false;
  return std::mismatch(real_folder.begin(), real_folder.end(), real_path.begin(), real_path.end()).first ==
         real_folder.end();
}

// After a "*" that does not lead to a match it goes on one character later; only the last "*" can matter.
bool MatchesPattern(std::string_view name, std::string_view pattern) {
  constexpr std::size_t kNone = std::string_view::npos;
  std::size_t at = 0, in_pattern = 0, star = kNone, after_star = 0;
  while (at < name.size()) {
    if (in_pattern < pattern.size() && pattern[in_pattern] == '*') {
      star = in_pattern++;
      after_star = at;
    } else if (in_pattern < pattern.size() &&
               (pattern[in_pattern] == '?' || SmallLetter(pattern[in_pattern]) == SmallLetter(name[at]))) {
      ++at;
      ++in_pattern;
    } else if (star != kNone) {
      in_pattern = star + 1;
      at = ++after_star;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', in_pattern) == kNone;
}

std::vector<FolderEntry> EntriesOf(const fs::path& folder, const std::vector<std::string>& patterns,
                                   const fs::path& root, std::size_t most) {
  std::vector<FolderEntry> entries;
  std::error_code error;
  const auto matches = [&](const std::string& name) {
    return patterns.empty() ||
           std::ranges::any_of(patterns, [&](const auto& pattern) { return MatchesPattern(name, pattern); });
  };
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    std::error_code missing;
    FolderEntry found{TextOfPath(entry->path().filename()), entry->is_directory(missing)};
    if (found.name.starts_with('.')) continue;
    if (!found.is_folder && !(entry->is_regular_file(missing) && matches(found.name))) continue;
    if (!root.empty() && !IsInFolder(root, entry->path())) continue;
    entries.push_back(std::move(found));
    if (entries.size() == most) break;
  }
  std::ranges::sort(entries, [](const FolderEntry& a, const FolderEntry& b) {
    return a.is_folder != b.is_folder ? a.is_folder : a.name < b.name;
  });
  return entries;
}

}  // namespace levelwidgets
