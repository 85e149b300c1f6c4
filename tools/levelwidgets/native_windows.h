// Where the command `show` shows forms: all that differs between systems. Not for use outside this folder.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include <levelwidgets/platform/platform.h>

namespace levelwidgets {

struct NativeWindowOptions {
  // Screen pixels that a form's pixel is wide; the display's own when not given.
  std::optional<int> scale;
  // One of the names of palettes, where the colours are not the system's own.
  std::string palette = "light";
};

class NativeWindows {
 public:
  // Null where there is no display; `why` is then what the system says.
  static std::unique_ptr<NativeWindows> Open(const NativeWindowOptions& options, std::string& why);
  virtual ~NativeWindows() = default;

  // Forms that are made on it are in native windows once they are shown.
  virtual Platform& GetPlatform() = 0;
  // Until no form is to be seen any more, or the program is told to end. An exception from a handler passes
  // through.
  virtual void Run() = 0;
};

}  // namespace levelwidgets
