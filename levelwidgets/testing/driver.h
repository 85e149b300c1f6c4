// The desktop that the tests run on: the one in memory, or Windows.
#pragma once

#include <memory>

#include <levelwidgets/platform/driver.h>

namespace levelwidgets::testing {

// A fresh desktop in memory for each test; on Windows the one there is.
std::shared_ptr<DesktopDriver> TestDriver();

}  // namespace levelwidgets::testing
