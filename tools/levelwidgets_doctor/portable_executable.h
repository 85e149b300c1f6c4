// Programs and libraries of Windows as files: what they need and hold, read without the system, so that those
// of another bitness can be read as well.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace levelwidgets::doctor {

using Bytes = std::span<const std::uint8_t>;

struct PortableExecutable {
  int bits = 0;  // of the programs that can load it: 64 or 32; 0 for another processor's
  bool is_library = false;
  std::vector<std::string> imports;  // "KERNEL32.dll": libraries that it needs to be loaded
  Bytes type_library;                // the first resource of that kind; empty for none
};

// None for what is no such file, or ends too early. The result refers to `file`.
std::optional<PortableExecutable> ReadPortableExecutable(Bytes file);

}  // namespace levelwidgets::doctor
