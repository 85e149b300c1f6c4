#include <levelwidgets/frame/parts/windowless_part.h>

#include <levelwidgets/frame/parts/picture_box.h>

namespace levelwidgets {

WindowlessPart::WindowlessPart(PictureBox& panel) : panel_(panel) { panel_.Add(*this); }

WindowlessPart::~WindowlessPart() { panel_.Remove(*this); }

void WindowlessPart::SetVisible(bool visible) {
  visible_ = visible;
  Changed();
}

void WindowlessPart::Changed() const { panel_.Invalidate(); }

PixelPoint WindowlessPart::ToPixel(TwipPoint at) const {
  ScreenApi& screen = panel_.GetSurface().GetPlatform().Screen();
  return {ToPixels(at.x, screen.TwipsPerPixelX()), ToPixels(at.y, screen.TwipsPerPixelY())};
}

}  // namespace levelwidgets
