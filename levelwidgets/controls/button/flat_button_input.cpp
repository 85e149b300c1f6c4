#include <levelwidgets/controls/button/flat_button.h>

namespace levelwidgets {

void FlatButton::OnMouseDown(const PointerInput& input) {
  if (input.button == kLeftButton) {
    has_focus_ = true;
    ShowBackColor(back_color_pushed_);
  }
  Raise(MouseDown, input);
}

void FlatButton::OnMouseMove(const PointerInput& input) {
  // The colour shown is the state: a pushed button becomes a highlighted one at the first move, and a
  // BackColorMouseOver equal to the normal colour makes every move look like one over a highlighted button.
  hover_.Move(
      input.at, GetSurface().BackColor() == back_color_mouse_over_,
      [this] { ShowBackColor(back_color_mouse_over_); }, [this] { GetSurface().SetBackColor(back_color_); },
      [this] { OnPaint(); });
  Raise(MouseMove, input);
}

void FlatButton::OnMouseUp(const PointerInput& input) {
  ShowBackColor(back_color_mouse_over_);
  hover_.Capture();  // the release has ended the capture
  Raise(MouseUp, input);
}

void FlatButton::OnClick() {
  Surface& surface = GetSurface();
  if (surface.ForeColor() != fore_color_ || surface.BackColor() != back_color_) {
    surface.SetForeColor(fore_color_);
    ShowBackColor(back_color_);
    hover_.Capture();
  }
  Click.Raise();
}

// A disabled button hears of no move that would restore its colour.
void FlatButton::EndFeedback() {
  GetSurface().SetBackColor(back_color_);
  hover_.Release();
}

void FlatButton::OnAccessKeyPress(std::int16_t) { Click.Raise(); }

void FlatButton::OnAmbientChanged(std::string_view name) {
  if (name == "DisplayAsDefault") OnPaint();
}

}  // namespace levelwidgets
