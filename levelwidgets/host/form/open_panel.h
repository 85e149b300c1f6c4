// The panel that a control has dropped down.
#pragma once

#include <optional>

#include <levelwidgets/frame/control.h>
#include <levelwidgets/platform/driver.h>

namespace levelwidgets {

// Where the desktop shows it, in screen pixels; nothing while the control has no panel open.
std::optional<PixelRect> OpenPanelRect(DesktopDriver& desktop, const Control& control);

}  // namespace levelwidgets
