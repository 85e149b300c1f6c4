#include <levelwidgets/frame/parts/frame_box.h>

#include <algorithm>

#include <levelwidgets/frame/paint.h>

namespace levelwidgets {

namespace {

constexpr Color kFrameLine{0x80000010u};
constexpr Twips kCaptionLeft(120);
constexpr Twips kCaptionMargin(30);  // between the line and the text

void PaintFrameLine(const Surface& surface, const PixelRect& rect) {
  DrawingApi& drawing = surface.Drawing();
  const DrawingObject pen(drawing, drawing.CreatePen(kPsSolid, 1, TranslateColor(drawing, kFrameLine)));
  const Selection selection(drawing, surface.hDC(), pen.Handle());
  drawing.Rectangle(surface.hDC(), rect);
}

// Where the text is, as long as it is and at most to the line on the right.
PixelRect FrameCaptionRect(const Surface& surface, std::string_view caption) {
  const float twips_per_pixel = surface.GetPlatform().Screen().TwipsPerPixelX();
  const int left = ToPixels(kCaptionLeft, twips_per_pixel);
  PixelRect extent;
  surface.Drawing().DrawTextA(surface.hDC(), caption, extent, kDtSingleLine | kDtCalcRect);
  return {left, 0, std::min(left + extent.width(), surface.ClientPixels().right - left), extent.height()};
}

}  // namespace

void PaintFrame(const Surface& surface, std::string_view caption) {
  PixelRect rect = surface.ClientPixels();
  if (caption.empty()) return PaintFrameLine(surface, rect);
  PixelRect text = FrameCaptionRect(surface, caption);
  rect.top = text.height() / 2;
  PaintFrameLine(surface, rect);
  if (text.right <= text.left) return;  // there is no room for any text
  DrawingApi& drawing = surface.Drawing();
  const int margin = ToPixels(kCaptionMargin, surface.GetPlatform().Screen().TwipsPerPixelX());
  const DrawingObject brush(drawing, drawing.CreateSolidBrush(TranslateColor(drawing, surface.BackColor())));
  drawing.FillRect(surface.hDC(), {text.left - margin, text.top, text.right + margin, text.bottom},
                   brush.Handle());
  drawing.DrawTextA(surface.hDC(), caption, text, kDtSingleLine);
}

FrameBox::FrameBox(PartHost& owner) : PictureBox(owner) {
  Paint += [this] { PaintFrame(GetSurface(), caption_); };
}

void FrameBox::SetCaption(std::string caption) {
  caption_ = std::move(caption);
  Invalidate();
}

}  // namespace levelwidgets
