// A platform that records every call made through it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <levelwidgets/platform/platform.h>
#include <levelwidgets/platform/tracing/traced_call.h>

namespace levelwidgets {

// Wraps another platform, which must outlive it, and passes every call through. Starts stopped; a
// stopped tracer adds one test per call. A call that happens inside another (a message handler that
// draws) stands after the one it happens in.
//
// A window procedure set by SetWindowLongA gets the wrapped platform's windows: what it calls through
// them is not recorded.
class TracingPlatform : public Platform {
 public:
  explicit TracingPlatform(Platform& target);
  ~TracingPlatform() override;

  void Start();
  // Keeps what was recorded.
  void Stop();
  bool active() const;
  // Records something that is no call, such as an event, in its place among the calls.
  void Note(std::string name, std::vector<TraceArgument> arguments = {});
  // The calls since the last take, in order of entry.
  std::vector<TracedCall> TakeCalls();

  DrawingApi& Drawing() override;
  WindowApi& Windows() override;
  ClockApi& Clock() override;
  ScreenApi& Screen() override;
  ConversionApi& Conversions() override;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace levelwidgets
