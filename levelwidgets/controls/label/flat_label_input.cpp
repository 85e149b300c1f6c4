#include <levelwidgets/controls/label/flat_label.h>

namespace levelwidgets {

void FlatLabel::OnMouseDown(const PointerInput& input) {
  if (input.button == kLeftButton) {
    has_focus_ = true;
    ShowColors(back_color_pushed_, fore_color_pushed_);
    OnPaint();
  }
  Raise(MouseDown, input);
}

void FlatLabel::OnMouseMove(const PointerInput& input) {
  Surface& surface = GetSurface();
  if (mouse_underline_) surface.GetFont()->SetUnderline(true);
  // The colours shown are the state.
  if (surface.ForeColor() != fore_color_mouse_over_ || surface.BackColor() != back_color_mouse_over_) {
    ShowColors(back_color_mouse_over_, fore_color_mouse_over_);
    OnPaint();
    hover_.Start();
  }
  Raise(MouseMove, input);
}

void FlatLabel::OnMouseUp(const PointerInput& input) {
  RestoreUnderline();
  if (IsOutside(GetSurface(), input.at)) {
    ShowColors(back_color_, fore_color_);
  } else {
    ShowColors(back_color_mouse_over_, fore_color_mouse_over_);
  }
  OnPaint();
  Raise(MouseUp, input);
}

void FlatLabel::PointerLeft() {
  ShowColors(back_color_, fore_color_);
  RestoreUnderline();
  OnPaint();
}

void FlatLabel::RestoreUnderline() {
  const FontRef& font = GetSurface().GetFont();
  if (font->Underline() != font_underline_) font->SetUnderline(font_underline_);
}

void FlatLabel::OnAccessKeyPress(std::int16_t) { Click.Raise(); }

void FlatLabel::OnResize() {
  client_ = GetSurface().ClientPixels();
  OnPaint();
}

}  // namespace levelwidgets
