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

// What a call of the paint function has done. A turn ends with a second paint of a window in the turn.
enum class PaintTurn { kNothing, kPainted, kPaintedAgain };

// Time stands still except in Advance and Run.
class MemoryClock final : public ClockApi {
 public:
  // A timer that ticks in its own ticks as deep as this waits for them to return. The system's would go on
  // until the stack is used up.
  static constexpr int kMostNested = 20;

  // `paint` does the next paint that is pending.
  explicit MemoryClock(Date now, std::function<PaintTurn()> paint = {});

  // --- For the desktop -----------------------------------------------------------------------

  // Lets `ms` milliseconds pass, from due timer to due timer (those due at once in the order of their
  // creation), doing all that is pending in between. While a tick runs the loop or lets time pass, timers
  // tick inside it, its own among them, at most kMostNested deep.
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
    std::uint64_t interval = 0;
    std::uint64_t due = 0;
    int nested = 0;  // ticks that have not returned
    bool background = false;
    std::shared_ptr<std::function<void()>> tick;  // shared: may be killed by its own tick
  };

  Timer* Find(TimerHandle timer);
  const Timer* EarliestTimer() const;
  bool TickIfDue();
  bool RunPostedCalls();
  bool WaitForMore();

  std::function<PaintTurn()> paint_;
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
