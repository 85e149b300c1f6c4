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

  // In what the strips of controls differ.
  struct Rules {
    // Filled by a brush. Otherwise the fill is the colour of the whole surface.
    bool has_brush = false;
    // What the press of the left button shows.
    Color Colors::*pressed = &Colors::pushed;
    // A new colour at rest is the fill at once whatever the strip shows, not only at rest.
    bool rest_is_fill_at_once = false;
  };

  DropButton(Surface& surface, const Rules& rules);

  Colors colors;
  // The fill now, one of the three.
  Color Fill() const { return fill_; }
  void SetFill(Color fill);
  Color Pressed() const { return colors.*rules_.pressed; }
  void SetRestColor(Color color);

  // To be called when the surface has another size.
  void LayOut();
  // Where the strip begins; negative on a surface that is narrower.
  Twips Left() const { return surface_.ScaleWidth() - kWidth; }
  const PixelRect& Rect() const { return rect_; }

  // The fill where it is not the surface's, the arrow, and the line between the strip and what is beside it.
  void Paint();

 private:
  void PaintFill();
  void PaintArrow();

  Surface& surface_;
  Rules rules_;
  Color fill_;
  PixelRect rect_;
  DrawingObject glyph_font_;
};

}  // namespace levelwidgets
