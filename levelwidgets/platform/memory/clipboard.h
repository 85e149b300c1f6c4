// The clipboard of the desktop in memory.
#pragma once

#include <string>

namespace levelwidgets::memory {

struct ClipboardState {
  std::string text;  // UTF-8
  bool busy = false;
};

}  // namespace levelwidgets::memory
