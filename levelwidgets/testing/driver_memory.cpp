#include <levelwidgets/platform/memory/desktop.h>
#include <levelwidgets/testing/driver.h>

namespace levelwidgets::testing {

std::shared_ptr<DesktopDriver> TestDriver() { return std::make_shared<memory::Desktop>(); }

}  // namespace levelwidgets::testing
