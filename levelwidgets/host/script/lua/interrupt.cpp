#include <levelwidgets/host/script/lua/interrupt.h>

#include <array>
#include <atomic>
#include <csignal>
#ifndef _WIN32
#include <signal.h>
#endif

namespace levelwidgets {

namespace {

// A handler of signals may touch nothing else; on some systems it runs on a thread of its own. 0 is none.
std::atomic<int> interrupted_by{0};
static_assert(std::atomic<int>::is_always_lock_free);

bool wanted = false;      // there is a ScriptInterruptSignal
int scripts_running = 0;  // inside each other

#ifdef _WIN32
constexpr std::array kSignals = {SIGINT, SIGTERM};
#else
constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP};
#endif

void OnInterrupt(int signal);

#ifdef _WIN32

std::array<void (*)(int), kSignals.size()> before{};

void Install() {
  for (std::size_t i = 0; i < kSignals.size(); ++i) before[i] = std::signal(kSignals[i], OnInterrupt);
}
void Restore() {
  for (std::size_t i = 0; i < kSignals.size(); ++i) std::signal(kSignals[i], before[i]);
}
void InstallAgain(int signal) { std::signal(signal, OnInterrupt); }  // the system has set the default

#else

// With their flags, as others have set them.
std::array<struct sigaction, kSignals.size()> before{};

void Install() {
  struct sigaction action {};
  action.sa_handler = OnInterrupt;
  action.sa_flags = SA_RESTART;
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    sigaction(kSignals[i], nullptr, &before[i]);
    // A program that is to outlive its terminal still does.
    if (kSignals[i] != SIGHUP || before[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &action, nullptr);
  }
}

void Restore() {
  for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &before[i], nullptr);
}
void InstallAgain(int) {}

#endif

void OnInterrupt(int signal) {
  if (interrupted_by.exchange(signal) == 0) {
    InstallAgain(signal);
  } else {
    std::signal(signal, SIG_DFL);
    std::raise(signal);
  }
}

}  // namespace

ScriptInterruptSignal::ScriptInterruptSignal() {
  interrupted_by = 0;
  wanted = true;
}

ScriptInterruptSignal::~ScriptInterruptSignal() {
  interrupted_by = 0;
  wanted = false;
}

bool ScriptInterrupted() { return interrupted_by.load(std::memory_order_relaxed) != 0; }

int InterruptedStatus() { return 128 + interrupted_by.load(std::memory_order_relaxed); }

InterruptibleScript::InterruptibleScript() {
  if (++scripts_running == 1 && wanted) Install();
}

InterruptibleScript::~InterruptibleScript() {
  if (--scripts_running == 0 && wanted) Restore();
}

}  // namespace levelwidgets
