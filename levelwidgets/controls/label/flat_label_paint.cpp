#include <levelwidgets/controls/label/flat_label.h>

namespace levelwidgets {

void FlatLabel::OnPaint() {
  Surface& surface = GetSurface();
  surface.Cls();
  PixelRect text = client_;
  surface.Drawing().DrawTextA(surface.hDC(), caption_, text,
                              DrawTextAlignment(alignment_) | kDtSingleLine | kDtVCenter);
}

void FlatLabel::ShowColors(Color back, Color fore) {
  GetSurface().SetBackColor(back);
  GetSurface().SetForeColor(fore);
}

}  // namespace levelwidgets
