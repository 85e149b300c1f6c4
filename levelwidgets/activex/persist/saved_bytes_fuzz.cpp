// Any bytes as the saved properties of any control: read, written, loaded, shown and saved, on a desktop in
// memory.
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include <levelwidgets/activex/persist/saved_bytes_fixture.h>
#include <levelwidgets/platform/memory/desktop.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static levelwidgets::memory::Desktop desktop;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::string broken = levelwidgets::SavedBytesPromises(desktop, desktop).Broken(input);
  if (broken.empty()) return 0;
  std::fprintf(stderr, "A promise is broken: %s\n", broken.c_str());
  std::abort();
}
