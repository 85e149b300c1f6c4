#include <levelwidgets/host/script/lua/process_memory.h>

#ifdef __linux__
#include <unistd.h>

#include <cstdio>
#include <memory>
#endif

namespace levelwidgets {

#ifdef __linux__

std::size_t ProcessMemory() {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen("/proc/self/statm", "r"),
                                                             std::fclose);
  std::size_t total = 0;
  std::size_t resident = 0;
  if (!file || std::fscanf(file.get(), "%zu %zu", &total, &resident) != 2) return 0;
  return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

#else

std::size_t ProcessMemory() { return 0; }

#endif

}  // namespace levelwidgets
