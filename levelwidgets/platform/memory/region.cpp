#include <levelwidgets/platform/memory/region.h>

#include <algorithm>

namespace levelwidgets::memory {

namespace {

// Appends what of `rect` lies outside `hole`, which overlaps it.
void AppendAround(const PixelRect& rect, const PixelRect& hole, std::vector<PixelRect>& rects) {
  const PixelRect inner = Intersect(rect, hole);
  const PixelRect parts[] = {{rect.left, rect.top, rect.right, inner.top},
                             {rect.left, inner.bottom, rect.right, rect.bottom},
                             {rect.left, inner.top, inner.left, inner.bottom},
                             {inner.right, inner.top, rect.right, inner.bottom}};
  for (const PixelRect& part : parts) {
    if (!part.empty()) rects.push_back(part);
  }
}

bool Overlap(const PixelRect& a, const PixelRect& b) { return !Intersect(a, b).empty(); }

}  // namespace

Region::Region(const PixelRect& rect) {
  if (!rect.empty()) rects_.push_back(rect);
}

PixelRect Region::Bounds() const {
  if (Empty()) return {};
  PixelRect bounds = rects_.front();
  for (const PixelRect& r : rects_) {
    bounds = {std::min(bounds.left, r.left), std::min(bounds.top, r.top), std::max(bounds.right, r.right),
              std::max(bounds.bottom, r.bottom)};
  }
  return bounds;
}

bool Region::Contains(PixelPoint point) const {
  return std::any_of(rects_.begin(), rects_.end(), [&](const PixelRect& r) { return r.Contains(point); });
}

void Region::Add(const PixelRect& rect) {
  if (rect.empty()) return;
  Subtract(rect);
  rects_.push_back(rect);
}

void Region::Add(const Region& other) {
  for (const PixelRect& rect : other.rects_) Add(rect);
}

void Region::Subtract(const PixelRect& rect) {
  std::vector<PixelRect> parts;
  for (std::size_t i = 0; i < rects_.size();) {
    if (!Overlap(rects_[i], rect)) {
      ++i;
      continue;
    }
    AppendAround(rects_[i], rect, parts);
    rects_[i] = rects_.back();
    rects_.pop_back();
  }
  rects_.insert(rects_.end(), parts.begin(), parts.end());
}

void Region::Subtract(const Region& other) {
  for (const PixelRect& rect : other.rects_) {
    if (Empty()) return;
    Subtract(rect);
  }
}

void Region::ClipTo(const PixelRect& rect) {
  for (PixelRect& r : rects_) r = Intersect(r, rect);
  std::erase_if(rects_, [](const PixelRect& r) { return r.empty(); });
}

void Region::ClipTo(const Region& other) {
  std::vector<PixelRect> parts;
  for (const PixelRect& a : rects_) {
    for (const PixelRect& b : other.rects_) {
      const PixelRect part = Intersect(a, b);
      if (!part.empty()) parts.push_back(part);
    }
  }
  rects_.swap(parts);
}

void Region::Offset(int dx, int dy) {
  for (PixelRect& r : rects_) r = r.Offset(dx, dy);
}

bool operator==(const Region& a, const Region& b) {
  return Difference(a, b).Empty() && Difference(b, a).Empty();
}

Region Difference(Region a, const Region& b) {
  a.Subtract(b);
  return a;
}

Region Common(Region a, const Region& b) {
  a.ClipTo(b);
  return a;
}

}  // namespace levelwidgets::memory
