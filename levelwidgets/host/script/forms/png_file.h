// Pictures as PNG files.
#pragma once

#include <string>

#include <levelwidgets/platform/picture.h>

namespace levelwidgets {

// Written as a whole or not at all: an old picture of that name is replaced by the whole new one. Raises an
// Error that names the path and the cause; no half-written file is left behind. A build without libpng
// refuses every picture.
void WritePng(const Picture& picture, const std::string& path);

}  // namespace levelwidgets
