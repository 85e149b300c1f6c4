#include <levelwidgets/host/script/lua/watchdog.h>

namespace levelwidgets {

ScriptWatchdog::ScriptWatchdog(const ThreadTime& watched, std::function<void()> on_late)
    : watched_(watched), on_late_(std::move(on_late)), thread_([this] { Watch(); }) {}

ScriptWatchdog::~ScriptWatchdog() {
  {
    const std::lock_guard lock(mutex_);
    ended_ = true;
  }
  changed_.notify_one();
  thread_.join();
}

void ScriptWatchdog::Start(ThreadTime::Duration deadline) {
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
    } else if (const auto left = *deadline_ - watched_.Used(); left.count() > 0) {
      changed_.wait_for(lock, left);  // at least that
    } else {
      deadline_.reset();
      lock.unlock();
      on_late_();
      lock.lock();
    }
  }
}

}  // namespace levelwidgets
