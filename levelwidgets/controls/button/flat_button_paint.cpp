#include <levelwidgets/controls/button/flat_button.h>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/frame/paint.h>

namespace levelwidgets {

void FlatButton::OnPaint() {
  Surface& surface = GetSurface();
  DrawingApi& drawing = surface.Drawing();
  const DcHandle dc = surface.hDC();

  surface.Cls();
  drawing.Rectangle(dc, client_);
  if (DisplaysAsDefault()) drawing.Rectangle(dc, client_.Inset(1));
  if (has_focus_) drawing.DrawFocusRect(dc, client_.Inset(4));
  drawing.SetTextColor(dc, TranslateColor(drawing, surface.Enabled() ? fore_color_ : fore_color_disabled_));
  PixelRect text = client_;
  drawing.DrawTextA(dc, caption_, text, kDtSingleLine | kDtVCenter | kDtCenter);
}

// A container without this ambient property gives no second frame.
bool FlatButton::DisplaysAsDefault() const {
  try {
    return Site().DisplayAsDefault();
  } catch (const Error&) {
    return false;
  }
}

void FlatButton::ShowBackColor(Color color) {
  GetSurface().SetBackColor(color);
  OnPaint();
}

}  // namespace levelwidgets
