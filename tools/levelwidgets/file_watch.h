// Notices when the files that a form is made of have changed. Not for use outside this folder.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <utility>

namespace levelwidgets {

// Of a form file, and of the scripts and the other form files in its folder.
class FileWatch {
 public:
  // Changes count from now on.
  explicit FileWatch(const std::filesystem::path& form);

  // Whether the files have changed, and have then stayed as they are since the last call: a file that is
  // being written, or is for a moment not there, is left in peace.
  bool HasChanged();

 private:
  using Stamp = std::pair<std::filesystem::file_time_type, std::uintmax_t>;
  using Stamps = std::map<std::filesystem::path, Stamp>;
  Stamps Look() const;

  std::filesystem::path form_;
  Stamps seen_;
  bool changing_ = false;
};

}  // namespace levelwidgets
