#include <levelwidgets/testing/child_process.h>

#ifndef _WIN32

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <thread>

namespace levelwidgets {

namespace {

constexpr int kCannotStart = 127;

void Redirect(const char* path, int flags, int to) {
  const int file = open(path, flags, 0644);
  if (file >= 0) dup2(file, to);
}

[[noreturn]] void Become(std::vector<char*> arguments, const ChildProcess::Options& options) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  for (const auto& [name, value] : options.environment) setenv(name.c_str(), value.c_str(), 1);
  if (!options.folder.empty() && chdir(options.folder.c_str()) != 0) _exit(kCannotStart);
  Redirect("/dev/null", O_RDONLY, STDIN_FILENO);
  Redirect("/dev/null", O_WRONLY, STDOUT_FILENO);
  if (options.errors.empty()) {
    Redirect("/dev/null", O_WRONLY, STDERR_FILENO);
  } else {
    Redirect(options.errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, STDERR_FILENO);
  }
  if (options.inherited >= 0) dup2(options.inherited, 3);
  execvp(arguments[0], arguments.data());
  _exit(kCannotStart);
}

}  // namespace

bool WaitUntil(const std::function<bool()>& holds, int milliseconds) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
  while (!holds()) {
    if (std::chrono::steady_clock::now() >= end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return true;
}

ChildProcess::ChildProcess(const std::vector<std::string>& command, const Options& options) {
  std::vector<char*> arguments;
  for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  id_ = fork();
  if (id_ == 0) Become(std::move(arguments), options);
}

ChildProcess::~ChildProcess() {
  if (!Runs()) return;
  Signal(SIGTERM);
  if (Ended(3000)) return;
  Signal(SIGKILL);
  Ended();
}

std::optional<int> ChildProcess::Ended(int milliseconds) {
  const auto look = [this] {
    int ended = 0;
    if (!status_ && waitpid(id_, &ended, WNOHANG) == id_)
      status_ = WIFEXITED(ended) ? WEXITSTATUS(ended) : -1;
    return status_.has_value();
  };
  WaitUntil(look, milliseconds);
  return status_;
}

void ChildProcess::Signal(int number) const {
  if (!status_ && id_ > 0) kill(id_, number);
}

}  // namespace levelwidgets

#endif
