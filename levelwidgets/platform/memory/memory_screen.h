// The screen of the desktop in memory.
#pragma once

#include <levelwidgets/platform/memory/window_tree.h>
#include <levelwidgets/platform/picture.h>
#include <levelwidgets/platform/screen.h>

namespace levelwidgets::memory {

class MemoryScreen final : public ScreenApi {
 public:
  MemoryScreen(PixelSize size, int dpi_x, int dpi_y) : size_(size), dpi_x_(dpi_x), dpi_y_(dpi_y) {}

  PixelSize Size() override { return size_; }
  float TwipsPerPixelX() override { return WholeTwipsPerPixel(dpi_x_); }
  float TwipsPerPixelY() override { return WholeTwipsPerPixel(dpi_y_); }

 private:
  PixelSize size_;
  int dpi_x_;
  int dpi_y_;
};

// What a person sees in `area`: the shown top-level windows in their order on `background`. Black
// outside the screen.
Picture ComposeScreen(WindowTree& tree, ColorRef background, PixelRect area);

}  // namespace levelwidgets::memory
