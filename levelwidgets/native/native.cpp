#include <levelwidgets/native/native.h>

#ifdef _WIN32
#include <levelwidgets/platform/win32/win32_driver.h>
#include <levelwidgets/platform/win32/win32_platform.h>
#else
#include <levelwidgets/platform/memory/desktop.h>
#endif

namespace levelwidgets {

#ifdef _WIN32

std::unique_ptr<Platform> MakePlatform() { return std::make_unique<win32::Win32Platform>(); }

std::shared_ptr<DesktopDriver> DriverOf(Platform& platform) {
  return std::make_shared<win32::Win32Driver>(dynamic_cast<win32::Win32Platform&>(platform));
}

#else

std::unique_ptr<Platform> MakePlatform() { return std::make_unique<memory::Desktop>(); }

// The desktop is its own driver, and belongs to the caller.
std::shared_ptr<DesktopDriver> DriverOf(Platform& platform) {
  return {std::shared_ptr<void>(), &dynamic_cast<memory::Desktop&>(platform)};
}

#endif

}  // namespace levelwidgets
