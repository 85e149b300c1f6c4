// Colour translation and the fill procedure that all painting shares.
#pragma once

#include <levelwidgets/frame/drawing_objects.h>
#include <levelwidgets/platform/drawing.h>

namespace levelwidgets {

// The concrete colour of `color`; kInvalidColorRef (-1) for one that cannot be translated, which is handed
// on to the drawing operation as it is.
ColorRef TranslateColor(DrawingApi& drawing, Color color, std::uint32_t palette = 0);

// Fills `rect` with `color` and outlines it in the context's pen, then calls `draw_on_top()` while the
// brush is still selected. The brush lives for this call only.
template <typename DrawOnTop>
void FillOutlined(DrawingApi& drawing, DcHandle dc, PixelRect rect, Color color, DrawOnTop draw_on_top) {
  const DrawingObject brush(drawing, drawing.CreateSolidBrush(TranslateColor(drawing, color)));
  const Selection selection(drawing, dc, brush.Handle());
  drawing.Rectangle(dc, rect);
  draw_on_top();
}

inline void FillOutlined(DrawingApi& drawing, DcHandle dc, PixelRect rect, Color color) {
  FillOutlined(drawing, dc, rect, color, [] {});
}

}  // namespace levelwidgets
