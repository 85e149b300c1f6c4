// How much memory the process uses.
#pragma once

#include <cstddef>

namespace levelwidgets {

// Bytes that are resident; 0 where the system does not report them.
std::size_t ProcessMemory();

}  // namespace levelwidgets
