// The container's timer component.
#pragma once

#include <cstdint>
#include <functional>

#include <levelwidgets/platform/clock.h>

namespace levelwidgets {

class PartHost;

// Ticks on the user-interface thread while enabled. It stops with its owner, and the owner stays alive for
// the length of a tick.
class Timer {
 public:
  // Disabled.
  Timer(PartHost& owner, std::int32_t interval_ms, std::function<void()> tick);
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  ~Timer() { Stop(); }

  // Milliseconds between ticks; 0 and below never tick.
  std::int32_t Interval() const { return interval_; }
  // A running timer begins its interval anew when the value differs.
  void SetInterval(std::int32_t interval_ms);
  bool Enabled() const { return enabled_; }
  // Enabling an enabled timer does nothing: its interval runs on.
  void SetEnabled(bool enabled);

 private:
  void Run();
  void Stop();

  PartHost& owner_;
  ClockApi& clock_;
  std::int32_t interval_;
  std::function<void()> tick_;
  bool enabled_ = false;
  TimerHandle timer_;
};

}  // namespace levelwidgets
