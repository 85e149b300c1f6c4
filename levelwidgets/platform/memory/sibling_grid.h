// Many windows of one parent, arranged by their places.
#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <vector>

#include <levelwidgets/platform/types.h>

namespace levelwidgets::memory {

struct Window;

// Whether no pixel of `inner` is outside `outer`.
constexpr bool Contains(const PixelRect& outer, const PixelRect& inner) {
  return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
         outer.bottom >= inner.bottom;
}

// Finds the siblings in front of a window at a place without looking at all of them. It shows them as they
// were when it was made.
class SiblingGrid {
 public:
  // `area` is the parent's client area.
  SiblingGrid(const std::list<Window*>& front_to_back, PixelSize area);

  // Appends the rectangles of the shown siblings in front of `window`, one of those it was made of, that
  // touch `bounds`. False when one of them covers all of it. Counts those that it looks at.
  bool FindInFront(const Window& window, const PixelRect& bounds, std::vector<PixelRect>& found,
                   std::uint64_t& looked_at);

 private:
  // The windows over a part of the area by their numbers, up to the first that covers all of the part.
  struct Cell {
    std::vector<std::uint32_t> windows;
    bool covered = false;
  };

  void Add(const PixelRect& rect, std::uint32_t number);
  // The cells that `rect` touches; empty when it is outside the area.
  PixelRect CellsOf(const PixelRect& rect) const;
  Cell& At(int x, int y) {
    return cells_[static_cast<std::size_t>(y) * static_cast<std::size_t>(columns_) +
                  static_cast<std::size_t>(x)];
  }

  PixelRect area_;
  PixelSize cell_;
  int columns_ = 0;
  std::vector<Cell> cells_;
  std::vector<PixelRect> rects_;      // by the numbers of the windows, 0 in front
  std::vector<std::uint32_t> found_;  // kept for its memory
};

// What is known of the children of a window since the tree was last changed.
struct ChildrenSeen {
  std::uint64_t at = 0;
  std::size_t looked_at = 0;
  std::unique_ptr<SiblingGrid> grid;
};

}  // namespace levelwidgets::memory
