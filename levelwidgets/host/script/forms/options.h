// What a run of scripts is given.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <levelwidgets/host/script/lua/failure.h>
#include <levelwidgets/platform/driver.h>

namespace levelwidgets {

// The desktop in memory that scripts run on.
struct DesktopSettings {
  PixelSize size{1024, 768};
  int dpi = 96;
  std::optional<int> dpi_x = {};         // instead of `dpi`, across
  std::optional<int> dpi_y = {};         // and down
  std::vector<PixelRect> monitors = {};  // instead of `size`, the primary one first
  std::string locale = "en-US";
  std::optional<int> code_page = {};  // that of the locale where not given
  std::optional<Date> today = {};     // the desktop's own where not given
  std::string palette = "light";      // one of PaletteNames(); raises 5 for another
};

// What the scripts of forms that are not trusted may use, all of a run together.
inline constexpr std::size_t kScriptMemoryLimit = std::size_t{256} << 20;  // bytes, of Lua's values
inline constexpr std::chrono::milliseconds kPictureTimeLimit{
    10'000};  // where a script only prepares a picture

struct ScriptOptions {
  ScriptReport report = {};                     // to standard error when null
  Platform* platform = nullptr;                 // where forms are made
  std::shared_ptr<DesktopDriver> desktop = {};  // without a platform: as below; null for a desktop in memory
  bool trusted = false;  // the scripts of forms have all of Lua, as the user's own program does
  // The limits of scripts in sandboxes. What the library makes for them may make the process grow by four
  // times the memory limit, where the system reports its size. The time is the processor's; zero for no
  // limit.
  std::size_t memory_limit = kScriptMemoryLimit;
  std::chrono::milliseconds time_limit{0};
  // Called on a thread of its own, with a text for the user, when such a script does not end after its time
  // because it is in code that nothing interrupts (a search by a pattern that takes forever): to end the
  // process. Null for none.
  std::function<void(const std::string& text)> on_hang = {};
};

}  // namespace levelwidgets
