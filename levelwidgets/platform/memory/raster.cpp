#include <levelwidgets/platform/memory/raster.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace levelwidgets::memory {

namespace {

// A slanted or straight line as positions counted along its longer axis.
class LineSteps {
 public:
  LineSteps(PixelPoint from, PixelPoint to)
      : from_(from), dx_(to.x - from.x), dy_(to.y - from.y), count_(std::max(std::abs(dx_), std::abs(dy_))) {}

  int Count() const { return count_; }
  PixelPoint At(int step) const { return {from_.x + Along(step, dx_), from_.y + Along(step, dy_)}; }
  // The steps [first, last) that can fall into `area`.
  void Limit(const PixelRect& area, int& first, int& last) const {
    const bool wide = std::abs(dx_) >= std::abs(dy_);
    const int start = wide ? from_.x : from_.y;
    const bool forward = (wide ? dx_ : dy_) > 0;
    const int low = wide ? area.left : area.top;
    const int high = wide ? area.right : area.bottom;
    first = std::max(0, forward ? low - start : start - high + 1);
    last = std::min(count_, forward ? high - start : start - low + 1);
  }

 private:
  // step * delta / count, rounded to the nearest, halves up or to the left.
  int Along(int step, int delta) const {
    const std::int64_t twice = 2 * static_cast<std::int64_t>(step) * std::abs(delta);
    const std::int64_t rounding = delta < 0 ? count_ : count_ - 1;
    const int distance = static_cast<int>((twice + rounding) / (2 * static_cast<std::int64_t>(count_)));
    return delta < 0 ? -distance : distance;
  }

  PixelPoint from_;
  int dx_, dy_, count_;
};

// Every other pixel of `rect`, `dot` being one of them.
void InvertDotted(const DrawingTarget& target, const PixelRect& rect, PixelPoint dot) {
  ForEachPart(target, rect, [dot](const PixelRect& part, auto row) {
    for (int y = part.top; y < part.bottom; ++y) {
      std::uint32_t* pixels = row(y);
      for (int x = part.left + ((part.left - dot.x + y - dot.y) & 1); x < part.right; x += 2)
        pixels[x] ^= 0xFFFFFF;
    }
  });
}

// How many pixels the row `row` of a round pen is shorter at each end than the pen is wide. With coordinates
// doubled, so that the middle is whole: a pixel belongs to the pen when it is no further away than the
// radius, which is a little less than half of the width.
int RoundInset(int width, int row) {
  const std::int64_t wide = width;
  const std::int64_t down = 2 * row + 1 - wide;
  std::int64_t across = wide - 1;
  while (across > 0 && 5 * (across * across + down * down) > 5 * wide * wide - 2 * wide) across -= 2;
  return static_cast<int>((wide - 1 - std::max<std::int64_t>(across, 0)) / 2);
}

PixelRect SourceBounds(const DrawingTarget& source) {
  if (!source.store || source.clip.empty()) return {};
  PixelRect bounds = source.clip.front();
  for (const PixelRect& r : source.clip) {
    bounds = {std::min(bounds.left, r.left), std::min(bounds.top, r.top), std::max(bounds.right, r.right),
              std::max(bounds.bottom, r.bottom)};
  }
  return bounds;
}

// Rows in the order that survives an overlap in one store.
void CopyPart(const PixelRect& part, PixelStore& target, PixelPoint target_origin, PixelStore& source,
              PixelPoint source_origin) {
  const auto width = static_cast<std::size_t>(part.width());
  const bool upward = source_origin.y < target_origin.y;
  for (int i = 0; i < part.height(); ++i) {
    const int y = upward ? part.bottom - 1 - i : part.top + i;
    const std::uint32_t* from = source.Row(y + source_origin.y) + source_origin.x + part.left;
    std::uint32_t* to = target.Row(y + target_origin.y) + target_origin.x + part.left;
    if (from < to) {
      std::copy_backward(from, from + width, to + width);
    } else if (from != to) {
      std::copy(from, from + width, to);
    }
  }
}

// How much of `coverage` (0 to 255) counts, 0 to 256.
constexpr std::uint32_t ShareOf(std::uint8_t coverage) { return coverage + (coverage >> 7u); }

std::uint32_t Blended(std::uint32_t old, std::uint8_t coverage, std::uint32_t color) {
  const std::uint32_t share = ShareOf(coverage);
  const std::uint32_t rest = 256 - share;
  return (((old & 0xFF00FF) * rest + (color & 0xFF00FF) * share) >> 8 & 0xFF00FF) |
         (((old & 0x00FF00) * rest + (color & 0x00FF00) * share) >> 8 & 0x00FF00);
}

#ifdef __SSE2__
constexpr int kBlendedAtOnce = 4;  // pixels

// Two pixels as eight numbers of 16 bits.
__m128i BlendedPair(__m128i old, __m128i color, __m128i share) {
  const __m128i rest = _mm_sub_epi16(_mm_set1_epi16(256), share);
  const __m128i sum = _mm_add_epi16(_mm_mullo_epi16(old, rest), _mm_mullo_epi16(color, share));
  return _mm_srli_epi16(sum, 8);
}

// The same as Blended of each of the four pixels `old`, whose coverages are the bytes of `coverages`.
// `color` is a pair.
__m128i BlendedFour(__m128i old, std::uint32_t coverages, __m128i color) {
  const __m128i zero = _mm_setzero_si128();
  const __m128i covered = _mm_unpacklo_epi8(_mm_cvtsi32_si128(static_cast<int>(coverages)), zero);
  const __m128i shares = _mm_add_epi16(covered, _mm_srli_epi16(covered, 7));
  const __m128i twice = _mm_unpacklo_epi16(shares, shares);  // s0 s0 s1 s1 s2 s2 s3 s3
  const __m128i low = BlendedPair(_mm_unpacklo_epi8(old, zero), color, _mm_unpacklo_epi32(twice, twice));
  const __m128i high = BlendedPair(_mm_unpackhi_epi8(old, zero), color, _mm_unpackhi_epi32(twice, twice));
  return _mm_packus_epi16(low, high);
}

std::uint32_t FourOf(const std::uint8_t* coverage) {
  std::uint32_t four = 0;
  std::memcpy(&four, coverage, sizeof four);
  return four;
}

// At least four pixels: by fours, and the last four, which some of the others may be among. Those are read
// before any is written: they become the same twice, and no read waits for a write that it overlaps.
void BlendRow(std::uint32_t* pixels, const std::uint8_t* coverage, int count, __m128i color) {
  const int last = count - kBlendedAtOnce;
  auto* const end = reinterpret_cast<__m128i*>(pixels + last);
  const __m128i old_end = _mm_loadu_si128(end);
  for (int i = 0; i < last; i += kBlendedAtOnce) {
    const std::uint32_t coverages = FourOf(coverage + i);
    if (coverages == 0) continue;  // around the glyphs
    auto* const place = reinterpret_cast<__m128i*>(pixels + i);
    _mm_storeu_si128(place, BlendedFour(_mm_loadu_si128(place), coverages, color));
  }
  if (const std::uint32_t coverages = FourOf(coverage + last)) {
    _mm_storeu_si128(end, BlendedFour(old_end, coverages, color));
  }
}
#endif

}  // namespace

void FillArea(const DrawingTarget& target, const PixelRect& rect, std::uint32_t color) {
  ForEachPart(target, rect, [color](const PixelRect& part, auto row) {
    if (part.width() == 1) {  // the sides of frames
      for (int y = part.top; y < part.bottom; ++y) row(y)[part.left] = color;
      return;
    }
    for (int y = part.top; y < part.bottom; ++y) std::fill(row(y) + part.left, row(y) + part.right, color);
  });
}

void FillFrame(const DrawingTarget& target, const PixelRect& rect, int width, std::uint32_t color) {
  PixelRect rest = rect;
  for (int row = 0; row < width / 2 && RoundInset(width, row) > 0; ++row) {
    const int left = rect.left + RoundInset(width, row);
    const int right = rect.right - RoundInset(width, row);
    FillArea(target, {left, rest.top, right, rest.top + 1}, color);
    FillArea(target, {left, rest.bottom - 1, right, rest.bottom}, color);
    ++rest.top;
    --rest.bottom;
  }
  const PixelRect inner = rect.Inset(width);
  if (inner.empty()) return FillArea(target, rest, color);
  FillArea(target, {rest.left, rest.top, rest.right, inner.top}, color);
  FillArea(target, {rest.left, inner.bottom, rest.right, rest.bottom}, color);
  FillArea(target, {rest.left, inner.top, inner.left, inner.bottom}, color);
  FillArea(target, {inner.right, inner.top, rest.right, inner.bottom}, color);
}

void InvertDottedFrame(const DrawingTarget& target, const PixelRect& rect) {
  const PixelPoint start{rect.right - 1, rect.top};
  const PixelPoint end{rect.left, rect.bottom - 1};
  if (rect.empty() || start == end) return;
  if (rect.width() == 1 || rect.height() == 1) {
    InvertDotted(target, {start.x, start.y, start.x + 1, start.y + 1}, start);
    return InvertDotted(target, {end.x, end.y, end.x + 1, end.y + 1}, start);
  }
  InvertDotted(target, {rect.left, rect.top, rect.right, rect.top + 1}, start);
  InvertDotted(target, {rect.left, rect.bottom - 1, rect.right, rect.bottom}, start);
  InvertDotted(target, {rect.left, rect.top + 1, rect.left + 1, rect.bottom - 1}, start);
  InvertDotted(target, {rect.right - 1, rect.top + 1, rect.right, rect.bottom - 1}, start);
}

void DrawLine(const DrawingTarget& target, PixelPoint from, PixelPoint to, std::uint32_t color,
              const Dashes& dashes) {
  const LineSteps line(from, to);
  if (line.Count() == 0) return;
  ForEachPart(target, kNoLimit, [&](const PixelRect& part, auto row) {
    int first = 0;
    int last = 0;
    for (line.Limit(part, first, last); first < last; ++first) {
      const PixelPoint p = line.At(first);
      if (!part.Contains(p)) continue;
      const bool on = dashes.off == 0 || (first + dashes.phase) % (dashes.on + dashes.off) < dashes.on;
      if (on) {
        row(p.y)[p.x] = color;
      } else if (dashes.fill_gaps) {
        row(p.y)[p.x] = dashes.gap_color;
      }
    }
  });
}

void DrawWideLine(const DrawingTarget& target, PixelPoint from, PixelPoint to, int width,
                  std::uint32_t color) {
  const LineSteps line(from, to);
  const int before = width / 2;
  std::vector<int> insets;
  for (int row = 0; row < width; ++row) insets.push_back(RoundInset(width, row));
  ForEachPart(target, kNoLimit, [&](const PixelRect& part, auto pixels) {
    const auto stamp = [&](PixelPoint p) {
      const PixelRect dot{p.x - before, p.y - before, p.x - before + width, p.y - before + width};
      const PixelRect seen = Intersect(part, dot);
      for (int y = seen.top; y < seen.bottom; ++y) {
        const int inset = insets[static_cast<std::size_t>(y - dot.top)];
        const int left = std::max(seen.left, dot.left + inset);
        std::fill(pixels(y) + left, pixels(y) + std::max(left, std::min(seen.right, dot.right - inset)),
                  color);
      }
    };
    int step = 0;
    int last = 0;
    for (line.Limit(part.Inset(-width), step, last); step < last; ++step) stamp(line.At(step));
    stamp(to);
  });
}

void CopyArea(const DrawingTarget& target, const PixelRect& rect, const DrawingTarget& source,
              PixelPoint source_origin, std::vector<std::uint32_t>& scratch) {
  const PixelRect bounds = SourceBounds(source);
  // Where the store of the source lies beneath the target's coordinates.
  const PixelPoint beneath{source.origin.x + source_origin.x - rect.left,
                           source.origin.y + source_origin.y - rect.top};
  const PixelRect area = Intersect(rect, bounds.Offset(-beneath.x, -beneath.y));
  if (area.empty() || !target.store) return;
  if (target.store != source.store || target.clip.size() == 1) {
    ForEachPart(target, area, [&](const PixelRect& part, auto) {
      CopyPart(part, *target.store, target.origin, *source.store, beneath);
    });
    return;
  }
  // One part's target can be another part's source.
  const auto width = static_cast<std::size_t>(area.width());
  scratch.resize(width * static_cast<std::size_t>(area.height()));
  auto kept = [&](int y) { return scratch.data() + static_cast<std::size_t>(y - area.top) * width; };
  for (int y = area.top; y < area.bottom; ++y) {
    const std::uint32_t* from = source.store->Row(y + beneath.y) + beneath.x + area.left;
    std::copy(from, from + width, kept(y));
  }
  ForEachPart(target, area, [&](const PixelRect& part, auto row) {
    for (int y = part.top; y < part.bottom; ++y) {
      std::copy(kept(y) + (part.left - area.left), kept(y) + (part.right - area.left), row(y) + part.left);
    }
  });
}

void BlendArea(std::uint32_t* pixels, int pixels_stride, const std::uint8_t* coverage, int coverage_stride,
               PixelSize size, std::uint32_t color) {
#ifdef __SSE2__
  const __m128i pair = _mm_unpacklo_epi8(_mm_set1_epi32(static_cast<int>(color)), _mm_setzero_si128());
#endif
  for (int y = 0; y < size.height; ++y, pixels += pixels_stride, coverage += coverage_stride) {
#ifdef __SSE2__
    if (size.width >= kBlendedAtOnce) {
      BlendRow(pixels, coverage, size.width, pair);
      continue;
    }
#endif
    for (int x = 0; x < size.width; ++x) pixels[x] = Blended(pixels[x], coverage[x], color);
  }
}

}  // namespace levelwidgets::memory
