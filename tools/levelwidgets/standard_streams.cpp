#include <tools/levelwidgets/standard_streams.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

namespace levelwidgets {

namespace {

#ifdef _WIN32

void TakeClosedStreams() {}
void FailOnLargeFiles() {}

#else

// What goes beyond the limit of a file's size is an error of the write then, which is reported and leaves
// nothing behind, not the end of the program.
void FailOnLargeFiles() { std::signal(SIGXFSZ, SIG_IGN); }

// Each is opened the wrong way round: whoever writes to standard output gets an error.
void TakeClosedStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(stream, F_GETFD) >= 0) continue;
    const int taken = ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    if (taken > stream) ::close(taken);
  }
}

#endif

void CheckStandardOutput() {
  errno = 0;
  std::cout.flush();
  const bool flushed = std::fflush(stdout) == 0;
  if (flushed && std::cout.good() && std::ferror(stdout) == 0) return;
  const std::string cause = errno != 0 ? std::string(": ") + std::strerror(errno) : "";
  std::fprintf(stderr, "Standard output cannot be written%s\n", cause.c_str());
  std::_Exit(1);
}

}  // namespace

void GuardStandardStreams() {
  TakeClosedStreams();
  FailOnLargeFiles();
  std::atexit(CheckStandardOutput);
}

}  // namespace levelwidgets
