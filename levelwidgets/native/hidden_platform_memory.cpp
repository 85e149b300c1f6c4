#include <levelwidgets/native/hidden_platform.h>
#include <levelwidgets/platform/memory/desktop.h>

namespace levelwidgets {

std::unique_ptr<Platform> MakeHiddenPlatform(const std::string& locale) {
  return std::make_unique<memory::Desktop>(memory::DesktopOptions{.locale = locale});
}

}  // namespace levelwidgets
