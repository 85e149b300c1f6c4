#include <levelwidgets/platform/memory/memory_clock.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace levelwidgets::memory {

namespace {

constexpr int kMostTurns = 1000;
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
  if (timers_.Now() == date_set_at_) return date_;
  const double elapsed = static_cast<double>(timers_.Now() - date_set_at_) / kMillisecondsPerDay;
  return FromEvenDays(EvenDays(date_) + elapsed);
}

void MemoryClock::SetNow(Date now) {
  date_ = now;
  date_set_at_ = timers_.Now();
}

void MemoryClock::Advance(std::uint32_t ms) {
  const std::uint64_t end = timers_.Now() + ms;
  DoEvents();
  for (auto due = NextDue(); due && *due <= end; due = NextDue()) {
    timers_.MoveTo(*due);
    timers_.TickIfDue();
    DoEvents();
  }
  timers_.MoveTo(end);
}

void MemoryClock::Elapse(std::uint32_t ms) {
  timers_.MoveTo(timers_.Now() + ms);
  DoEvents();
}

// --- Timers ----------------------------------------------------------------------------------

TimerHandle MemoryClock::SetTimer(std::uint32_t interval_ms, std::function<void()> tick) {
  return timers_.Set(interval_ms, std::move(tick));
}

TimerHandle MemoryClock::SetBackgroundTimer(std::uint32_t interval_ms, std::function<void()> tick) {
  return timers_.Set(interval_ms, std::move(tick), HandTimers::Kind::kBackground);
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
    if (!timers_.TickIfDue()) return;
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
  timers_.MoveTo(*due);
  return true;
}

}  // namespace levelwidgets::memory
