// Timers and the message loop.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>

#include <levelwidgets/platform/clock.h>
#include <levelwidgets/platform/win32/exception_relay.h>

namespace levelwidgets::win32 {

// Timers and posted calls reach the loop as messages of a hidden window, so that they also run in the
// system's own loops (moving a window, menus).
class Win32Clock final : public ClockApi {
 public:
  explicit Win32Clock(ExceptionRelay& relay);
  ~Win32Clock() override;
  Win32Clock(const Win32Clock&) = delete;
  Win32Clock& operator=(const Win32Clock&) = delete;

  TimerHandle SetTimer(std::uint32_t interval_ms, std::function<void()> tick) override;
  bool KillTimer(TimerHandle timer) override;
  std::size_t LiveTimers() const override { return timers_.size(); }

  std::uint64_t GetTickCount() override;
  Date Now() override;

  void Post(std::function<void()> call) override;

  int Run() override;
  void Quit(int status) override;
  void DoEvents() override;

  // Whether a timer's time has come and its tick not yet: the system's timers are coarser than a
  // millisecond.
  bool HasOverdueTimer();

 private:
  struct Receiver;
  struct Timer {
    std::uint32_t interval_ms;
    std::uint64_t due;
    std::function<void()> tick;
  };

  void OnTimer(TimerHandle timer);
  void OnPosted();

  ExceptionRelay& relay_;
  void* receiver_;
  std::map<TimerHandle, Timer> timers_;
  std::uint32_t last_timer_ = 0;
  std::deque<std::function<void()>> posted_;
};

}  // namespace levelwidgets::win32
