// Ctrl+C in the terminal, and other requests from outside to end, as an event of the native loop.
#pragma once

#include <thread>

namespace levelwidgets::presenter {

// While it lives, the first SIGINT, SIGTERM or SIGHUP becomes the event SDL_QUIT, which also wakes a loop
// that waits; another one ends a program that does not come to that. One at a time.
class EndSignals {
 public:
  EndSignals();
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

 private:
  std::thread teller_;
};

}  // namespace levelwidgets::presenter
