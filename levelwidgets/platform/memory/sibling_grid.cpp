#include <levelwidgets/platform/memory/sibling_grid.h>

#include <algorithm>

#include <levelwidgets/platform/memory/window_tree.h>

namespace levelwidgets::memory {

namespace {

constexpr int kMostCells = 64;     // in each direction
constexpr int kSmallestCell = 32;  // pixels

int CellLength(int length) { return std::max(kSmallestCell, (length + kMostCells - 1) / kMostCells); }

int CellCount(int length, int cell) { return (length + cell - 1) / cell; }

}  // namespace

SiblingGrid::SiblingGrid(const std::list<Window*>& front_to_back, PixelSize area)
    : area_{0, 0, area.width, area.height},
      cell_{CellLength(area.width), CellLength(area.height)},
      columns_(CellCount(area.width, cell_.width)) {
  cells_.resize(static_cast<std::size_t>(columns_) *
                static_cast<std::size_t>(CellCount(area.height, cell_.height)));
  rects_.reserve(front_to_back.size());
  for (Window* window : front_to_back) {
    window->number_among_siblings = static_cast<std::uint32_t>(rects_.size());
    rects_.push_back(window->rect);
    if (window->Shown()) Add(window->rect, window->number_among_siblings);
  }
}

void SiblingGrid::Add(const PixelRect& rect, std::uint32_t number) {
  const PixelRect touched = CellsOf(rect);
  for (int y = touched.top; y < touched.bottom; ++y) {
    for (int x = touched.left; x < touched.right; ++x) {
      Cell& cell = At(x, y);
      if (cell.covered) continue;
      cell.windows.push_back(number);
      const PixelRect place{x * cell_.width, y * cell_.height, (x + 1) * cell_.width, (y + 1) * cell_.height};
      cell.covered = Contains(rect, Intersect(place, area_));
    }
  }
}

PixelRect SiblingGrid::CellsOf(const PixelRect& rect) const {
  const PixelRect inside = Intersect(rect, area_);
  if (inside.empty()) return {};
  return {inside.left / cell_.width, inside.top / cell_.height, CellCount(inside.right, cell_.width),
          CellCount(inside.bottom, cell_.height)};
}

bool SiblingGrid::FindInFront(const Window& window, const PixelRect& bounds, std::vector<PixelRect>& found,
                              std::uint64_t& looked_at) {
  found_.clear();
  const PixelRect touched = CellsOf(bounds);
  for (int y = touched.top; y < touched.bottom; ++y) {
    for (int x = touched.left; x < touched.right; ++x) {
      for (const std::uint32_t number : At(x, y).windows) {
        if (number >= window.number_among_siblings) break;
        ++looked_at;
        const PixelRect& rect = rects_[number];
        if (Contains(rect, bounds)) return false;
        if (!Intersect(rect, bounds).empty()) found_.push_back(number);
      }
    }
  }
  std::ranges::sort(found_);
  found_.erase(std::unique(found_.begin(), found_.end()), found_.end());
  for (const std::uint32_t number : found_) found.push_back(rects_[number]);
  return true;
}

}  // namespace levelwidgets::memory
