#include <levelwidgets/host/script/lua/watchdog.h>

namespace levelwidgets {

ScriptWatchdog::ScriptWatchdog(std::function<void()> on_late)
    : on_late_(std::move(on_late)), thread_([this] { Watch(); }) {}

ScriptWatchdog::~ScriptWatchdog() {
  {
    const std::lock_guard lock(mutex_);
    ended_ = true;
  }
  changed_.notify_one();
  thread_.join();
}

void ScriptWatchdog::Start(Clock::time_point deadline) {
  {
    const std::lock_guard lock(mutex_);
    deadline_ = deadline;
  }
  changed_.notify_one();
}

// The thread finds out by itself.
void ScriptWatchdog::Stop() {
  const std::lock_guard lock(mutex_);
  deadline_.reset();
}

void ScriptWatchdog::Watch() {
  std::unique_lock lock(mutex_);
  while (!ended_) {
    if (!deadline_) {
      changed_.wait(lock);
    } else if (Clock::now() < *deadline_) {
      changed_.wait_until(lock, Clock::time_point(*deadline_));
    } else {
      deadline_.reset();
      lock.unlock();
      on_late_();
      lock.lock();
    }
  }
}

}  // namespace levelwidgets
