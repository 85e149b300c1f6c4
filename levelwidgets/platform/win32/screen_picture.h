#pragma once

#include <levelwidgets/platform/picture.h>

namespace levelwidgets::win32 {

// What the screen shows now; black outside it.
Picture CaptureScreen(PixelRect screen);

}  // namespace levelwidgets::win32
