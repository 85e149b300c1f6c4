#include <levelwidgets/platform/hand_timers.h>

#include <algorithm>
#include <utility>

#include <levelwidgets/platform/finally.h>

namespace levelwidgets {

namespace {

// The system's smallest interval.
constexpr std::uint32_t kSmallestInterval = 10;

}  // namespace

void HandTimers::MoveTo(std::uint64_t ms) { now_ = std::max(now_, ms); }

TimerHandle HandTimers::Set(std::uint32_t interval_ms, std::function<void()> tick, Kind kind) {
  Timer timer;
  timer.handle = {++last_timer_};
  timer.interval = std::max(kSmallestInterval, interval_ms);
  timer.due = now_ + timer.interval;
  timer.kind = kind;
  timer.tick = std::make_shared<std::function<void()>>(std::move(tick));
  timers_.push_back(std::move(timer));
  return timers_.back().handle;
}

bool HandTimers::Kill(TimerHandle timer) {
  return std::erase_if(timers_, [&](const Timer& each) { return each.handle == timer; }) != 0;
}

std::size_t HandTimers::Live() const {
  return static_cast<std::size_t>(
      std::ranges::count_if(timers_, [](const Timer& timer) { return timer.kind == Kind::kCounted; }));
}

HandTimers::Timer* HandTimers::Find(TimerHandle timer) {
  const auto found = std::ranges::find(timers_, timer, &Timer::handle);
  return found == timers_.end() ? nullptr : &*found;
}

const HandTimers::Timer* HandTimers::Earliest() const {
  const Timer* earliest = nullptr;
  for (const Timer& timer : timers_) {
    if (timer.nested < kMostNested && (!earliest || timer.due < earliest->due)) earliest = &timer;
  }
  return earliest;
}

std::optional<std::uint64_t> HandTimers::NextDue() const {
  const Timer* timer = Earliest();
  return timer ? std::optional(timer->due) : std::nullopt;
}

bool HandTimers::TickIfDue() {
  const Timer* earliest = Earliest();
  if (!earliest || earliest->due > now_) return false;
  Timer* timer = Find(earliest->handle);
  timer->due = now_ + timer->interval;
  ++timer->nested;
  const Finally finish([this, handle = timer->handle] {
    if (Timer* ticked = Find(handle)) --ticked->nested;
  });
  const auto tick = timer->tick;
  (*tick)();
  return true;
}

}  // namespace levelwidgets
