// Other programs that tests start and end. Not on Windows.
#pragma once

#ifndef _WIN32

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace levelwidgets {

// Milliseconds; more than the busiest machine takes, since nobody waits for what has come.
inline constexpr int kPatience = 60000;

// Asks `holds` again and again; false when it does not come true in time.
bool WaitUntil(const std::function<bool()>& holds, int milliseconds = kPatience);

// Ends with the test program at the latest, whatever happens to that.
class ChildProcess {
 public:
  struct Options {
    std::vector<std::pair<std::string, std::string>> environment;  // added to this program's own
    std::filesystem::path folder;                                  // works there; here when empty
    std::filesystem::path errors;                                  // gets standard error; nobody when empty
    int inherited = -1;                                            // a file that it keeps, as number 3
  };
  ChildProcess(const std::vector<std::string>& command, const Options& options);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  bool Runs() { return !Ended(0); }
  // Its exit status once it has ended, -1 when a signal has ended it; nothing when it runs on all that time.
  std::optional<int> Ended(int milliseconds = kPatience);
  void Signal(int number) const;

 private:
  pid_t id_ = -1;
  std::optional<int> status_;
};

}  // namespace levelwidgets

#endif
