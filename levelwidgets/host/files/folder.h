// What a folder has in it, as a question for a file shows it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace levelwidgets {

// Whether what `path` leads to is `folder` itself, or in it or below, wherever symbolic links lead to; false
// for what does not exist. "" is the current folder.
bool IsInFolder(const std::filesystem::path& folder, const std::filesystem::path& path);

// Whether the whole name is as the pattern says: "*" is any text, "?" any character of one byte. Capital and
// small letters of ASCII are the same.
bool MatchesPattern(std::string_view name, std::string_view pattern);

struct FolderEntry {
  std::string name;  // UTF-8
  bool is_folder = false;
  friend bool operator==(const FolderEntry&, const FolderEntry&) = default;
};

inline constexpr std::size_t kMostEntries = 10'000;

// The folders in `folder`, then its ordinary files whose names match one of `patterns` (all where there are
// none), each in the order of their names. What begins with "." is left out, and what leads out of `root`
// unless that is "". No more than `most`; nothing of a folder that cannot be read.
std::vector<FolderEntry> EntriesOf(const std::filesystem::path& folder,
                                   const std::vector<std::string>& patterns,
                                   const std::filesystem::path& root = {}, std::size_t most = kMostEntries);

}  // namespace levelwidgets
