#include <levelwidgets/frame/parts/drop_button.h>

#include <levelwidgets/frame/paint.h>

namespace levelwidgets {

namespace {

constexpr std::string_view kArrow = "6";  // in the symbol font
constexpr std::uint32_t kArrowFormat = kDtSingleLine | kDtVCenter | kDtRight;

FontRequest GlyphFont() {
  FontRequest request;
  request.height = 12;
  request.weight = 400;
  request.charset = kSymbolCharset;
  request.output_precision = 4;
  request.face_name = "Marlett";
  return request;
}

}  // namespace

DropButton::DropButton(Surface& surface, const Rules& rules)
    : surface_(surface),
      rules_(rules),
      glyph_font_(surface.Drawing(), surface.Drawing().CreateFontA(GlyphFont())) {
  SetFill(colors.rest);
}

void DropButton::SetFill(Color fill) {
  fill_ = fill;
  if (!rules_.has_brush) surface_.SetBackColor(fill);
}

void DropButton::SetRestColor(Color color) {
  const bool shows = rules_.rest_is_fill_at_once || fill_ == colors.rest;
  colors.rest = color;
  if (shows) SetFill(color);
}

void DropButton::LayOut() {
  const PixelRect client = surface_.ClientPixels();
  const float twips = surface_.GetPlatform().Screen().TwipsPerPixelX();
  rect_ = {ToPixels(Left(), twips), 0, client.right, client.bottom};
}

void DropButton::Paint() {
  if (rules_.has_brush) PaintFill();
  PaintArrow();
}

void DropButton::PaintFill() {
  DrawingApi& drawing = surface_.Drawing();
  const DrawingObject brush(drawing, drawing.CreateSolidBrush(TranslateColor(drawing, fill_)));
  drawing.FillRect(surface_.hDC(), rect_, brush.Handle());
}

void DropButton::PaintArrow() {
  DrawingApi& drawing = surface_.Drawing();
  const DcHandle dc = surface_.hDC();
  {
    const Selection font(drawing, dc, glyph_font_.Handle());
    PixelRect place = rect_;
    drawing.DrawTextA(dc, kArrow, place, kArrowFormat);
  }
  drawing.MoveTo(dc, {rect_.left, 0});
  drawing.LineTo(dc, {rect_.left, rect_.bottom});
}

}  // namespace levelwidgets
