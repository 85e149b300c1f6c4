// The screen's size and its twips per pixel.
#pragma once

#include <levelwidgets/platform/types.h>

namespace levelwidgets {

class ScreenApi {
 public:
  virtual ~ScreenApi() = default;

  virtual PixelSize Size() = 0;
  // 1440 divided by the dots per inch, 15 at 96. The two differ on displays with oblong pixels.
  virtual float TwipsPerPixelX() = 0;
  virtual float TwipsPerPixelY() = 0;
};

}  // namespace levelwidgets
