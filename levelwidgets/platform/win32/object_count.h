#pragma once

#include <cstddef>

namespace levelwidgets::win32 {

// This process's brushes, pens, fonts, bitmaps and contexts, those of the system's own parts included:
// only two counts compared say something.
std::size_t CountDrawingObjects();

}  // namespace levelwidgets::win32
