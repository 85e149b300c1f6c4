// Notices what no script's own interpreter can: that it is stuck in a function of a library.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace levelwidgets {

class ScriptWatchdog {
 public:
  using Clock = std::chrono::steady_clock;

  // `on_late` is called on the watchdog's thread, once for each start.
  explicit ScriptWatchdog(std::function<void()> on_late);
  ScriptWatchdog(const ScriptWatchdog&) = delete;
  ScriptWatchdog& operator=(const ScriptWatchdog&) = delete;
  ~ScriptWatchdog();

  void Start(Clock::time_point deadline);
  void Stop();

 private:
  void Watch();

  std::function<void()> on_late_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::optional<Clock::time_point> deadline_;
  bool ended_ = false;
  std::thread thread_;
};

}  // namespace levelwidgets
