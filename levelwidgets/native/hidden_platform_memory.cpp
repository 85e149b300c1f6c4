#include <levelwidgets/native/hidden_platform.h>
#include <levelwidgets/platform/memory/desktop.h>

namespace levelwidgets {

std::unique_ptr<Platform> MakeHiddenPlatform() { return std::make_unique<memory::Desktop>(); }

}  // namespace levelwidgets
