#include <levelwidgets/host/script/lua/interrupt.h>

#include <atomic>
#include <csignal>
#ifndef _WIN32
#include <signal.h>
#endif

namespace levelwidgets {

namespace {

// A handler of signals may touch nothing else; on some systems it runs on a thread of its own.
std::atomic<bool> interrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free);

bool wanted = false;      // there is a ScriptInterruptSignal
int scripts_running = 0;  // inside each other

void OnInterrupt(int signal);

#ifdef _WIN32

void (*before)(int) = SIG_DFL;

void Install() { before = std::signal(SIGINT, OnInterrupt); }
void Restore() { std::signal(SIGINT, before); }
void InstallAgain() { std::signal(SIGINT, OnInterrupt); }  // the system has set the default

#else

// With its flags, as others have set them.
struct sigaction before {};

void Install() {
  struct sigaction action {};
  action.sa_handler = OnInterrupt;
  action.sa_flags = SA_RESTART;
  sigaction(SIGINT, &action, &before);
}

void Restore() { sigaction(SIGINT, &before, nullptr); }
void InstallAgain() {}

#endif

void OnInterrupt(int signal) {
  if (!interrupted.exchange(true)) {
    InstallAgain();
  } else {
    std::signal(signal, SIG_DFL);
    std::raise(signal);
  }
}

}  // namespace

ScriptInterruptSignal::ScriptInterruptSignal() {
  interrupted = false;
  wanted = true;
}

ScriptInterruptSignal::~ScriptInterruptSignal() {
  interrupted = false;
  wanted = false;
}

bool ScriptInterrupted() { return interrupted.load(std::memory_order_relaxed); }

InterruptibleScript::InterruptibleScript() {
  if (++scripts_running == 1 && wanted) Install();
}

InterruptibleScript::~InterruptibleScript() {
  if (--scripts_running == 0 && wanted) Restore();
}

}  // namespace levelwidgets
