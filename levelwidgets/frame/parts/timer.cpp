#include <levelwidgets/frame/parts/timer.h>

#include <levelwidgets/frame/control_site.h>
#include <levelwidgets/frame/input.h>
#include <levelwidgets/frame/part_host.h>

namespace levelwidgets {

Timer::Timer(PartHost& owner, std::int32_t interval_ms, std::function<void()> tick)
    : owner_(owner),
      clock_(owner.Site().GetPlatform().Clock()),
      interval_(interval_ms),
      tick_(std::move(tick)) {}

void Timer::SetInterval(std::int32_t interval_ms) {
  if (interval_ms == interval_) return;
  interval_ = interval_ms;
  if (!enabled_) return;
  Stop();
  Run();
}

void Timer::SetEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  if (enabled) {
    Run();
  } else {
    Stop();
  }
}

void Timer::Run() {
  if (interval_ <= 0) return;
  timer_ = clock_.SetTimer(static_cast<std::uint32_t>(interval_), [this] {
    const auto keep = owner_.Reference();
    const auto site = owner_.SharedSite();
    Reporting(*site, "Timer", tick_);
  });
}

void Timer::Stop() {
  if (timer_) clock_.KillTimer(timer_);
  timer_ = {};
}

}  // namespace levelwidgets
