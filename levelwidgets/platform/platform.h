// The seam between the library and an operating system.
#pragma once

#include <levelwidgets/platform/clock.h>
#include <levelwidgets/platform/conversion.h>
#include <levelwidgets/platform/drawing.h>
#include <levelwidgets/platform/screen.h>
#include <levelwidgets/platform/window.h>

namespace levelwidgets {

// One part per service. A control reaches it through its site, never through a global. It outlives
// everything that was made on it.
class Platform {
 public:
  virtual ~Platform() = default;

  virtual DrawingApi& Drawing() = 0;
  virtual WindowApi& Windows() = 0;
  virtual ClockApi& Clock() = 0;
  virtual ScreenApi& Screen() = 0;
  virtual ConversionApi& Conversions() = 0;
};

}  // namespace levelwidgets
