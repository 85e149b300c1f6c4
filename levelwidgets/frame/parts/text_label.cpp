#include <levelwidgets/frame/parts/text_label.h>

#include <levelwidgets/frame/paint.h>
#include <levelwidgets/frame/parts/picture_box.h>

namespace levelwidgets {

TextLabel::TextLabel(PictureBox& panel)
    : WindowlessPart(panel), back_color_(panel.BackColor()), fore_color_(panel.ForeColor()) {}

TextLabel::~TextLabel() {
  if (font_) font_->Forget(font_token_);
}

void TextLabel::SetCaption(std::string caption) {
  caption_ = std::move(caption);
  Changed();
}

void TextLabel::SetBackColor(Color color) {
  back_color_ = color;
  Changed();
}

void TextLabel::SetForeColor(Color color) {
  fore_color_ = color;
  Changed();
}

void TextLabel::SetFont(FontRef font) {
  if (font_) font_->Forget(font_token_);
  font_ = std::move(font);
  if (font_) font_token_ = font_->Observe([this] { FontChanged(); });
  FontChanged();
}

void TextLabel::FontChanged() {
  font_object_.Reset();
  Changed();
}

void TextLabel::SetAlignment(ksxAlignmentConstants alignment) {
  alignment_ = alignment;
  Changed();
}

void TextLabel::Move(TwipPoint position, TwipSize size) {
  position_ = position;
  size_ = size;
  Changed();
}

PixelRect TextLabel::Pixels() const {
  const PixelPoint corner = ToPixel(position_);
  const PixelPoint size = ToPixel({size_.width, size_.height});
  return {corner.x, corner.y, corner.x + size.x, corner.y + size.y};
}

void TextLabel::Paint(Surface& surface) {
  DrawingApi& drawing = surface.Drawing();
  const DcHandle dc = surface.hDC();
  PixelRect rect = Pixels();
  const DrawingObject brush(drawing, drawing.CreateSolidBrush(TranslateColor(drawing, back_color_)));
  drawing.FillRect(dc, rect, brush.Handle());
  const Selection font(drawing, dc, FontObject(surface));
  const ColorRef former = drawing.SetTextColor(dc, TranslateColor(drawing, fore_color_));
  drawing.DrawTextA(dc, caption_, rect, DrawTextAlignment(alignment_) | kDtWordBreak);
  drawing.SetTextColor(dc, former);
}

ObjectHandle TextLabel::FontObject(Surface& surface) {
  if (!font_) return surface.FontObject();
  if (!font_object_.Handle()) font_object_ = surface.MakeFontObject(*font_);
  return font_object_.Handle();
}

}  // namespace levelwidgets
