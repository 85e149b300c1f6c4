// Windows on a clock that is moved by hand: what a test sees does not depend on how busy the machine is.
#pragma once

#include <levelwidgets/platform/hand_timers.h>
#include <levelwidgets/platform/win32/win32_driver.h>

namespace levelwidgets::testing {

// Messages and posted calls are the system's. Time stands still for timers except in Advance and Run, as on
// the desktop in memory. They wait while a loop of the system runs, that of a menu or of a message.
class HandMovedClock final : public ClockApi {
 public:
  explicit HandMovedClock(ClockApi& system) : system_(system) {}

  HandTimers& Timers() { return timers_; }

  TimerHandle SetTimer(std::uint32_t interval_ms, std::function<void()> tick) override {
    return timers_.Set(interval_ms, std::move(tick));
  }
  bool KillTimer(TimerHandle timer) override { return timers_.Kill(timer); }
  std::size_t LiveTimers() const override { return timers_.Live(); }
  std::uint64_t GetTickCount() override { return timers_.Now(); }
  Date Now() override { return system_.Now(); }
  void Post(std::function<void()> call) override { system_.Post(std::move(call)); }
  int Run() override { return system_.Run(); }
  void Quit(int status) override { system_.Quit(status); }
  void DoEvents() override;

 private:
  ClockApi& system_;
  HandTimers timers_;
};

// The clock of `platform` is a HandMovedClock. Two presses are a double click by that clock, too.
class HandMovedDriver final : public win32::Win32Driver {
 public:
  explicit HandMovedDriver(win32::Win32Platform& platform);

  void Advance(std::uint32_t ms) override;

 protected:
  std::uint32_t InputTime() override;

 private:
  HandTimers& timers_;
};

}  // namespace levelwidgets::testing
