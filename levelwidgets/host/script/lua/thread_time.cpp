#include <levelwidgets/host/script/lua/thread_time.h>

#ifdef _WIN32
#include <windows.h>

#include <cstdint>
#else
#include <pthread.h>
#include <time.h>
#endif

namespace levelwidgets {

#ifdef _WIN32

struct ThreadTime::Thread {
  HANDLE handle = nullptr;
};

ThreadTime::ThreadTime() : thread_(std::make_unique<Thread>()) {
  DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &thread_->handle, 0, FALSE,
                  DUPLICATE_SAME_ACCESS);
}

ThreadTime::~ThreadTime() { CloseHandle(thread_->handle); }

ThreadTime::Duration ThreadTime::Used() const {
  FILETIME begun, ended, in_system, in_program;
  if (!GetThreadTimes(thread_->handle, &begun, &ended, &in_system, &in_program)) return {};
  const auto steps = [](const FILETIME& time) {
    return static_cast<std::int64_t>((std::uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime);
  };
  constexpr std::int64_t kNanosecondsInAStep = 100;
  return Duration((steps(in_system) + steps(in_program)) * kNanosecondsInAStep);
}

#else

struct ThreadTime::Thread {
  clockid_t clock = CLOCK_THREAD_CPUTIME_ID;
};

ThreadTime::ThreadTime() : thread_(std::make_unique<Thread>()) {
  pthread_getcpuclockid(pthread_self(), &thread_->clock);
}

ThreadTime::~ThreadTime() = default;

ThreadTime::Duration ThreadTime::Used() const {
  timespec time{};
  clock_gettime(thread_->clock, &time);
  return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

#endif

}  // namespace levelwidgets
