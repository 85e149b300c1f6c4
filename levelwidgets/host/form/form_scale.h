// Lengths on a form, in pixels and for the controls that it holds.
#pragma once

#include <levelwidgets/frame/units.h>
#include <levelwidgets/platform/screen.h>

namespace levelwidgets {

struct TwipPlace {
  TwipPoint position;
  TwipSize size;
};

// A form has 1440 twips to the inch at every resolution, so that it is twice as large at twice the
// resolution. A control, and all that it holds, has a whole number of twips to the pixel, which at 192 dots
// per inch is 8 and not 7.5: it gets more of them than the form gives it, in as many pixels as the form
// means.
class FormScale {
 public:
  explicit FormScale(ScreenApi& screen);

  // Of a pixel on the form.
  double TwipsPerPixelX() const { return across_.twips; }
  double TwipsPerPixelY() const { return down_.twips; }

  // Pixels of a point on the form, and of one in a control.
  PixelPoint OnForm(TwipPoint point) const { return {PixelsX(point.x), PixelsY(point.y)}; }
  PixelPoint InControl(TwipPoint point) const {
    return {ToPixels(point.x, across_.whole), ToPixels(point.y, down_.whole)};
  }

  int PixelsX(Twips length) const { return across_.Pixels(length); }
  int PixelsY(Twips length) const { return down_.Pixels(length); }
  Twips TwipsX(int pixels) const { return across_.ToForm(pixels); }
  Twips TwipsY(int pixels) const { return down_.ToForm(pixels); }

  // What a control at that place is given. Away from 96 dots per inch both edges become pixels by themselves,
  // so that neighbours which meet there meet everywhere.
  TwipPlace ForControl(TwipPoint position, TwipSize size) const;

 private:
  struct Axis {
    Axis(int dots_per_inch, float whole_twips);
    int Pixels(Twips length) const { return ToPixels(ToControl(length), whole); }
    Twips ToForm(int pixels) const { return Twips(static_cast<float>(pixels * twips)); }
    Twips ToControl(Twips length) const { return Twips(static_cast<float>(length.value * (whole / twips))); }
    Twips ControlLength(Twips start, Twips length) const;

    double twips;  // of a pixel, on the form
    float whole;   // the same in a control
  };

  Axis across_;
  Axis down_;
};

}  // namespace levelwidgets
