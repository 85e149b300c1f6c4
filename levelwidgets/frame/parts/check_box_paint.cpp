#include <levelwidgets/frame/parts/check_box.h>

#include <algorithm>

#include <levelwidgets/frame/paint.h>
#include <levelwidgets/platform/system_colors.h>

namespace levelwidgets {

namespace {

constexpr Twips kBoxLength(195);
constexpr Twips kGapBesideBox(90);

// `share` fifths of `other` in `color`.
ColorRef Mixed(ColorRef color, ColorRef other, std::uint32_t share) {
  ColorRef mixed{};
  for (const int shift : {0, 8, 16}) {
    const std::uint32_t channel =
        ((color.value >> shift & 0xFF) * (5 - share) + (other.value >> shift & 0xFF) * share) / 5;
    mixed.value |= channel << shift;
  }
  return mixed;
}

}  // namespace

void CheckBox::OnPaint() {
  Surface& surface = GetSurface();
  DrawingApi& drawing = surface.Drawing();
  const PixelRect box = Box();
  PixelRect text = CaptionRect(box);
  surface.Cls();
  PaintBox(box);
  if (value_ == kChecked) PaintMark(box);
  if (has_focus_) PaintFocus(box, text);
  drawing.SetTextColor(surface.hDC(), TranslateColor(drawing, Enabled() ? ForeColor() : kGrayText));
  drawing.DrawTextA(surface.hDC(), caption_, text, kDtSingleLine);
}

// In the middle of the left edge.
PixelRect CheckBox::Box() const {
  ScreenApi& screen = GetSurface().GetPlatform().Screen();
  const int width = ToPixels(kBoxLength, screen.TwipsPerPixelX());
  const int height = ToPixels(kBoxLength, screen.TwipsPerPixelY());
  const int top = (client_.height() - height) / 2;
  return {0, top, width, top + height};
}

// With more of the highlight colour the more the box is in use: the mark can be read on it in each palette.
Color CheckBox::Fill() const {
  if (!Enabled()) return BackColor();
  const bool held = space_is_down_ || (pressed_ && under_pointer_);
  if (!held && !under_pointer_) return kWindowBack;
  DrawingApi& drawing = GetSurface().Drawing();
  const ColorRef mixed =
      Mixed(TranslateColor(drawing, kWindowBack), TranslateColor(drawing, kHighlight), held ? 2 : 1);
  return Color(mixed.value);
}

void CheckBox::PaintBox(const PixelRect& box) const {
  DrawingApi& drawing = GetSurface().Drawing();
  const ColorRef line = TranslateColor(drawing, Enabled() ? kWindowFrame : kGrayText);
  const DrawingObject pen(drawing, drawing.CreatePen(kPsSolid, 1, line));
  const Selection selection(drawing, GetSurface().hDC(), pen.Handle());
  FillOutlined(drawing, GetSurface().hDC(), box, Fill());
}

// Drawn column by column, because a symbol font need not be there. It goes down to the right, and up again;
// its points are given in thirteenths of the box.
void CheckBox::PaintMark(const PixelRect& box) const {
  const auto across = [&box](int part) { return box.left + box.width() * part / 13; };
  const auto down = [&box](int part) { return box.top + box.height() * part / 13; };
  const PixelPoint begin{across(3), down(5)}, turn{across(5), down(7)}, end{across(9), down(3)};
  const int thickness = std::max(1, box.height() * 3 / 13);
  const auto between = [](PixelPoint from, PixelPoint to, int column) {
    return from.y + (to.y - from.y) * (column - from.x) / std::max(1, to.x - from.x);
  };

  DrawingApi& drawing = GetSurface().Drawing();
  const DcHandle dc = GetSurface().hDC();
  const ColorRef color = TranslateColor(drawing, Enabled() ? kWindowText : kGrayText);
  const DrawingObject pen(drawing, drawing.CreatePen(kPsSolid, 1, color));
  const Selection selection(drawing, dc, pen.Handle());
  for (int column = begin.x; column <= end.x; ++column) {
    const int top = column < turn.x ? between(begin, turn, column) : between(turn, end, column);
    drawing.MoveTo(dc, {column, top});
    drawing.LineTo(dc, {column, top + thickness});
  }
}

// As long as the text, at most to the right edge.
PixelRect CheckBox::CaptionRect(const PixelRect& box) const {
  const int left = box.right + ToPixels(kGapBesideBox, GetSurface().GetPlatform().Screen().TwipsPerPixelX());
  PixelRect extent;
  GetSurface().Drawing().DrawTextA(GetSurface().hDC(), caption_, extent, kDtSingleLine | kDtCalcRect);
  const int top = (client_.height() - extent.height()) / 2;
  return {left, top, std::min(left + extent.width(), client_.right), top + extent.height()};
}

// Around the caption; inside the box when the caption is empty.
void CheckBox::PaintFocus(const PixelRect& box, const PixelRect& text) const {
  PixelRect frame = box.Inset(2);
  if (!caption_.empty()) {
    frame = {text.left - 2, std::max(0, text.top - 1), std::min(text.right + 2, client_.right),
             std::min(text.bottom + 1, client_.bottom)};
  }
  GetSurface().Drawing().DrawFocusRect(GetSurface().hDC(), frame);
}

}  // namespace levelwidgets
