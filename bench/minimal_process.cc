// What any process costs: fills as many pixels as the form has whose first frame is measured, and says so.
// With arguments it runs the program that they name and tells what that took: it is a small parent, and the
// system counts a parent's memory, too.
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>

#include <bench/startup.h>

namespace {

int TellOf(char** command) {
  pid_t process = 0;
  int status = 1;
  rusage usage{};
  if (posix_spawn(&process, command[0], nullptr, nullptr, command, environ) != 0) return 1;
  wait4(process, &status, 0, &usage);
  return status == 0 ? levelwidgets::bench::TellReady(1024.0 * static_cast<double>(usage.ru_maxrss)) : 1;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace levelwidgets::bench;
  if (argc > 1) return TellOf(argv + 1);
  const std::vector<std::uint32_t> pixels(kFirstFrameSize.width * kFirstFrameSize.height, 0x00CDD9DD);
  asm volatile("" : : "g"(pixels.data()) : "memory");
  return TellReady(PeakResidentBytes());
}
