// The screen of the desktop in memory.
#pragma once

#include <vector>

#include <levelwidgets/platform/picture.h>
#include <levelwidgets/platform/screen.h>

namespace levelwidgets::memory {

class WindowTree;

class MemoryScreen final : public ScreenApi {
 public:
  // The areas of the monitors, the primary one first, whose left top corner is (0, 0).
  MemoryScreen(std::vector<PixelRect> monitors, int dpi_x, int dpi_y)
      : monitors_(std::move(monitors)), dpi_x_(dpi_x), dpi_y_(dpi_y) {}

  // --- For the desktop -----------------------------------------------------------------------

  const std::vector<PixelRect>& Areas() const { return monitors_; }
  bool Contains(PixelPoint point) const;
  // Of the monitor that `point` is on, or else the nearest one.
  const PixelRect& AreaNear(PixelPoint point) const;
  // Of the monitor that has the largest part of `rect`, or else the nearest one.
  const PixelRect& AreaOf(const PixelRect& rect) const;

  // --- ScreenApi -----------------------------------------------------------------------------

  PixelSize Size() override { return {monitors_.front().width(), monitors_.front().height()}; }
  // Nothing is kept for the system: a work area is all of its monitor.
  std::vector<Monitor> Monitors() override;
  float TwipsPerPixelX() override { return WholeTwipsPerPixel(dpi_x_); }
  float TwipsPerPixelY() override { return WholeTwipsPerPixel(dpi_y_); }
  PixelSize DotsPerInch() override { return {dpi_x_, dpi_y_}; }

 private:
  std::vector<PixelRect> monitors_;
  int dpi_x_;
  int dpi_y_;
};

// What a person sees in `area`: the shown top-level windows in their order on `background`. Black
// where there is no monitor.
Picture ComposeScreen(WindowTree& tree, const MemoryScreen& screen, ColorRef background, PixelRect area);

}  // namespace levelwidgets::memory
