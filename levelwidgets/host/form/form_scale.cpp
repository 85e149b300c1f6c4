#include <levelwidgets/host/form/form_scale.h>

namespace levelwidgets {

namespace {
constexpr double kTwipsPerInch = 1440;
// Of the resolution that forms are designed at, to the pixel: 96 dots per inch.
constexpr double kDesignTwips = 15;
}  // namespace

FormScale::Axis::Axis(int dots_per_inch, float whole_twips)
    : twips(kTwipsPerInch / dots_per_inch), whole(whole_twips) {}

// As it is where the form was designed, or where that is as many pixels as there are between the edges.
Twips FormScale::Axis::ControlLength(Twips start, Twips length) const {
  if (twips == kDesignTwips) return length;
  const int pixels = Pixels(start + length) - Pixels(start);
  return Pixels(length) == pixels ? ToControl(length) : ToTwips(pixels, whole);
}

FormScale::FormScale(ScreenApi& screen)
    : across_(screen.DotsPerInch().width, screen.TwipsPerPixelX()),
      down_(screen.DotsPerInch().height, screen.TwipsPerPixelY()) {}

TwipPlace FormScale::ForControl(TwipPoint position, TwipSize size) const {
  return {{across_.ToControl(position.x), down_.ToControl(position.y)},
          {across_.ControlLength(position.x, size.width), down_.ControlLength(position.y, size.height)}};
}

}  // namespace levelwidgets
