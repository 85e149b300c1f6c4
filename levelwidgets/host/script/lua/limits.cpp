#include <levelwidgets/host/script/lua/limits.h>

#include <cstdlib>
#include <utility>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/host/script/lua/process_memory.h>
#include <levelwidgets/host/script/lua/watchdog.h>
#include <levelwidgets/platform/text/printable.h>

namespace levelwidgets {

namespace {

// For errors to get out of the script by themselves before the watchdog speaks.
constexpr std::chrono::seconds kGrace{2};

// How much the process may grow, in times of the limit for Lua's values: controls have pictures.
constexpr std::size_t kGrowthFactor = 4;
// How much use is noted before the growth is looked at, and what a call counts at least.
constexpr std::size_t kUsePerLook = std::size_t{1} << 20;
constexpr std::size_t kUsePerCall = 1024;

constexpr char kHowToLift[] = "; --trust lifts the limits for a form that you trust";

std::string InSeconds(std::chrono::milliseconds time) {
  if (time.count() < 1000) return std::to_string(time.count()) + " ms";
  const std::string tenths = std::to_string(time.count() / 100 % 10);
  return std::to_string(time.count() / 1000) + (tenths == "0" ? "" : "." + tenths) + " s";
}

std::string InMebibytes(std::size_t bytes) { return std::to_string(bytes >> 20) + " MiB"; }

}  // namespace

ScriptLimits::ScriptLimits(std::size_t memory, std::chrono::milliseconds time,
                           std::function<void(const std::string&)> on_hang)
    : memory_(memory), process_memory_(ProcessMemory()), time_(time) {
  if (on_hang && time_.count() > 0) {
    watchdog_ = std::make_unique<ScriptWatchdog>(thread_, [on_hang, text = TimeText()] { on_hang(text); });
  }
}

ScriptLimits::~ScriptLimits() = default;

void* ScriptLimits::Allocate(void* limits, void* block, std::size_t old_size, std::size_t new_size) {
  auto& self = *static_cast<ScriptLimits*>(limits);
  if (!block) old_size = 0;  // it then says what the block is for
  if (new_size == 0) {
    std::free(block);
    self.memory_in_use_ -= old_size;
    return nullptr;
  }
  if (new_size > old_size && new_size - old_size > self.memory_ - self.memory_in_use_) {
    self.refused_ = true;
    return nullptr;
  }
  void* result = std::realloc(block, new_size);
  if (result) self.memory_in_use_ += new_size - old_size;
  return result;
}

bool ScriptLimits::TakeRefusal() { return std::exchange(refused_, false); }

std::string ScriptLimits::MemoryText() const {
  return "the scripts of the forms have used up their " + InMebibytes(memory_) + " of memory" + kHowToLift;
}

void ScriptLimits::NoteUse(std::size_t bytes) {
  noted_use_ += bytes + kUsePerCall;
  if (noted_use_ < kUsePerLook) return;
  if (ProcessMemory() > process_memory_ + kGrowthFactor * memory_) {  // and look again at the next call
    throw Error(kOutOfMemory, "LevelWidgets",
                "the scripts of the forms have made the program grow by more than " +
                    InMebibytes(kGrowthFactor * memory_) + kHowToLift);
  }
  noted_use_ = 0;
}

std::optional<std::string> ScriptLimits::Shown(std::string_view text) {
  if (printed_ > kMostPrinted) return {};
  std::string shown = text::PrintableLines(text);
  printed_ += shown.size() + 1;  // with the end of the line
  if (printed_ <= kMostPrinted) return shown;
  return "no more is shown: the scripts of the forms have printed " + InMebibytes(kMostPrinted) + kHowToLift;
}

void ScriptLimits::Enter() {
  if (depth_++ > 0 || time_.count() == 0) return;
  entered_ = thread_.Used();
  if (watchdog_) watchdog_->Start(entered_ + (time_ - time_used_) + kGrace);
}

void ScriptLimits::Leave() {
  if (--depth_ > 0 || time_.count() == 0) return;
  time_used_ += thread_.Used() - entered_;
  if (watchdog_) watchdog_->Stop();
}

ThreadTime::Duration ScriptLimits::TimeUsed() const {
  return depth_ > 0 ? time_used_ + (thread_.Used() - entered_) : time_used_;
}

bool ScriptLimits::OutOfTime() const { return time_.count() > 0 && TimeUsed() > time_; }

std::string ScriptLimits::TimeText() const {
  return "the scripts of the forms have run for longer than " + InSeconds(time_) + kHowToLift;
}

}  // namespace levelwidgets
