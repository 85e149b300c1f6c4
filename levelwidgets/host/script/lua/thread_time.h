// How long a thread has had the processor.
#pragma once

#include <chrono>
#include <memory>

namespace levelwidgets {

// Of the thread that makes this; any thread may ask, while that one lives. A busy machine does not make it
// longer.
class ThreadTime {
 public:
  using Duration = std::chrono::nanoseconds;

  ThreadTime();
  ThreadTime(const ThreadTime&) = delete;
  ThreadTime& operator=(const ThreadTime&) = delete;
  ~ThreadTime();

  // Since the thread began, as exactly as the system counts: on Windows in steps of up to 16 ms.
  Duration Used() const;

 private:
  struct Thread;

  std::unique_ptr<Thread> thread_;
};

}  // namespace levelwidgets
