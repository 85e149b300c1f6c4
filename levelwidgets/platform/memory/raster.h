// Pixel operations on a context's target. Coordinates are the context's and reachable. Nothing outside
// the target's clip list is touched.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <levelwidgets/platform/memory/target.h>
#include <levelwidgets/platform/types.h>

namespace levelwidgets::memory {

// The coordinates of the original reach this far; in between no sum of a few of them overflows.
inline constexpr int kFarthest = 1 << 27;

constexpr int Reachable(int coordinate) {
  return coordinate < -kFarthest ? -kFarthest : coordinate > kFarthest ? kFarthest : coordinate;
}
constexpr PixelPoint Reachable(const PixelPoint& p) { return {Reachable(p.x), Reachable(p.y)}; }
constexpr PixelRect Reachable(const PixelRect& r) {
  return {Reachable(r.left), Reachable(r.top), Reachable(r.right), Reachable(r.bottom)};
}

// Everywhere: the limit of an operation that has none.
inline constexpr PixelRect kNoLimit{-2 * kFarthest, -2 * kFarthest, 2 * kFarthest, 2 * kFarthest};

// With left <= right and top <= bottom, as the original operations order a rectangle.
constexpr PixelRect Ordered(const PixelRect& r) {
  return {r.left < r.right ? r.left : r.right, r.top < r.bottom ? r.top : r.bottom,
          r.left < r.right ? r.right : r.left, r.top < r.bottom ? r.bottom : r.top};
}

// What an operation covers that takes a corner and a size, where the size is negative: as many pixels that
// end with the corner.
constexpr PixelRect Covered(const PixelRect& r) {
  PixelRect covered = r;
  if (r.right < r.left) covered = {r.right + 1, covered.top, r.left + 1, covered.bottom};
  if (r.bottom < r.top) covered = {covered.left, r.bottom + 1, covered.right, r.top + 1};
  return covered;
}

// Calls `visit(part, row)` for each clip rectangle that meets `rect`: the common part in the context's
// coordinates, and row(y) giving a pointer that is indexed by x.
template <typename Visit>
void ForEachPart(const DrawingTarget& target, const PixelRect& rect, Visit&& visit) {
  if (!target.store) return;
  for (const PixelRect& clip : target.clip) {
    const PixelRect part = Intersect(clip.Offset(-target.origin.x, -target.origin.y), rect);
    if (part.empty()) continue;
    // Values of its own, which the pixels that are written cannot change: rows are counted on, not looked up.
    visit(part,
          [first = target.store->Row(part.top + target.origin.y) + target.origin.x, top = part.top,
           stride = std::ptrdiff_t{target.store->size.width}](int y) { return first + (y - top) * stride; });
  }
}

void FillArea(const DrawingTarget& target, const PixelRect& rect, std::uint32_t color);
// The four sides of `rect`, each `width` pixels thick and inside it; sides that meet fill it. Its corners are
// those of a round pen.
void FillFrame(const DrawingTarget& target, const PixelRect& rect, int width, std::uint32_t color);

// Inverts every other pixel of the one-pixel frame inside `rect`, from the top right corner on against the
// clock. Of a frame that is one pixel wide or high the way back inverts the dots between its ends again.
void InvertDottedFrame(const DrawingTarget& target, const PixelRect& rect);

// A line's pixels that are on and off in turn; what is off is left as it is unless gaps are filled.
struct Dashes {
  int on = 1;
  int off = 0;    // 0: solid
  int phase = 0;  // how many pixels of the pattern came before the line
  bool fill_gaps = false;
  std::uint32_t gap_color = 0;
};

// A one-pixel line without its last point.
void DrawLine(const DrawingTarget& target, PixelPoint from, PixelPoint to, std::uint32_t color,
              const Dashes& dashes);
// A line as a round pen of `width` pixels leaves it, with its last position.
void DrawWideLine(const DrawingTarget& target, PixelPoint from, PixelPoint to, int width,
                  std::uint32_t color);

// Copies the pixels of `source` around `source_origin` to `rect`; what the source cannot show is left
// as it is. The two may be one store and overlap; `scratch` then keeps pixels in between.
void CopyArea(const DrawingTarget& target, const PixelRect& rect, const DrawingTarget& source,
              PixelPoint source_origin, std::vector<std::uint32_t>& scratch);

// `color` mixed into the pixels of an area by their coverages of 0 to 255. A stride is from one row to the
// next.
void BlendArea(std::uint32_t* pixels, int pixels_stride, const std::uint8_t* coverage, int coverage_stride,
               PixelSize size, std::uint32_t color);

}  // namespace levelwidgets::memory
