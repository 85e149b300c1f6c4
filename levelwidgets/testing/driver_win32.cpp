#include <levelwidgets/platform/win32/win32_driver.h>
#include <levelwidgets/platform/win32/win32_platform.h>
#include <levelwidgets/testing/driver.h>

namespace levelwidgets::testing {

std::shared_ptr<DesktopDriver> TestDriver() {
  static win32::Win32Platform platform;
  static const auto driver = std::make_shared<win32::Win32Driver>(platform);
  return driver;
}

std::shared_ptr<DesktopDriver> TestDriverWithCodePage(int) { return nullptr; }

bool SystemActivatesFormsFirst() { return true; }

}  // namespace levelwidgets::testing
