#include <levelwidgets/controls/scroll/flat_scroll_layout.h>

#include <levelwidgets/frame/error.h>

namespace levelwidgets {

namespace {

constexpr Twips kButtonLength(200);
constexpr Twips kShortBar(400);  // below it the buttons share the bar
constexpr Twips kLeastThumb(135);
constexpr double kDragAllowance = 510;

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
  const int start = ToPixels(thumb_position_, twips_per_pixel);
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
  const Twips room = Length() - button_ - button_;
  // The proportional part is taken from the height, whatever the orientation. A range of -8, which a loading
  // bar passes through, has no proportion: the thumb takes all the room there is.
  const double track = double{size_.height.value} - 2 * double{button_.value};
  Twips length = divisor == 0 ? room : Twips(RoundToWhole(8.0 / divisor * track));
  if (length < kLeastThumb) length = kLeastThumb;
  if (room < length) length = Twips(RoundToWhole(room.value));
  if (length == thumb_length_) return false;
  thumb_length_ = length;
  return true;
}

ScrollZone FlatScrollLayout::ZoneAt(Twips along) const {
  if (along < button_) return ScrollZone::kFirstButton;
  if (along >= Length() - button_) return ScrollZone::kSecondButton;
  if (along < thumb_position_) return ScrollZone::kTrackBefore;
  return along <= thumb_position_ + thumb_length_ ? ScrollZone::kThumb : ScrollZone::kTrackAfter;
}

std::int32_t FlatScrollLayout::DragValue(Twips along, Twips anchor, ScrollRange range) const {
  const Twips start(RoundToWhole(double{along.value} + double{thumb_position_.value} - double{anchor.value}));
  if (start <= button_) return range.min;
  if (start > Length() - button_ - thumb_length_) return range.max;
  // The value follows the pointer itself; 510 twips are allowed for buttons and thumb, whatever they measure.
  const double track = Length().value - kDragAllowance;
  const double moved = (double{along.value} - double{button_.value}) / track;
  const std::int32_t value = RoundToWhole(moved * Subtract(range.max, range.min) + range.min);
  return value < range.min ? range.min : value > range.max ? range.max : value;
}

std::int32_t StepBack(std::int32_t value, std::int32_t step, ScrollRange range) {
  return value < Add(range.min, step) ? range.min : Subtract(value, step);
}

std::int32_t StepForward(std::int32_t value, std::int32_t step, ScrollRange range) {
  return value > Subtract(range.max, step) ? range.max : Add(value, step);
}

}  // namespace levelwidgets
