#include <levelwidgets/native/hidden_platform.h>
#include <levelwidgets/platform/win32/win32_platform.h>

namespace levelwidgets {

std::unique_ptr<Platform> MakeHiddenPlatform(const std::string&) {
  return std::make_unique<win32::Win32Platform>();
}

}  // namespace levelwidgets
