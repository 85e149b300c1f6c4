#include <levelwidgets/presenter/end_signals.h>

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace levelwidgets::presenter {

namespace {

constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP};

// Signal handlers can use only globals.
std::array<int, 2> told = {-1, -1};  // a pipe
std::array<struct sigaction, kSignals.size()> before{};

void OnSignal(int) {
  const int saved = errno;
  const char what = 'e';
  if (write(told[1], &what, 1) != 1) {
    // The pipe is full: the reader knows already.
  }
  errno = saved;
}

}  // namespace

EndSignals::EndSignals() {
  if (pipe(told.data()) != 0) return;
  for (const int end : told) {
    fcntl(end, F_SETFL, O_NONBLOCK);
    fcntl(end, F_SETFD, FD_CLOEXEC);
  }
  struct sigaction action {};
  action.sa_handler = OnSignal;
  action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    sigaction(kSignals[i], nullptr, &before[i]);
    if (before[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &action, nullptr);
  }
}

EndSignals::~EndSignals() {
  if (told[0] < 0) return;
  for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &before[i], nullptr);
  for (int& end : told) {
    close(end);
    end = -1;
  }
}

bool EndSignals::Take() {
  char what = 0;
  return told[0] >= 0 && read(told[0], &what, 1) == 1;
}

int EndSignals::Descriptor() const { return told[0]; }

}  // namespace levelwidgets::presenter
