// Where a drawing context's pixels go: the seam between the memory desktop's drawing and its windows.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include <levelwidgets/platform/types.h>

namespace levelwidgets::memory {

// Pixels 0x00BBGGRR, row by row without padding. A top-level window and a bitmap have one each; a child
// window draws into that of its top-level window.
struct PixelStore {
  PixelSize size;
  std::vector<std::uint32_t> pixels;

  std::uint32_t* Row(int y) {
    return pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(size.width);
  }
};

struct DrawingTarget {
  PixelStore* store = nullptr;  // null: nothing can be seen, nothing is drawn
  PixelPoint origin;            // of the context's (0, 0) in the store
  // Disjoint rectangles in store coordinates, all inside the store: what may be drawn.
  std::span<const PixelRect> clip;
};

// A window as its drawing context sees it. Asked at every drawing operation, so the answer should be
// kept until the window tree changes.
class TargetSource {
 public:
  virtual ~TargetSource() = default;
  virtual const DrawingTarget& Target() = 0;
};

}  // namespace levelwidgets::memory
