// An area of pixels: a small list of disjoint rectangles.
#pragma once

#include <span>
#include <vector>

#include <levelwidgets/platform/types.h>

namespace levelwidgets::memory {

class Region {
 public:
  Region() = default;
  explicit Region(const PixelRect& rect);

  bool Empty() const { return rects_.empty(); }
  // Disjoint, none of them empty, in no particular order.
  std::span<const PixelRect> Rects() const { return rects_; }
  // The smallest rectangle around it; empty when the region is.
  PixelRect Bounds() const;
  bool Contains(PixelPoint point) const;
  // Whether they have a pixel in common, with (0, 0) of `other` at `origin` of this.
  bool Meets(const Region& other, PixelPoint origin = {}) const;

  void Clear() { rects_.clear(); }
  void Add(const PixelRect& rect);
  void Add(const Region& other);
  void Subtract(const PixelRect& rect);
  void Subtract(const Region& other);
  // Any number of them, which may overlap: in one go from top to bottom.
  void Subtract(std::span<const PixelRect> rects);
  void ClipTo(const PixelRect& rect);
  void ClipTo(const Region& other);
  void Offset(int dx, int dy);

  // The same pixels, however they are divided into rectangles.
  friend bool operator==(const Region& a, const Region& b);

 private:
  std::vector<PixelRect> rects_;
};

Region Difference(Region a, const Region& b);
Region Common(Region a, const Region& b);

}  // namespace levelwidgets::memory
