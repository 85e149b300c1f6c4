#pragma once

#include <levelwidgets/platform/screen.h>

namespace levelwidgets::win32 {

// Size and resolution are those of the primary monitor.
class Win32Screen final : public ScreenApi {
 public:
  PixelSize Size() override;
  std::vector<Monitor> Monitors() override;
  float TwipsPerPixelX() override;
  float TwipsPerPixelY() override;
  PixelSize DotsPerInch() override;
};

}  // namespace levelwidgets::win32
