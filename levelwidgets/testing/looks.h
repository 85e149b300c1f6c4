// Desktops of other colours and resolutions.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <levelwidgets/platform/driver.h>

namespace levelwidgets::testing {

struct DesktopLook {
  std::string palette;  // one of TestPalettes()
  PixelSize dots_per_inch{96, 96};
};

// A fresh desktop in memory of that look; on Windows the one there is, as it looks.
std::shared_ptr<DesktopDriver> TestDriverOf(const DesktopLook& look);

// "" alone where the user's is the only one.
std::vector<std::string_view> TestPalettes();

}  // namespace levelwidgets::testing
