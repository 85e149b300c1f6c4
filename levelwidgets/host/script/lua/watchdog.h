// Notices what no script's own interpreter can: that it is stuck in a function of a library.
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

#include <levelwidgets/host/script/lua/thread_time.h>

namespace levelwidgets {

class ScriptWatchdog {
 public:
  // `on_late` is called on the watchdog's thread, once for each start.
  ScriptWatchdog(const ThreadTime& watched, std::function<void()> on_late);
  ScriptWatchdog(const ScriptWatchdog&) = delete;
  ScriptWatchdog& operator=(const ScriptWatchdog&) = delete;
  ~ScriptWatchdog();

  // Until the watched thread has used so much time.
  void Start(ThreadTime::Duration deadline);
  void Stop();

 private:
  void Watch();

  const ThreadTime& watched_;
  std::function<void()> on_late_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::optional<ThreadTime::Duration> deadline_;
  bool ended_ = false;
  std::thread thread_;
};

}  // namespace levelwidgets
