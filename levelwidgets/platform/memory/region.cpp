#include <levelwidgets/platform/memory/region.h>

#include <algorithm>

namespace levelwidgets::memory {

namespace {

// Appends the parts of `rect` that lie outside `hole`, which overlaps it.
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

// What is left of a rectangle around many holes, band by band from top to bottom.
class Sieve {
 public:
  // `holes` are in order of their tops.
  Sieve(const PixelRect& rect, std::span<const PixelRect> holes, std::vector<PixelRect>& left_over)
      : rect_(rect), holes_(holes), left_over_(left_over) {}

  void Run() {
    for (int top = rect_.top; top < rect_.bottom;) {
      Enter(top);
      const int bottom = EndOfBand();
      AddBand(top, bottom);
      top = bottom;
    }
  }

 private:
  // The open holes are those that reach into the band, in order of their left edges.
  void Enter(int top) {
    std::erase_if(open_, [top](const PixelRect& hole) { return hole.bottom <= top; });
    for (; next_ < holes_.size() && holes_[next_].top <= top; ++next_) {
      const PixelRect& hole = holes_[next_];
      if (hole.bottom <= top || !Overlap(hole, rect_)) continue;
      const auto place = std::ranges::upper_bound(open_, hole.left, {}, &PixelRect::left);
      // Of many in one place one is enough.
      const bool inside = place != open_.begin() && std::prev(place)->right >= hole.right &&
                          std::prev(place)->bottom >= hole.bottom;
      if (!inside) open_.insert(place, hole);
    }
  }

  int EndOfBand() const {
    int bottom = rect_.bottom;
    if (next_ < holes_.size()) bottom = std::min(bottom, holes_[next_].top);
    for (const PixelRect& hole : open_) bottom = std::min(bottom, hole.bottom);
    return bottom;
  }

  void AddBand(int top, int bottom) {
    const std::size_t first = left_over_.size();
    int left = rect_.left;
    for (const PixelRect& hole : open_) {
      if (hole.left > left) left_over_.push_back({left, top, std::min(hole.left, rect_.right), bottom});
      left = std::max(left, hole.right);
    }
    if (left < rect_.right) left_over_.push_back({left, top, rect_.right, bottom});
    JoinBand(first);
  }

  // A band that is divided like the one above it continues that one.
  void JoinBand(std::size_t first) {
    const auto same = [](const PixelRect& a, const PixelRect& b) {
      return a.left == b.left && a.right == b.right && a.bottom == b.top;
    };
    const auto above = std::span(left_over_).subspan(above_, first - above_);
    const auto band = std::span(left_over_).subspan(first);
    if (std::ranges::equal(above, band, same)) {
      for (std::size_t i = 0; i < band.size(); ++i) above[i].bottom = band[i].bottom;
      left_over_.resize(first);
    } else {
      above_ = first;
    }
  }

  PixelRect rect_;
  std::span<const PixelRect> holes_;
  std::vector<PixelRect>& left_over_;
  std::size_t above_ = left_over_.size();  // where the band above begins
  std::size_t next_ = 0;
  std::vector<PixelRect> open_;
};

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

bool Region::Meets(const Region& other, PixelPoint origin) const {
  return std::ranges::any_of(other.rects_, [&](const PixelRect& theirs) {
    const PixelRect rect = theirs.Offset(origin.x, origin.y);
    return std::ranges::any_of(rects_, [&](const PixelRect& mine) { return Overlap(mine, rect); });
  });
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

void Region::Subtract(std::span<const PixelRect> rects) {
  constexpr std::size_t kFew = 8;
  if (rects.size() <= kFew) {
    for (const PixelRect& rect : rects) Subtract(rect);
    return;
  }
  std::vector<PixelRect> holes(rects.begin(), rects.end());
  std::ranges::sort(holes, {}, &PixelRect::top);
  std::vector<PixelRect> left_over;
  for (const PixelRect& rect : rects_) Sieve(rect, holes, left_over).Run();
  rects_.swap(left_over);
}

void Region::ClipTo(const PixelRect& rect) {
  for (PixelRect& r : rects_) r = Intersect(r, rect);
  std::erase_if(rects_, [](const PixelRect& r) { return r.empty(); });
}

void Region::ClipTo(const Region& other) {
  if (other.rects_.size() == 1) return ClipTo(other.rects_.front());
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
