// Where forms can be made that nobody is to see.
#pragma once

#include <memory>

#include <levelwidgets/platform/platform.h>

namespace levelwidgets {

// A desktop in memory; the system's own windows in a build without one, where a form must not be shown.
std::unique_ptr<Platform> MakeHiddenPlatform();

}  // namespace levelwidgets
