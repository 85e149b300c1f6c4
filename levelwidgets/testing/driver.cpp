#include <levelwidgets/testing/driver.h>

#ifdef _WIN32
#include <levelwidgets/platform/win32/win32_driver.h>
#include <levelwidgets/platform/win32/win32_platform.h>
#else
#include <levelwidgets/platform/memory/desktop.h>
#endif

namespace levelwidgets::testing {

#ifdef _WIN32

std::shared_ptr<DesktopDriver> TestDriver() {
  static win32::Win32Platform platform;
  static const auto driver = std::make_shared<win32::Win32Driver>(platform);
  return driver;
}

#else

std::shared_ptr<DesktopDriver> TestDriver() { return std::make_shared<memory::Desktop>(); }

#endif

}  // namespace levelwidgets::testing
