// The desktop that the scripts of a run drive.
#pragma once

#include <memory>

#include <levelwidgets/host/script/forms/options.h>
#include <levelwidgets/platform/tracing/tracing_platform.h>

namespace levelwidgets {

struct ScriptDesktop {
  std::shared_ptr<DesktopDriver> driver;
  // What scripts ask the desktop themselves is no call of their forms, and is not recorded.
  Platform* platform = nullptr;
  // Where the forms are made. Ends before the desktop.
  std::unique_ptr<TracingPlatform> tracing;
};

// A desktop in memory, for a run that was given none. Raises 5 in a build without it.
ScriptDesktop MakeOwnDesktop(const DesktopSettings& settings);

}  // namespace levelwidgets
