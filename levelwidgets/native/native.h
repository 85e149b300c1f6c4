// The platform of the system that a program is built for. The one place that chooses.
#pragma once

#include <memory>

#include <levelwidgets/platform/driver.h>
#include <levelwidgets/platform/platform.h>

namespace levelwidgets {

// The system's own windows on Windows; elsewhere a desktop in memory, which nobody sees but its driver.
std::unique_ptr<Platform> MakePlatform();

// Does at the desktop of `platform`, which MakePlatform made, what a person does. Where the windows are the
// system's own, so are the pointer and the keys; only one driver at a time. It ends before `platform`.
std::shared_ptr<DesktopDriver> DriverOf(Platform& platform);

}  // namespace levelwidgets
