// The strip with an arrow at the right edge of a control, which drops its panel down.
#pragma once

#include <levelwidgets/frame/drawing_objects.h>
#include <levelwidgets/frame/surface.h>

namespace levelwidgets {

// Where the strip is and what it shows; what the pointer does to it is the control's business.
class DropButton {
 public:
  static constexpr Twips kWidth{200};

  struct Colors {
    Color rest{0x00CEDBDEu};
    Color mouse_over{0x00DEE7EFu};
    Color pushed{0x00BDCBCEu};
  };

  explicit DropButton(Surface& surface);

  Colors colors;
  // The fill now, one of the three.
  Color Fill() const { return fill_; }
  // Whether that is another one.
  bool SetFill(Color fill);

  // To be called when the surface has another size.
  void LayOut();
  // Where the strip begins; negative on a surface that is narrower.
  Twips Left() const { return surface_.ScaleWidth() - kWidth; }
  const PixelRect& Rect() const { return rect_; }

  // Fills the strip.
  void PaintFill();
  // The arrow, and the line between the strip and what is beside it.
  void PaintArrow();

 private:
  Surface& surface_;
  Color fill_;
  PixelRect rect_;
  DrawingObject glyph_font_;
};

}  // namespace levelwidgets
