// Time, timers and the event loop.
#pragma once

#include <cstdint>
#include <functional>

#include <levelwidgets/platform/types.h>

namespace levelwidgets {

// Everything runs on one thread: a tick, a posted call and a message never overlap, but a handler that
// runs the loop itself (DoEvents) lets others run inside it.
class ClockApi {
 public:
  virtual ~ClockApi() = default;

  // Calls `tick` every `interval_ms` milliseconds (at least 10) until killed, the first time one interval
  // from now. Ticks of one timer that are late are delivered once, and the next is one interval after that. A
  // tick that runs the loop for longer than its interval is nested in itself. `tick` may kill its own timer.
  // An exception from it leaves the loop through the call that ran it, the timer intact.
  virtual TimerHandle SetTimer(std::uint32_t interval_ms, std::function<void()> tick) = 0;
  virtual bool KillTimer(TimerHandle timer) = 0;
  virtual std::size_t LiveTimers() const = 0;

  // Milliseconds from an arbitrary start.
  virtual std::uint64_t GetTickCount() = 0;
  // Local date and time.
  virtual Date Now() = 0;

  // Calls `call` on a later turn of the loop, in the order posted; never inside this call.
  virtual void Post(std::function<void()> call) = 0;

  // Runs until Quit; returns its status.
  virtual int Run() = 0;
  virtual void Quit(int status) = 0;
  // Handles what is pending and returns: posted calls and messages, then input, then paints, then due timers.
  virtual void DoEvents() = 0;
};

}  // namespace levelwidgets
