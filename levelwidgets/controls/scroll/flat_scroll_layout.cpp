#include <levelwidgets/controls/scroll/flat_scroll_layout.h>

#include <algorithm>
#include <cmath>

#include <levelwidgets/frame/error.h>

namespace levelwidgets {

namespace {

constexpr Twips kButtonLength(200);
constexpr Twips kShortBar(400);  // below it the buttons share the bar
constexpr Twips kLeastThumb(135);
constexpr double kDragAllowance = 510;
// A thumb farther out is drawn here: nobody can see it, and its pixels fit 32 bits.
constexpr float kFarthest = 1e9f;

// 32-bit arithmetic that raises 6 instead of wrapping.
std::int32_t Checked(std::int64_t result) {
  if (result != static_cast<std::int32_t>(result)) throw Error(kOverflow);
  return static_cast<std::int32_t>(result);
}
std::int32_t Add(std::int32_t a, std::int32_t b) { return Checked(std::int64_t{a} + b); }
std::int32_t Subtract(std::int32_t a, std::int32_t b) { return Checked(std::int64_t{a} - b); }

}  // namespace

void FlatScrollLayout::SetSurface(TwipSize size, bool horizontal, float twips_per_pixel_x,
                                  float twips_per_pixel_y) {
  size_ = size;
  horizontal_ = horizontal;
  twips_per_pixel_x_ = twips_per_pixel_x;
  twips_per_pixel_y_ = twips_per_pixel_y;
  button_ = Length() < kShortBar ? Twips(IntegerDivide(Length().value, 2)) : kButtonLength;
  FitThumb();

  const int right = ToPixels(size.width, twips_per_pixel_x);
  const int bottom = ToPixels(size.height, twips_per_pixel_y);
  if (horizontal) {
    first_ = {0, 0, ToPixels(button_, twips_per_pixel_x), bottom};
    second_ = {ToPixels(size.width - button_, twips_per_pixel_x), 0, right, bottom};
  } else {
    first_ = {0, 0, right, ToPixels(button_, twips_per_pixel_y)};
    second_ = {0, ToPixels(size.height - button_, twips_per_pixel_y), right, bottom};
  }
}

PixelRect FlatScrollLayout::Thumb() const {
  const float twips_per_pixel = horizontal_ ? twips_per_pixel_x_ : twips_per_pixel_y_;
  const Twips position(std::clamp(thumb_position_.value, -kFarthest, kFarthest));
  const int start = ToPixels(position, twips_per_pixel);
  const int end = start + ToPixels(thumb_length_, twips_per_pixel) + 1;
  if (horizontal_) return {start, 0, end, ToPixels(size_.height, twips_per_pixel_y_)};
  return {0, start, ToPixels(size_.width, twips_per_pixel_x_), end};
}

Twips FlatScrollLayout::PositionFor(std::int32_t value, ScrollRange range) const {
  if (value == range.min) return button_;
  if (value == range.max) return Length() - button_ - thumb_length_;
  const double button = button_.value;
  const double track = double{Length().value} - button - double{thumb_length_.value} - button;
  // The ratio uses the value itself, not its distance from the minimum.
  const double position = button + track * value / Subtract(range.max, range.min);
  return Twips(static_cast<float>(position));
}

bool FlatScrollLayout::UpdateThumbLength(ScrollRange range) {
  const std::int32_t divisor = Add(Subtract(range.max, range.min), 8);
  // The proportional part is taken from the height, whatever the orientation. A range of -8, which a loading
  // bar passes through, has no proportion: the thumb takes all the room there is.
  const double track = double{size_.height.value} - 2 * double{button_.value};
  const Twips length = divisor == 0 ? Length() : Twips(RoundToWhole(8.0 / divisor * track));
  wanted_thumb_length_ = std::max(length, kLeastThumb);
  const Twips before = thumb_length_;
  FitThumb();
  return thumb_length_ != before;
}

void FlatScrollLayout::FitThumb() {
  const Twips room = Length() - button_ - button_;
  thumb_length_ = room < wanted_thumb_length_ ? Twips(RoundToWhole(room.value)) : wanted_thumb_length_;
}

ScrollZone FlatScrollLayout::ZoneAt(Twips along) const {
  if (along < button_) return ScrollZone::kFirstButton;
  if (along >= Length() - button_) return ScrollZone::kSecondButton;
  if (along < thumb_position_) return ScrollZone::kTrackBefore;
  return along <= thumb_position_ + thumb_length_ ? ScrollZone::kThumb : ScrollZone::kTrackAfter;
}

std::int32_t FlatScrollLayout::DragValue(Twips along, Twips anchor, ScrollRange range) const {
  const double start =
      std::nearbyint(double{along.value} + double{thumb_position_.value} - double{anchor.value});
  if (start <= button_.value) return range.min;
  if (start > (Length() - button_ - thumb_length_).value) return range.max;
  // The value follows the pointer itself; 510 twips are allowed for buttons and thumb, whatever they measure.
  // Never 0 here: in a bar of 510 twips, and below, the thumb fills the room and is always at an end.
  const double track = Length().value - kDragAllowance;
  const double moved = (double{along.value} - double{button_.value}) / track;
  const double value = std::nearbyint(moved * Subtract(range.max, range.min) + range.min);
  if (value > range.max) return range.max;
  return value >= range.min ? static_cast<std::int32_t>(value) : range.min;
}

std::int32_t StepBack(std::int32_t value, std::int32_t step, ScrollRange range) {
  return value < Add(range.min, step) ? range.min : Subtract(value, step);
}

std::int32_t StepForward(std::int32_t value, std::int32_t step, ScrollRange range) {
  return value > Subtract(range.max, step) ? range.max : Add(value, step);
}

}  // namespace levelwidgets
