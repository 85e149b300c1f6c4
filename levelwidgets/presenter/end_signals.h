// Ctrl+C in the terminal, and other requests from outside to end.
#pragma once

namespace levelwidgets::presenter {

// While it lives, the first SIGINT, SIGTERM or SIGHUP is kept to be asked for; another one ends a program
// that does not come to that. One at a time.
class EndSignals {
 public:
  EndSignals();
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

  // Whether there was one since the last call.
  bool Take();
  // Can be read from as soon as there was one; -1 when the system has none to give.
  int Descriptor() const;
};

}  // namespace levelwidgets::presenter
