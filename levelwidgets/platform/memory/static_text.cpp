#include <levelwidgets/platform/memory/static_text.h>

namespace levelwidgets::memory {

std::string OnlyTextIn(const Window& window) {
  std::string only;
  for (const Window* child : window.children) {
    if (child->title.empty() || !dynamic_cast<const StaticText*>(child->class_part.get())) continue;
    if (!only.empty()) return {};
    only = child->title;
  }
  return only;
}

}  // namespace levelwidgets::memory
