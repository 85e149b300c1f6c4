// Rectangles, lines and copies.
#include <algorithm>

#include <levelwidgets/platform/memory/memory_drawing_state.h>
#include <levelwidgets/platform/memory/raster.h>

namespace levelwidgets::memory {

namespace {

constexpr int kPsInsideFrame = 6;

// Pixels on and off of the pen styles between solid and null; a wide pen is solid whatever its style.
Dashes DashesOf(const Pen& pen, const Context& context) {
  constexpr Dashes kStyles[] = {
      {}, {.on = 18, .off = 6}, {.on = 3, .off = 3}, {.on = 9, .off = 6}, {.on = 9, .off = 3}};
  if (pen.width > 1 || pen.style < 0 || pen.style >= kPsNull) return {};
  Dashes dashes = kStyles[pen.style];
  dashes.fill_gaps = context.background_mode == kOpaque;
  dashes.gap_color = Drawable(context.background_color);
  return dashes;
}

void FillInterior(const DrawingTarget& target, const Brush& brush, const PixelRect& rect) {
  if (!brush.null) FillArea(target, rect, brush.color);
}

// One line of dashes around, against the clock from the top right corner.
void DashedRectangle(const DrawingTarget& target, const PixelRect& rect, const Context& context,
                     Dashes dashes) {
  FillInterior(target, context.brush, rect.Inset(1));
  const PixelPoint corners[] = {{rect.right - 1, rect.top},
                                {rect.left, rect.top},
                                {rect.left, rect.bottom - 1},
                                {rect.right - 1, rect.bottom - 1},
                                {rect.right - 1, rect.top}};
  for (int i = 0; i < 4; ++i) {
    DrawLine(target, corners[i], corners[i + 1], context.pen.color, dashes);
    dashes.phase += (i % 2 == 0 ? rect.width() : rect.height()) - 1;
  }
}

// A wide pen runs along the middle of its line; an inside-frame pen stays within the rectangle.
PixelRect OuterEdge(const Pen& pen, const PixelRect& rect) {
  if (pen.style == kPsInsideFrame) return rect;
  const int before = pen.width / 2;
  const int after = pen.width - before - 1;
  return {rect.left - before, rect.top - before, rect.right + after, rect.bottom + after};
}

}  // namespace

bool MemoryDrawing::Rectangle(DcHandle dc, PixelRect rect) {
  Context* context = state_->FindContext(dc);
  if (!context) return false;
  rect = Ordered(Reachable(rect));
  if (rect.empty()) return true;
  // A line leaves out its last point, and here that is all there is.
  const bool is_point = rect.width() == 1 && rect.height() == 1;
  const DrawingTarget& target = context->Target();
  const Pen& pen = context->pen;
  if (pen.style == kPsNull) {
    // Without a pen the rectangle is one pixel less wide and high.
    FillInterior(target, context->brush, {rect.left, rect.top, rect.right - 1, rect.bottom - 1});
    return true;
  }
  if (pen.width == 1 && is_point) return true;
  const Dashes dashes = DashesOf(pen, *context);
  if (dashes.off > 0) {
    DashedRectangle(target, rect, *context, dashes);
    return true;
  }
  const PixelRect outer = pen.width == 1 ? rect : OuterEdge(pen, rect);
  FillInterior(target, context->brush, outer.Inset(pen.width));
  FillFrame(target, outer, pen.width, pen.color);
  return true;
}

bool MemoryDrawing::FillRect(DcHandle dc, PixelRect rect, ObjectHandle brush) {
  Context* context = state_->FindContext(dc);
  const DrawingObject* object = state_->objects.Find(brush.value);
  if (!context || !object || object->kind != ObjectKind::kBrush) return false;
  FillInterior(context->Target(), object->brush, Covered(Reachable(rect)));
  return true;
}

bool MemoryDrawing::MoveTo(DcHandle dc, PixelPoint point) {
  Context* context = state_->FindContext(dc);
  if (!context) return false;
  context->position = Reachable(point);
  return true;
}

bool MemoryDrawing::LineTo(DcHandle dc, PixelPoint point) {
  Context* context = state_->FindContext(dc);
  if (!context) return false;
  const Pen& pen = context->pen;
  point = Reachable(point);
  const PixelPoint from = std::exchange(context->position, point);
  if (pen.style == kPsNull) return true;
  if (pen.width > 1) {
    DrawWideLine(context->Target(), from, point, pen.width, pen.color);
  } else {
    DrawLine(context->Target(), from, point, pen.color, DashesOf(pen, *context));
  }
  return true;
}

bool MemoryDrawing::DrawFocusRect(DcHandle dc, PixelRect rect) {
  Context* context = state_->FindContext(dc);
  if (!context) return false;
  InvertDottedFrame(context->Target(), Ordered(Reachable(rect)));
  return true;
}

bool MemoryDrawing::BitBlt(DcHandle target, PixelRect rect, DcHandle source, PixelPoint source_origin,
                           std::uint32_t raster_operation) {
  Context* to = state_->FindContext(target);
  Context* from = state_->FindContext(source);
  if (!to || !from || raster_operation != kSrcCopy) return false;
  if (rect != Reachable(rect) || source_origin != Reachable(source_origin)) return false;
  const PixelRect covered = Covered(rect);
  // The source is the same way round: nothing is mirrored.
  const PixelPoint origin{source_origin.x + covered.left - rect.left,
                          source_origin.y + covered.top - rect.top};
  CopyArea(to->Target(), covered, from->Target(), origin, state_->copied);
  return true;
}

ColorRef MemoryDrawing::GetPixel(DcHandle dc, PixelPoint point) {
  ColorRef color = kInvalidColorRef;
  Context* context = state_->FindContext(dc);
  if (!context || point != Reachable(point)) return color;
  ForEachPart(context->Target(), {point.x, point.y, point.x + 1, point.y + 1},
              [&](const PixelRect&, auto row) { color = {row(point.y)[point.x]}; });
  return color;
}

}  // namespace levelwidgets::memory
