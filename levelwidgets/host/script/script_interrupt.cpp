#include <levelwidgets/host/script/script_interrupt.h>

#include <atomic>
#include <csignal>

namespace levelwidgets {

namespace {

// A handler of signals may touch nothing else; on some systems it runs on a thread of its own.
std::atomic<bool> interrupted{false};
std::atomic<int> scripts_running{0};
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<int>::is_always_lock_free);

void OnInterrupt(int signal) {
  const bool ends_a_script = scripts_running > 0 && !interrupted.exchange(true);
  // Some systems have set the default already.
  std::signal(signal, ends_a_script ? OnInterrupt : SIG_DFL);
  if (!ends_a_script) std::raise(signal);
}

}  // namespace

ScriptInterruptSignal::ScriptInterruptSignal() {
  interrupted = false;
  before_ = std::signal(SIGINT, OnInterrupt);
}

ScriptInterruptSignal::~ScriptInterruptSignal() {
  std::signal(SIGINT, before_ == SIG_ERR ? SIG_DFL : before_);
  interrupted = false;
}

bool ScriptInterrupted() { return interrupted.load(std::memory_order_relaxed); }

InterruptibleScript::InterruptibleScript() { ++scripts_running; }
InterruptibleScript::~InterruptibleScript() { --scripts_running; }

}  // namespace levelwidgets
