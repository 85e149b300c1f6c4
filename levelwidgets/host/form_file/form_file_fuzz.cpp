// Any text as a form file: loaded, shown, saved, edited and loaded again, on a desktop in memory.
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include <levelwidgets/host/form_file/form_file_fuzz.h>
#include <levelwidgets/platform/memory/desktop.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static levelwidgets::memory::Desktop desktop;
  const std::string text(reinterpret_cast<const char*>(data), size);
  const std::string broken = levelwidgets::FormFilePromises(desktop, desktop).Broken(text);
  if (broken.empty()) return 0;
  std::fprintf(stderr, "A promise is broken: %s\n", broken.c_str());
  std::abort();
}
