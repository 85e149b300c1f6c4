#include <levelwidgets/native/native_windows.h>

namespace levelwidgets {

std::unique_ptr<NativeWindows> NativeWindows::Open(const NativeWindowOptions&) {
  throw NoDisplay("this build has no native windows: it was made without SDL");
}

}  // namespace levelwidgets
