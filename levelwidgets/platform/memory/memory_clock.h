// Timers, posted calls and the event loop of the desktop in memory, on a clock moved by hand.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include <levelwidgets/platform/clock.h>

namespace levelwidgets::memory {

// Time stands still except in Advance and Run.
class MemoryClock final : public ClockApi {
 public:
  // `paint` does the paints that are pending and returns whether there was one.
  explicit MemoryClock(Date now, std::function<bool()> paint = {});

  // --- For the desktop -----------------------------------------------------------------------

  // Lets `ms` milliseconds pass, from due timer to due timer (those due at once in the order of their
  // creation), doing all that is pending in between. While a tick runs the loop or lets time pass, other
  // timers tick inside it, its own does not: what it missed is one tick afterwards.
  void Advance(std::uint32_t ms);
  // Lets `ms` milliseconds pass at once, as real time does: what a timer missed is one tick.
  void Elapse(std::uint32_t ms);
  // Moves the date without letting time pass.
  void SetNow(Date now);
  // As SetTimer, for what the desktop does by itself (a caret that blinks): Run does not wait for these
  // ticks, and LiveTimers does not count them.
  TimerHandle SetBackgroundTimer(std::uint32_t interval_ms, std::function<void()> tick);
  // When the next timer is due, in GetTickCount's milliseconds; nothing without timers that can tick.
  std::optional<std::uint64_t> NextDue() const;
  // Who shows the desktop to a person waits here, in real time, and brings input and Elapse; Run calls
  // it when nothing is pending, instead of moving the clock to the next timer.
  void SetWaiter(std::function<void()> waiter) { waiter_ = std::move(waiter); }

  // --- ClockApi ------------------------------------------------------------------------------

  TimerHandle SetTimer(std::uint32_t interval_ms, std::function<void()> tick) override;
  bool KillTimer(TimerHandle timer) override;
  std::size_t LiveTimers() const override;

  std::uint64_t GetTickCount() override { return now_ms_; }
  Date Now() override;

  void Post(std::function<void()> call) override;

  // Moves the clock to the next timer whenever nothing is pending. Returns 0 without Quit when nothing
  // is left that could ever happen: no timer but the desktop's own, no posted call, no waiter.
  int Run() override;
  void Quit(int status) override { quit_ = status; }
  // What keeps making itself pending again (a paint that invalidates, a call that posts itself) is left
  // for the next time after a thousand turns.
  void DoEvents() override;

 private:
  struct Timer {
    TimerHandle handle;
    std::uint64_t interval = 1;
    std::uint64_t due = 0;
    bool ticking = false;
    bool background = false;
    std::shared_ptr<std::function<void()>> tick;  // shared: may be killed by its own tick
  };

  Timer* Find(TimerHandle timer);
  const Timer* EarliestTimer() const;
  bool TickIfDue();
  bool RunPostedCalls();
  bool WaitForMore();

  std::function<bool()> paint_;
  std::function<void()> waiter_;
  std::vector<Timer> timers_;  // in the order of creation
  std::deque<std::function<void()>> posted_;
  std::optional<int> quit_;
  std::uint64_t now_ms_ = 0;
  std::uint64_t date_set_at_ = 0;
  Date date_;
  std::uint32_t last_timer_ = 0;
};

}  // namespace levelwidgets::memory
