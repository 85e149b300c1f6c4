// A line on a panel.
#pragma once

#include <levelwidgets/frame/parts/windowless_part.h>

namespace levelwidgets {

// One pixel wide, with both its ends. The pointer passes through it. Setters repaint with the panel's next
// paint.
class LineShape : public WindowlessPart {
 public:
  explicit LineShape(PictureBox& panel);

  TwipPoint Start() const { return start_; }
  TwipPoint End() const { return end_; }
  // In twips of the panel.
  void Move(TwipPoint start, TwipPoint end);
  // The panel's ForeColor at first.
  Color BorderColor() const { return color_; }
  void SetBorderColor(Color color);

  void Paint(Surface& surface) override;

 private:
  TwipPoint start_;
  TwipPoint end_;
  Color color_;
};

}  // namespace levelwidgets
