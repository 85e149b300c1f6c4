// Windows that people see, on the system that a program runs on. The one place that chooses a platform.
#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include <levelwidgets/platform/driver.h>
#include <levelwidgets/platform/platform.h>

namespace levelwidgets {

struct NativeWindowOptions {
  // How many times as large as at 96 dots per inch forms are, 1 to 8; as the display itself wants it when not
  // given. Windows has a scale of its own.
  std::optional<double> scale = {};
  // One of the names of palettes, where the colours are not the system's own.
  std::string palette = "light";
};

// There is no display, or this build cannot show windows on it. The text is what the system says.
class NoDisplay : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The system's own windows on Windows; elsewhere those of a desktop in memory, which SDL shows. One at a
// time.
class NativeWindows {
 public:
  // Raises NoDisplay.
  static std::unique_ptr<NativeWindows> Open(const NativeWindowOptions& options = {});
  virtual ~NativeWindows() = default;

  // Forms that are made on it are in native windows once they are shown. They end before this.
  virtual Platform& GetPlatform() = 0;

  // Handles what happens until no form is shown any more, or somebody asks the program to end (0), or until
  // Quit (its status). An exception from a handler passes through.
  virtual int Run() = 0;

  // Does what a person does. On Windows it moves the system's own pointer; only one at a time.
  virtual std::shared_ptr<DesktopDriver> Driver() = 0;
};

}  // namespace levelwidgets
