// How a hand moves the pointer, where a driver sets it down at once.
#pragma once

#include <levelwidgets/platform/driver.h>

namespace levelwidgets {

// Moves the pointer to `screen`. On its way from a window that keeps it captured while it is over that
// window, a hand's pointer moves more than once, and such a window relies on it: it takes the first move for
// one over itself, and gives up the capture at the second. So a pointer that jumps out of one arrives in
// three moves: there, one pixel farther, and back. Without them the next press would be the former window's.
// `windows` are those of the driver's platform.
void MoveByHand(DesktopDriver& person, WindowApi& windows, PixelPoint screen);

}  // namespace levelwidgets
