// A question for a file, to open or to save.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <levelwidgets/host/form/form.h>

namespace levelwidgets {

// All texts are UTF-8.
struct FileQuestion {
  bool to_save = false;     // the file need not exist; one that does is replaced only when the person says so
  std::string title = {};   // "Open" or "Save as" where it is ""
  std::string folder = {};  // where it begins; "" for the current folder
  std::string name = {};    // that is proposed
  std::vector<std::string> patterns = {};  // of the files that are shown, "*.toml"; none for all
  std::string root = {};                   // only files in this folder or below count; "" for no such limit
};

// Gets the path of the file, in UTF-8, or nothing when the person gives none.
using FileAnswer = std::function<void(const std::optional<std::string>& path)>;

// Asks, and disables the windows of `others` until it is answered. `on_answered`, unless it is null, is
// called once, on a later turn of the loop. The question is the system's own where the platform has one and
// there is no `root`: null is returned then. Elsewhere it is a form, shown in the middle of the screen, which
// lasts as long as somebody holds it: txtName has the name, lbl1 and so on the files, cmdOK and cmdCancel end
// it.
std::shared_ptr<Form> AskForFile(Platform& platform, const FileQuestion& question,
                                 const std::vector<std::shared_ptr<Form>>& others, FileAnswer on_answered);

}  // namespace levelwidgets
