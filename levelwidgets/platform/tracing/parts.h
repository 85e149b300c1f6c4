// The tracing counterparts of the platform's parts. Not for use outside this folder.
#pragma once

#include <memory>

#include <levelwidgets/platform/platform.h>
#include <levelwidgets/platform/tracing/call_log.h>

namespace levelwidgets::tracing {

// Each records its calls in `log` and passes them to `target`; both must outlive it.
std::unique_ptr<DrawingApi> Trace(DrawingApi& target, CallLog& log);
std::unique_ptr<WindowApi> Trace(WindowApi& target, CallLog& log);
std::unique_ptr<ClockApi> Trace(ClockApi& target, CallLog& log);
std::unique_ptr<ScreenApi> Trace(ScreenApi& target, CallLog& log);
std::unique_ptr<ConversionApi> Trace(ConversionApi& target, CallLog& log);

}  // namespace levelwidgets::tracing
