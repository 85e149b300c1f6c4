// Where the panels that drop down from a control open.
#pragma once

#include <levelwidgets/frame/units.h>

namespace levelwidgets {

// The size of a pixel in twips. Lengths in twips become pixels by the library's integer division.
struct PixelTwips {
  float x = 15;
  float y = 15;
};

// The left top corner, in twips of the screen, of a list of `panel` twips that drops down from a control
// whose window is at `owner` (screen pixels), on a screen of `screen` twips that begins at (0, 0).
//
// It opens below the control, or above it when it would run off the bottom. A control that is wider than the
// list has it at its right edge, another one at its left edge; the right edge of the screen limits both, the
// left edge of the screen the second. Nothing limits it at the top. The test against the bottom takes the
// list's height by the horizontal size of a pixel, as the control always has.
TwipPoint PlaceDropDown(const PixelRect& owner, TwipSize panel, TwipSize screen, PixelTwips twips);

// The same for a panel of fixed size (keypad, month view), on the part `area` of the screen (pixels), that of
// a monitor.
//
// It opens below the control at its left edge, or above it at its right edge when it would run off the
// bottom. It is moved to the left where it would end at or beyond the right edge of the area (above: where
// the control ends beyond it), and above the control never begins to the left of the area.
TwipPoint PlacePanel(const PixelRect& owner, TwipSize panel, const PixelRect& area, PixelTwips twips);

}  // namespace levelwidgets
