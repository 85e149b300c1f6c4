#include <levelwidgets/host/form/open_panel.h>

#include <algorithm>

namespace levelwidgets {

std::optional<PixelRect> OpenPanelRect(DesktopDriver& desktop, const Control& control) {
  const std::vector<TopLevelWindow> windows = desktop.TopLevelWindows();
  const auto panel = std::ranges::find_if(
      windows, [&](const TopLevelWindow& window) { return control.Holds(window.handle); });
  if (panel == windows.end()) return {};
  return panel->rect;
}

}  // namespace levelwidgets
