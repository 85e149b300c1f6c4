#include <levelwidgets/controls/dropdown/flat_drop_down.h>
#include <levelwidgets/frame/paint.h>

namespace levelwidgets {

void FlatDropDown::OnPaint() {
  Surface& surface = GetSurface();
  DrawingApi& drawing = surface.Drawing();
  const DcHandle dc = surface.hDC();
  const PixelRect& strip = Strip().Rect();

  surface.Cls();
  if (!HasEdit()) {
    PixelRect text{1, 1, strip.left - 2, strip.bottom - 1};
    drawing.SetTextColor(dc, TranslateColor(drawing, ForeColor()));
    const PixelRect focus{0, 0, text.right + 2, text.bottom + 1};
    drawing.DrawTextA(dc, Text(), text, 0);
    if (has_focus_) drawing.DrawFocusRect(dc, focus);
  }
  drawing.SetTextColor(dc, ColorRef{0});
  Strip().Paint();
}

}  // namespace levelwidgets
