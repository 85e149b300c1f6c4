#include <levelwidgets/controls/tabstrip/flat_tab_strip_layout.h>

#include <algorithm>

namespace levelwidgets {

namespace {

constexpr int kGap = 5;  // pixels between tabs

}  // namespace

PixelRect TabStripLayout::Frame() const {
  PixelRect frame = of_.surface;
  if (of_.tabs_at_bottom) {
    frame.bottom = of_.surface.bottom - of_.band_height + 1;
  } else {
    frame.top = of_.surface.top + of_.band_height - 1;
  }
  return frame;
}

PixelRect TabStripLayout::Tab(int tab) const {
  const std::int64_t step = std::int64_t{of_.tab_width} + kGap;
  const std::int64_t left = step * (tab - 1) + of_.surface.left;
  PixelRect rect{WithinReach(left), of_.surface.top, WithinReach(left + of_.tab_width), of_.band_height};
  if (of_.tabs_at_bottom) {
    rect.top = of_.surface.bottom - of_.band_height;
    rect.bottom = of_.surface.bottom;
  }
  return rect;
}

PixelRect TabStripLayout::Interior(int tab, bool selected) const {
  PixelRect rect = Tab(tab);
  ++rect.left;
  --rect.right;
  if (of_.tabs_at_bottom || !selected) --rect.bottom;
  if (!of_.tabs_at_bottom || !selected) ++rect.top;
  return rect;
}

PixelRect TabStripLayout::FocusFrame(PixelRect interior, int caption_width) {
  const double middle = (interior.right - interior.left) / 2.0 + interior.left;
  const int left = RoundToWhole(middle - caption_width / 2.0 - 1);
  return {left, interior.top + 1, WithinReach(std::int64_t{left} + caption_width + 2), interior.bottom};
}

bool TabStripLayout::CanSee(int tab) const {
  const PixelRect rect = Tab(tab);
  // The interior of a tab without width is filled one pixel to either side of it.
  const int first = std::min(rect.left, rect.right - 1);
  const int end = std::max(rect.left + 1, rect.right);
  return first < of_.surface.right && end > of_.surface.left;
}

int TabPressed(TwipPoint at, const TabPressMeasures& measures) {
  // A band at the top, whatever the orientation.
  if (measures.band_height <= IntegerDivide(at.y.value, measures.twips_per_pixel_y)) return 0;
  // One gap, not one for each tab before.
  const double gap = double{kGap} * measures.twips_per_pixel_x;
  for (int tab = 1; tab <= measures.tab_count; ++tab) {
    if (double{measures.tab_width.value} * tab + gap >= at.x.value) return tab;
  }
  return 0;
}

}  // namespace levelwidgets
