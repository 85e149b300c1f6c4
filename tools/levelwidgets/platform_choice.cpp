#include <tools/levelwidgets/commands.h>

#ifdef _WIN32
#include <levelwidgets/platform/win32/win32_platform.h>
#else
#include <levelwidgets/platform/memory/desktop.h>
#endif

namespace levelwidgets {

std::unique_ptr<Platform> MakePlatform() {
#ifdef _WIN32
  return std::make_unique<win32::Win32Platform>();
#else
  return std::make_unique<memory::Desktop>();
#endif
}

}  // namespace levelwidgets
