#pragma once

#include <levelwidgets/platform/screen.h>

namespace levelwidgets::win32 {

// The primary screen.
class Win32Screen final : public ScreenApi {
 public:
  PixelSize Size() override;
  float TwipsPerPixelX() override;
  float TwipsPerPixelY() override;
};

}  // namespace levelwidgets::win32
