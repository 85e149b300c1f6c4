// Where the parts of a scroll bar are, and the arithmetic of its value. Knows no window.
#pragma once

#include <cstdint>

#include <levelwidgets/frame/units.h>
#include <levelwidgets/platform/types.h>

namespace levelwidgets {

enum class ScrollZone { kFirstButton, kTrackBefore, kThumb, kTrackAfter, kSecondButton };

struct ScrollRange {
  std::int32_t min = 0;
  std::int32_t max = 0;
};

class FlatScrollLayout {
 public:
  // Lays out the buttons of a bar of this surface. The thumb keeps its position, and its length as far as
  // there is room for it.
  void SetSurface(TwipSize size, bool horizontal, float twips_per_pixel_x, float twips_per_pixel_y);

  bool Horizontal() const { return horizontal_; }
  // L, the bar's length; B, that of each arrow button; P and T, the thumb's start and length. All twips.
  Twips Length() const { return horizontal_ ? size_.width : size_.height; }
  Twips ButtonLength() const { return button_; }
  Twips ThumbPosition() const { return thumb_position_; }
  Twips ThumbLength() const { return thumb_length_; }

  PixelRect FirstButton() const { return first_; }
  PixelRect SecondButton() const { return second_; }
  // A bar of less than 600 twips shows no thumb.
  bool ShowsThumb() const { return Length() >= Twips(600); }
  PixelRect Thumb() const;

  // The thumb's start for `value`: at the first button for the minimum, at the second one for the maximum.
  // Raises 6 when the range does not fit 32 bits.
  Twips PositionFor(std::int32_t value, ScrollRange range) const;
  void SetThumbPosition(Twips position) { thumb_position_ = position; }
  // Computes the thumb's length anew, because Min or Max has been set; returns whether it changed. Raises 6
  // when the range plus 8 does not fit 32 bits.
  bool UpdateThumbLength(ScrollRange range);

  // `along` is a pointer coordinate along the bar.
  ScrollZone ZoneAt(Twips along) const;
  // The coordinate along the bar of a point.
  Twips Along(TwipPoint at) const { return horizontal_ ? at.x : at.y; }
  // The value for a thumb that is dragged with the pointer at `along`, `anchor` being where the last step
  // left off. Raises 6 when the range does not fit 32 bits and the thumb is between its ends.
  std::int32_t DragValue(Twips along, Twips anchor, ScrollRange range) const;

 private:
  void FitThumb();

  TwipSize size_;
  bool horizontal_ = false;
  float twips_per_pixel_x_ = 15;
  float twips_per_pixel_y_ = 15;
  Twips button_;
  Twips thumb_position_;
  Twips wanted_thumb_length_;  // as of the last time Min or Max was set
  Twips thumb_length_;         // as far as there is room between the buttons
  PixelRect first_;
  PixelRect second_;
};

// One step toward an end, not beyond it. The sums are of 32 bits and raise 6 beyond them.
std::int32_t StepBack(std::int32_t value, std::int32_t step, ScrollRange range);
std::int32_t StepForward(std::int32_t value, std::int32_t step, ScrollRange range);

}  // namespace levelwidgets
