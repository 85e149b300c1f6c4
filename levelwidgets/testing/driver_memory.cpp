#include <levelwidgets/platform/memory/desktop.h>
#include <levelwidgets/testing/driver.h>
#include <levelwidgets/testing/looks.h>

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

std::shared_ptr<DesktopDriver> TestDriverOf(const DesktopLook& look) {
  return std::make_shared<memory::Desktop>(memory::DesktopOptions{
      .dpi_x = look.dots_per_inch.width,
      .dpi_y = look.dots_per_inch.height,
      .palette = memory::FindPalette(look.palette).value_or(memory::StandardPalette())});
}

std::vector<std::string_view> TestPalettes() {
  return {memory::PaletteNames().begin(), memory::PaletteNames().end()};
}

}  // namespace levelwidgets::testing
