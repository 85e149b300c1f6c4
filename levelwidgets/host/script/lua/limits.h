// What scripts that nobody vouches for may use: memory and time, for all of them in a run together.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <levelwidgets/frame/out_of_memory.h>
#include <levelwidgets/host/script/lua/thread_time.h>

namespace levelwidgets {

class ScriptWatchdog;

inline constexpr std::size_t kMostPrinted = std::size_t{1} << 20;  // bytes

class ScriptLimits {
 public:
  // `memory` in bytes. `time` is the processor's, for such scripts on the thread that makes this; zero for no
  // limit. `on_hang` is called on a thread of its own, with the text for the user, when a script is in code
  // that cannot be interrupted long after its time is up; it is not expected to return. Null for none.
  ScriptLimits(std::size_t memory, std::chrono::milliseconds time,
               std::function<void(const std::string&)> on_hang);
  ScriptLimits(const ScriptLimits&) = delete;
  ScriptLimits& operator=(const ScriptLimits&) = delete;
  ~ScriptLimits();

  // --- Memory -----------------------------------------------------------------------------------

  // For lua_newstate, with the limits as its user data: null for what is over the limit.
  static void* Allocate(void* limits, void* block, std::size_t old_size, std::size_t new_size);
  std::size_t MemoryInUse() const { return memory_in_use_; }
  // Whether memory was refused since this was asked before.
  bool TakeRefusal();
  // What the script's bare "not enough memory" means.
  std::string MemoryText() const;

  // What the library makes for scripts (controls and their texts) is not Lua's, and is seen in the growth of
  // the process. Each call of the library says about how many bytes it has taken over; raises 7 when the
  // process has grown by four times the limit, where the system reports its size.
  void NoteUse(std::size_t bytes);

  // --- Output -----------------------------------------------------------------------------------

  // What is shown of the line or lines that a script prints; nothing once all scripts together have printed
  // kMostPrinted bytes, and what was said of that.
  std::optional<std::string> Shown(std::string_view text);

  // --- Time -------------------------------------------------------------------------------------

  // Each call of such a script is between these two; calls inside calls count once.
  void Enter();
  void Leave();
  bool OutOfTime() const;
  std::string TimeText() const;

 private:
  ThreadTime::Duration TimeUsed() const;

  std::size_t memory_;
  std::size_t memory_in_use_ = 0;
  bool refused_ = false;
  std::size_t process_memory_;  // at the beginning
  std::size_t printed_ = 0;
  std::size_t noted_use_ = 0;  // since the growth was looked at
  std::chrono::milliseconds time_;
  ThreadTime thread_;
  ThreadTime::Duration time_used_{};  // by the calls that have ended
  ThreadTime::Duration entered_{};    // what the thread had used
  int depth_ = 0;
  std::unique_ptr<ScriptWatchdog> watchdog_;
};

}  // namespace levelwidgets
