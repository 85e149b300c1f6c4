#include <levelwidgets/frame/error.h>
#include <levelwidgets/host/script/forms/own_desktop.h>

namespace levelwidgets {

ScriptDesktop MakeOwnDesktop(const DesktopSettings&) {
  throw Error(kInvalidCall, "LevelWidgets.Desktop", "There is no desktop in memory here");
}

}  // namespace levelwidgets
