#include <levelwidgets/testing/hand_moved_driver.h>

namespace levelwidgets::testing {

void HandMovedClock::DoEvents() {
  do system_.DoEvents();
  while (timers_.TickIfDue());
}

HandMovedDriver::HandMovedDriver(win32::Win32Platform& platform)
    : Win32Driver(platform), timers_(dynamic_cast<HandMovedClock&>(platform.Clock()).Timers()) {}

// What a tick has the system do comes before the next one.
void HandMovedDriver::Advance(std::uint32_t ms) {
  const std::uint64_t end = timers_.Now() + ms;
  Settle();
  for (auto due = timers_.NextDue(); due && *due <= end; due = timers_.NextDue()) {
    timers_.MoveTo(*due);
    timers_.TickIfDue();
    Settle();
  }
  timers_.MoveTo(end);
}

std::uint32_t HandMovedDriver::InputTime() {
  // 0 would be the present.
  return static_cast<std::uint32_t>(timers_.Now()) + 1;
}

}  // namespace levelwidgets::testing
