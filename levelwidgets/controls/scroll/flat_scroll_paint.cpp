#include <levelwidgets/controls/scroll/flat_scroll.h>

#include <levelwidgets/frame/paint.h>

namespace levelwidgets {

void FlatScroll::OnPaint() {
  Surface& surface = GetSurface();
  const bool horizontal = layout_.Horizontal();
  surface.Cls();
  PaintButton(layout_.FirstButton(), horizontal ? "3" : "5", ButtonState::kFirstMouseOver,
              ButtonState::kFirstPushed);
  PaintButton(layout_.SecondButton(), horizontal ? "4" : "6", ButtonState::kSecondMouseOver,
              ButtonState::kSecondPushed);
  if (surface.Enabled() && layout_.ShowsThumb()) {
    FillOutlined(surface.Drawing(), surface.hDC(), layout_.Thumb(), button_color_);
  }
}

void FlatScroll::PaintButton(PixelRect box, std::string_view glyph, ButtonState mouse_over,
                             ButtonState pushed) {
  const Color fill = button_state_ == mouse_over ? button_color_mouse_over_
                     : button_state_ == pushed   ? button_color_pushed_
                                                 : button_color_;
  Surface& surface = GetSurface();
  FillOutlined(surface.Drawing(), surface.hDC(), box, fill, [&] {
    PixelRect text = box;
    surface.Drawing().DrawTextA(surface.hDC(), glyph, text, kDtSingleLine | kDtVCenter | kDtCenter);
  });
}

}  // namespace levelwidgets
