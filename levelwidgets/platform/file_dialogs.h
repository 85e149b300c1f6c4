// The system's own questions for a file, where the system has them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <levelwidgets/platform/platform.h>

namespace levelwidgets {

// All texts are UTF-8.
struct FileDialog {
  WindowHandle owner = {};                 // takes no input until the question is answered
  std::string title = {};                  // "" for the system's own
  std::string folder = {};                 // where it begins
  std::string name = {};                   // that is proposed
  std::vector<std::string> patterns = {};  // of the names that are shown, "*.txt"; none for all
};

class FileDialogApi {
 public:
  virtual ~FileDialogApi() = default;
  // Asks for a file that exists. Returns its path, or nothing when the person gives none. The system's loop
  // runs meanwhile, with messages, posted calls and ticks; what a handler throws is thrown when the question
  // is answered.
  virtual std::optional<std::string> GetOpenFileNameA(const FileDialog& dialog) = 0;
  // The same for a file to write; asks before one that exists is chosen.
  virtual std::optional<std::string> GetSaveFileNameA(const FileDialog& dialog) = 0;
};

// What a platform is besides where its system has such questions. The desktop in memory has none, nor has a
// platform that records calls: there a form of ours asks (AskForFile).
class FileDialogSource {
 public:
  virtual FileDialogApi& FileDialogs() = 0;

 protected:
  ~FileDialogSource() = default;
};

// Null where the platform has none.
inline FileDialogApi* FileDialogsOf(Platform& platform) {
  auto* const source = dynamic_cast<FileDialogSource*>(&platform);
  return source ? &source->FileDialogs() : nullptr;
}

}  // namespace levelwidgets
