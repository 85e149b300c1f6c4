// The desktop that the tests run on: the one in memory, or Windows.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include <levelwidgets/platform/driver.h>

namespace levelwidgets::testing {

// A fresh desktop in memory for each test; on Windows the one there is. Time passes in Advance only.
std::shared_ptr<DesktopDriver> TestDriver();
// Windows on the system's clock. Tests call it that need the system's own timers and loops. The desktop in
// memory does not define it.
std::shared_ptr<DesktopDriver> RealTimeDriver();

// "memory" or "system".
std::string_view PlatformName();

// A desktop with another code page; null where the system's is the only one.
std::shared_ptr<DesktopDriver> TestDriverWithCodePage(int number);

// A desktop in another locale, one of TestLocales(); null where the user's is the only one.
std::shared_ptr<DesktopDriver> TestDriverInLocale(std::string_view name);
// "" alone where the user's is the only one.
std::vector<std::string_view> TestLocales();

}  // namespace levelwidgets::testing
