#include <levelwidgets/frame/parts/line_shape.h>

#include <levelwidgets/frame/paint.h>
#include <levelwidgets/frame/parts/picture_box.h>

namespace levelwidgets {

LineShape::LineShape(PictureBox& panel) : WindowlessPart(panel), color_(panel.ForeColor()) {}

void LineShape::Move(TwipPoint start, TwipPoint end) {
  start_ = start;
  end_ = end;
  Changed();
}

void LineShape::SetBorderColor(Color color) {
  color_ = color;
  Changed();
}

void LineShape::Paint(Surface& surface) {
  DrawingApi& drawing = surface.Drawing();
  const DcHandle dc = surface.hDC();
  const DrawingObject pen(drawing, drawing.CreatePen(kPsSolid, 1, TranslateColor(drawing, color_)));
  const Selection selection(drawing, dc, pen.Handle());
  // There and back, because a line leaves out the point where it ends.
  drawing.MoveTo(dc, ToPixel(start_));
  drawing.LineTo(dc, ToPixel(end_));
  drawing.LineTo(dc, ToPixel(start_));
}

}  // namespace levelwidgets
