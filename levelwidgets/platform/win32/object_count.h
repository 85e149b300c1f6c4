#pragma once

#include <cstddef>

namespace levelwidgets::win32 {

// This process's brushes, pens, fonts, bitmaps and contexts, those of the system's own parts included:
// only two counts compared say something.
std::size_t CountDrawingObjects();

// Makes the system create now what it otherwise creates with the first window and the first text, so that
// no count is disturbed by it. Works once per process.
void WarmUpDrawingObjects();

}  // namespace levelwidgets::win32
