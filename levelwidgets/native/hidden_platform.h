// Where forms can be made that nobody is to see.
#pragma once

#include <memory>
#include <string>

#include <levelwidgets/platform/platform.h>

namespace levelwidgets {

// A desktop in memory of that locale; the system's own windows and locale in a build without one, where a
// form must not be shown.
std::unique_ptr<Platform> MakeHiddenPlatform(const std::string& locale);

}  // namespace levelwidgets
