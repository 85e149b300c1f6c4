#include <levelwidgets/platform/win32/win32_driver.h>
#include <levelwidgets/platform/win32/win32_platform.h>
#include <levelwidgets/testing/driver.h>
#include <levelwidgets/testing/hand_moved_driver.h>
#include <levelwidgets/testing/looks.h>

namespace levelwidgets::testing {

std::shared_ptr<DesktopDriver> TestDriver() {
  static win32::Win32Platform platform(
      [](ClockApi& system) { return std::make_unique<HandMovedClock>(system); });
  static const auto driver = std::make_shared<HandMovedDriver>(platform);
  return driver;
}

std::shared_ptr<DesktopDriver> RealTimeDriver() {
  static win32::Win32Platform platform;
  static const auto driver = std::make_shared<win32::Win32Driver>(platform);
  return driver;
}

std::string_view PlatformName() { return "system"; }

std::shared_ptr<DesktopDriver> TestDriverWithCodePage(int) { return nullptr; }

std::shared_ptr<DesktopDriver> TestDriverInLocale(std::string_view) { return nullptr; }

std::vector<std::string_view> TestLocales() { return {""}; }

std::shared_ptr<DesktopDriver> TestDriverOf(const DesktopLook&) { return TestDriver(); }

std::vector<std::string_view> TestPalettes() { return {""}; }

}  // namespace levelwidgets::testing
