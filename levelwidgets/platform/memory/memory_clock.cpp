#include <levelwidgets/platform/memory/memory_clock.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include <levelwidgets/platform/memory/finally.h>

namespace levelwidgets::memory {

namespace {

constexpr int kMostTurns = 1000;
// The system's smallest interval.
constexpr std::uint32_t kSmallestInterval = 10;
constexpr double kMillisecondsPerDay = 24.0 * 60 * 60 * 1000;

// Days as a number that grows evenly with time: before 30 December 1899 the fraction of a Date counts
// away from it.
double EvenDays(Date date) {
  const double whole = std::trunc(date.days);
  return whole + std::abs(date.days - whole);
}

Date FromEvenDays(double days) {
  const double whole = std::floor(days);
  const double time = days - whole;
  return {whole < 0 ? whole - time : whole + time};
}

}  // namespace

MemoryClock::MemoryClock(Date now, std::function<PaintTurn()> paint) : paint_(std::move(paint)), date_(now) {}

// --- Time ------------------------------------------------------------------------------------

Date MemoryClock::Now() {
  if (now_ms_ == date_set_at_) return date_;
  const double elapsed = static_cast<double>(now_ms_ - date_set_at_) / kMillisecondsPerDay;
  return FromEvenDays(EvenDays(date_) + elapsed);
}

void MemoryClock::SetNow(Date now) {
  date_ = now;
  date_set_at_ = now_ms_;
}

void MemoryClock::Advance(std::uint32_t ms) {
  const std::uint64_t end = now_ms_ + ms;
  DoEvents();
  for (auto due = NextDue(); due && *due <= end; due = NextDue()) {
    now_ms_ = std::max(now_ms_, *due);
    TickIfDue();
    DoEvents();
  }
  now_ms_ = std::max(now_ms_, end);
}

void MemoryClock::Elapse(std::uint32_t ms) {
  now_ms_ += ms;
  DoEvents();
}

// --- Timers ----------------------------------------------------------------------------------

TimerHandle MemoryClock::SetTimer(std::uint32_t interval_ms, std::function<void()> tick) {
  Timer timer;
  timer.handle = {++last_timer_};
  timer.interval = std::max(kSmallestInterval, interval_ms);
  timer.due = now_ms_ + timer.interval;
  timer.tick = std::make_shared<std::function<void()>>(std::move(tick));
  timers_.push_back(std::move(timer));
  return timers_.back().handle;
}

TimerHandle MemoryClock::SetBackgroundTimer(std::uint32_t interval_ms, std::function<void()> tick) {
  const TimerHandle timer = SetTimer(interval_ms, std::move(tick));
  timers_.back().background = true;
  return timer;
}

std::size_t MemoryClock::LiveTimers() const {
  return static_cast<std::size_t>(
      std::count_if(timers_.begin(), timers_.end(), [](const Timer& timer) { return !timer.background; }));
}

bool MemoryClock::KillTimer(TimerHandle timer) {
  return std::erase_if(timers_, [&](const Timer& t) { return t.handle == timer; }) != 0;
}

MemoryClock::Timer* MemoryClock::Find(TimerHandle timer) {
  const auto found =
      std::find_if(timers_.begin(), timers_.end(), [&](const Timer& t) { return t.handle == timer; });
  return found == timers_.end() ? nullptr : &*found;
}

const MemoryClock::Timer* MemoryClock::EarliestTimer() const {
  const Timer* earliest = nullptr;
  for (const Timer& timer : timers_) {
    if (timer.nested < kMostNested && (!earliest || timer.due < earliest->due)) earliest = &timer;
  }
  return earliest;
}

std::optional<std::uint64_t> MemoryClock::NextDue() const {
  const Timer* timer = EarliestTimer();
  return timer ? std::optional(timer->due) : std::nullopt;
}

bool MemoryClock::TickIfDue() {
  const Timer* earliest = EarliestTimer();
  if (!earliest || earliest->due > now_ms_) return false;
  Timer* timer = Find(earliest->handle);
  timer->due = now_ms_ + timer->interval;
  ++timer->nested;
  const Finally finish([this, handle = timer->handle] {
    if (Timer* ticked = Find(handle)) --ticked->nested;
  });
  const auto tick = timer->tick;
  (*tick)();
  return true;
}

// --- The loop --------------------------------------------------------------------------------

void MemoryClock::Post(std::function<void()> call) { posted_.push_back(std::move(call)); }

bool MemoryClock::RunPostedCalls() {
  const std::size_t count = posted_.size();
  for (std::size_t i = 0; i < count && !posted_.empty(); ++i) {
    const auto call = std::move(posted_.front());
    posted_.pop_front();
    call();
  }
  return count != 0;
}

void MemoryClock::DoEvents() {
  for (int turn = 0; turn < kMostTurns;) {
    if (RunPostedCalls()) {
      ++turn;
      continue;
    }
    const PaintTurn painted = paint_ ? paint_() : PaintTurn::kNothing;
    if (painted == PaintTurn::kPaintedAgain) ++turn;
    if (painted != PaintTurn::kNothing) continue;
    if (!TickIfDue()) return;
    ++turn;
  }
}

int MemoryClock::Run() {
  do {
    DoEvents();
    if (quit_) return *std::exchange(quit_, std::nullopt);
  } while (WaitForMore());
  return 0;
}

bool MemoryClock::WaitForMore() {
  if (waiter_) {
    waiter_();
    return true;
  }
  if (!posted_.empty()) return true;
  const auto due = NextDue();
  if (!due || LiveTimers() == 0) return false;
  now_ms_ = std::max(now_ms_, *due);
  return true;
}

}  // namespace levelwidgets::memory
