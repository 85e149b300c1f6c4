// Timers, posted calls and the event loop of the desktop in memory, on a clock moved by hand.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>

#include <levelwidgets/platform/clock.h>
#include <levelwidgets/platform/hand_timers.h>

namespace levelwidgets::memory {

// What a call of the paint function has done. A turn ends with a second paint of a window in the turn.
enum class PaintTurn { kNothing, kPainted, kPaintedAgain };

// Time stands still except in Advance and Run.
class MemoryClock final : public ClockApi {
 public:
  // `paint` does the next paint that is pending.
  explicit MemoryClock(Date now, std::function<PaintTurn()> paint = {});

  // --- For the desktop -----------------------------------------------------------------------

  // Lets `ms` milliseconds pass, from due timer to due timer (those due at once in the order of their
  // creation), doing all that is pending in between. While a tick runs the loop or lets time pass, timers
  // tick inside it, its own among them, at most HandTimers::kMostNested deep.
  void Advance(std::uint32_t ms);
  // Lets `ms` milliseconds pass at once, as real time does: what a timer missed is one tick.
  void Elapse(std::uint32_t ms);
  // Moves the date without letting time pass.
  void SetNow(Date now);
  // As SetTimer, for what the desktop does by itself (a caret that blinks): Run does not wait for these
  // ticks, and LiveTimers does not count them.
  TimerHandle SetBackgroundTimer(std::uint32_t interval_ms, std::function<void()> tick);
  // When the next timer is due, in GetTickCount's milliseconds; nothing without timers that can tick.
  std::optional<std::uint64_t> NextDue() const { return timers_.NextDue(); }
  // Who shows the desktop to a person waits here, in real time, and brings input and Elapse; Run calls
  // it when nothing is pending, instead of moving the clock to the next timer.
  void SetWaiter(std::function<void()> waiter) { waiter_ = std::move(waiter); }

  // --- ClockApi ------------------------------------------------------------------------------

  TimerHandle SetTimer(std::uint32_t interval_ms, std::function<void()> tick) override;
  bool KillTimer(TimerHandle timer) override { return timers_.Kill(timer); }
  std::size_t LiveTimers() const override { return timers_.Live(); }

  std::uint64_t GetTickCount() override { return timers_.Now(); }
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
  bool RunPostedCalls();
  bool WaitForMore();

  std::function<PaintTurn()> paint_;
  std::function<void()> waiter_;
  HandTimers timers_;
  std::deque<std::function<void()>> posted_;
  std::optional<int> quit_;
  std::uint64_t date_set_at_ = 0;
  Date date_;
};

}  // namespace levelwidgets::memory
