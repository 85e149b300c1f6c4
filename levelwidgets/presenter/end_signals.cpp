#include <levelwidgets/presenter/end_signals.h>

#include <SDL.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace levelwidgets::presenter {

namespace {

constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP};
constexpr char kEnd = 'e';
constexpr char kStop = 's';

// Handlers reach nothing but globals.
std::array<int, 2> told = {-1, -1};  // a pipe
std::array<struct sigaction, kSignals.size()> before{};

void Tell(char what) {
  const int saved = errno;
  if (write(told[1], &what, 1) != 1) {
    // The pipe is full: it has been told often enough.
  }
  errno = saved;
}

void OnSignal(int) { Tell(kEnd); }

// A thread of its own, because pushing an event is more than a handler may do.
void TurnIntoEvents() {
  char what = kStop;
  while (read(told[0], &what, 1) == 1 && what == kEnd) {
    SDL_Event event{};
    event.type = SDL_QUIT;
    SDL_PushEvent(&event);
  }
}

}  // namespace

EndSignals::EndSignals() {
  if (pipe(told.data()) != 0) return;
  teller_ = std::thread(TurnIntoEvents);
  struct sigaction action {};
  action.sa_handler = OnSignal;
  action.sa_flags = SA_RESETHAND | SA_RESTART;
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    sigaction(kSignals[i], nullptr, &before[i]);
    if (before[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &action, nullptr);
  }
}

EndSignals::~EndSignals() {
  if (!teller_.joinable()) return;
  for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &before[i], nullptr);
  Tell(kStop);
  teller_.join();
  for (const int end : told) close(end);
}

}  // namespace levelwidgets::presenter
