#include <levelwidgets/platform/memory/desktop.h>
#include <levelwidgets/testing/driver.h>

namespace levelwidgets::testing {

std::shared_ptr<DesktopDriver> TestDriver() { return std::make_shared<memory::Desktop>(); }

std::string_view PlatformName() { return "memory"; }

std::shared_ptr<DesktopDriver> TestDriverWithCodePage(int number) {
  return std::make_shared<memory::Desktop>(memory::DesktopOptions{.code_page = number});
}

}  // namespace levelwidgets::testing
