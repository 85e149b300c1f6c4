#include <bench/startup.h>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace levelwidgets::bench {

namespace {

struct Pipe {
  Pipe() {
    if (pipe(ends) != 0) throw std::runtime_error("no pipe can be made");
  }
  ~Pipe() {
    close(ends[0]);
    CloseWriting();
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  void CloseWriting() {
    if (ends[1] >= 0) close(ends[1]);
    ends[1] = -1;
  }

  int ends[2] = {-1, -1};
};

pid_t Start(const std::vector<std::string>& command, int output) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  std::vector<char*> arguments;
  for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  pid_t process = 0;
  const int failure = posix_spawn(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (failure != 0) throw std::runtime_error("cannot be run: " + command.front());
  return process;
}

}  // namespace

int TellReady(double peak_bytes) {
  char line[32];
  const int length = std::snprintf(line, sizeof line, "%.0f", peak_bytes);
  return write(STDOUT_FILENO, line, static_cast<std::size_t>(length)) == length ? 0 : 1;
}

Startup MeasureStartup(const std::vector<std::string>& command, int runs) {
  Startup startup;
  for (int run = 0; run < runs; ++run) {
    Pipe pipe;
    const auto start = std::chrono::steady_clock::now();
    const pid_t process = Start(command, pipe.ends[1]);
    pipe.CloseWriting();
    char told[32] = {};
    if (read(pipe.ends[0], told, sizeof told - 1) < 0)
      throw std::runtime_error("cannot be heard: " + command.front());
    startup.seconds.Add(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    int status = 0;
    waitpid(process, &status, 0);
    if (status != 0) throw std::runtime_error("ended with an error: " + command.front());
    startup.peak_bytes = std::max(startup.peak_bytes, std::atof(told));
  }
  return startup;
}

}  // namespace levelwidgets::bench
