// Where the parts of a tab strip are: pure geometry, without window or state.
#pragma once

#include <levelwidgets/frame/reach.h>
#include <levelwidgets/platform/types.h>

namespace levelwidgets {

// All in pixels. Tabs are numbered from 1. A tab width may be negative: tabs then run to the left, their
// edges swapped, and the drawing operations make of that what they make of it.
class TabStripLayout {
 public:
  struct Measures {
    PixelRect surface;
    int band_height = 0;
    int tab_width = 0;
    bool tabs_at_bottom = false;
  };
  explicit TabStripLayout(const Measures& measures) : of_(measures) {}

  // The page's frame. It shares its line on the band's side with the band.
  PixelRect Frame() const;
  PixelRect Tab(int tab) const;
  // What of a tab is filled. That of the selected one reaches over the frame's line and opens it to the page.
  PixelRect Interior(int tab, bool selected) const;
  // Around a caption `caption_width` wide, centred in `interior`.
  static PixelRect FocusFrame(PixelRect interior, int caption_width);
  // Whether any column of the tab is on the surface. The first tab that is not ends the row: each later one
  // is farther out.
  bool CanSee(int tab) const;

 private:
  Measures of_;
};

// What a press looks at, in the units in which it does.
struct TabPressMeasures {
  Twips tab_width;
  int tab_count = 0;
  int band_height = 0;  // pixels
  float twips_per_pixel_x = 0;
  float twips_per_pixel_y = 0;
};

// The tab that a press at `at` chooses; 0 for none.
int TabPressed(TwipPoint at, const TabPressMeasures& measures);

}  // namespace levelwidgets
