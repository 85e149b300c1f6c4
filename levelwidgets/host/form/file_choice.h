// How a person finds a file: the folder that is looked at, and what a name that is given there means.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <levelwidgets/host/files/folder.h>

namespace levelwidgets {

// No window shows it here. A folder that is looked at may change at any time: it is read when it is entered.
class FileChoice {
 public:
  struct Options {
    bool to_save = false;                    // the file need not exist
    std::filesystem::path folder = {};       // where it begins; "" is the current folder
    std::vector<std::string> patterns = {};  // of the files that are shown; none for all
    std::filesystem::path root = {};         // nothing outside this folder counts; "" for no such limit
  };
  // Begins in `root` when `folder` is outside it or does not exist.
  explicit FileChoice(Options options);

  // Without symbolic links in it.
  const std::filesystem::path& Folder() const { return folder_; }
  // The folder above first, as "..", where there is one to go to.
  const std::vector<FolderEntry>& Entries() const { return entries_; }

  enum class Kind {
    kNothing,  // no name
    kEntered,  // it is a folder, which is looked at now
    kChosen,   // `path` is the answer
    kExists,   // `path` would be replaced
    kRefused   // `reason` says why
  };
  struct Outcome {
    Kind kind = Kind::kNothing;
    std::filesystem::path path = {};
    std::string reason = {};
  };
  // What the name, or path, of a file or folder (UTF-8) means.
  Outcome Give(std::string_view name);

 private:
  void Enter(const std::filesystem::path& folder);
  Outcome GiveFile(const std::filesystem::path& path, const std::string& name) const;
  bool IsOutside(const std::filesystem::path& path) const;

  Options options_;
  std::filesystem::path folder_;
  std::vector<FolderEntry> entries_;
};

}  // namespace levelwidgets
