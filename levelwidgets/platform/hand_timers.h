// Timers on a clock that is moved by hand.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include <levelwidgets/platform/types.h>

namespace levelwidgets {

// Time stands still except in MoveTo, and nothing ticks except in TickIfDue.
class HandTimers {
 public:
  // A timer that ticks in its own ticks as deep as this waits for them to return. The system's would go on
  // until the stack is used up.
  static constexpr int kMostNested = 20;
  // Who waits for a timer, and whether it counts as one.
  enum class Kind { kCounted, kBackground };

  // Milliseconds, from 0.
  std::uint64_t Now() const { return now_; }
  // Never back.
  void MoveTo(std::uint64_t ms);

  // As ClockApi::SetTimer and KillTimer do.
  TimerHandle Set(std::uint32_t interval_ms, std::function<void()> tick, Kind kind = Kind::kCounted);
  bool Kill(TimerHandle timer);
  // Without those of the background.
  std::size_t Live() const;

  // When the next timer is due; nothing without timers that can tick.
  std::optional<std::uint64_t> NextDue() const;
  // The earliest of those that are due, of several due at once the one that was made first; false when none
  // is.
  bool TickIfDue();

 private:
  struct Timer {
    TimerHandle handle;
    std::uint64_t interval = 0;
    std::uint64_t due = 0;
    int nested = 0;  // ticks that have not returned
    Kind kind = Kind::kCounted;
    std::shared_ptr<std::function<void()>> tick;  // shared: may be killed by its own tick
  };

  Timer* Find(TimerHandle timer);
  const Timer* Earliest() const;

  std::vector<Timer> timers_;  // in the order of creation
  std::uint64_t now_ = 0;
  std::uint32_t last_timer_ = 0;
};

}  // namespace levelwidgets
