#include <levelwidgets/platform/memory/desktop.h>
#include <levelwidgets/testing/driver.h>

namespace levelwidgets::testing {

std::shared_ptr<DesktopDriver> TestDriver() { return std::make_shared<memory::Desktop>(); }

std::string_view PlatformName() { return "memory"; }

std::shared_ptr<DesktopDriver> TestDriverWithCodePage(int number) {
  return std::make_shared<memory::Desktop>(memory::DesktopOptions{.code_page = number});
}

std::shared_ptr<DesktopDriver> TestDriverInLocale(std::string_view name) {
  return std::make_shared<memory::Desktop>(memory::DesktopOptions{.locale = std::string(name)});
}

std::vector<std::string_view> TestLocales() { return memory::LocaleNames(); }

}  // namespace levelwidgets::testing
