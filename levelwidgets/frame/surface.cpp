#include <levelwidgets/frame/paint.h>
#include <levelwidgets/frame/surface.h>

namespace levelwidgets {

Surface::Surface(Platform& platform, WindowHandle parent, WindowClient& client, SurfaceLook look)
    : platform_(platform), back_color_(look.back_color), fore_color_(look.fore_color) {
  WindowRequest request;
  request.style = kWsChild | kWsClipSiblings | kWsClipChildren;
  request.parent = parent;
  request.client = &client;
  window_ = Windows().CreateWindowExA(request);
  dc_ = Windows().GetDC(window_);
  Drawing().SelectObject(dc_, Drawing().GetStockObject(kNullBrush));
  Drawing().SetBkMode(dc_, kTransparent);
  SetForeColor(fore_color_);
  SetFont(MakeFont(std::move(look.font)));
}

Surface::~Surface() {
  const WindowHandle window = window_;
  WindowLost();
  if (window) Windows().DestroyWindow(window);
}

void Surface::WindowLost() {
  if (font_) font_->Forget(font_token_);
  if (dc_) DeselectFrom(dc_);
  for (; redirection_; redirection_ = redirection_->outer_) redirection_->surface_ = nullptr;
  pen_.Reset();
  font_object_.Reset();
  font_token_ = 0;
  dc_ = {};
  window_ = {};
}

void Surface::SelectInto(DcHandle dc) {
  Drawing().SelectObject(dc, Drawing().GetStockObject(kNullBrush));
  Drawing().SetBkMode(dc, kTransparent);
  if (pen_.Handle()) Drawing().SelectObject(dc, pen_.Handle());
  if (font_object_.Handle()) Drawing().SelectObject(dc, font_object_.Handle());
  Drawing().SetTextColor(dc, TranslateColor(Drawing(), fore_color_));
}

// So that the objects can be deleted.
void Surface::DeselectFrom(DcHandle dc) {
  Drawing().SelectObject(dc, Drawing().GetStockObject(kBlackPen));
  Drawing().SelectObject(dc, Drawing().GetStockObject(kSystemFont));
}

Surface::Redirection::Redirection(Surface& surface, DcHandle target)
    : surface_(surface.dc_ ? &surface : nullptr), own_(surface.dc_), outer_(surface.redirection_) {
  if (!surface_) return;
  surface_->DeselectFrom(own_);
  surface_->dc_ = target;
  surface_->SelectInto(target);
  surface_->redirection_ = this;
}

Surface::Redirection::~Redirection() {
  if (!surface_) return;
  surface_->DeselectFrom(surface_->dc_);
  surface_->dc_ = own_;
  surface_->SelectInto(own_);
  surface_->redirection_ = outer_;
}

void Surface::SetForeColor(Color color) {
  fore_color_ = color;
  if (!dc_) return;
  const ColorRef concrete = TranslateColor(Drawing(), color);
  DrawingObject pen(Drawing(), Drawing().CreatePen(kPsSolid, 1, concrete));
  Drawing().SelectObject(dc_, pen.Handle());
  pen_ = std::move(pen);
  Drawing().SetTextColor(dc_, concrete);
}

void Surface::SetEnabled(bool enabled) {
  enabled_ = enabled;
  if (window_) Windows().EnableWindow(window_, enabled);
}

void Surface::SetFont(FontRef font) {
  if (font_) font_->Forget(font_token_);
  font_ = std::move(font);
  if (!font_ || !window_) return;
  font_token_ = font_->Observe([this] { ApplyFont(); });
  ApplyFont();
}

void Surface::ApplyFont() {
  if (!dc_) return;
  DrawingObject object = MakeFontObject(*font_);
  Drawing().SelectObject(dc_, object.Handle());
  font_object_ = std::move(object);
}

DrawingObject Surface::MakeFontObject(const Font& font) const {
  const int pixels_per_inch = Drawing().GetDeviceCaps(dc_, kLogPixelsY);
  return {Drawing(), Drawing().CreateFontA(RequestFor(font.Description(), pixels_per_inch))};
}

PixelRect Surface::ClientPixels() const {
  ScreenApi& screen = platform_.Screen();
  return {0, 0, ToPixels(scale_.width, screen.TwipsPerPixelX()),
          ToPixels(scale_.height, screen.TwipsPerPixelY())};
}

bool Surface::Move(TwipPoint position, TwipSize size) {
  const bool resized = size != scale_;
  scale_ = size;
  ScreenApi& screen = platform_.Screen();
  const PixelRect client = ClientPixels();
  const int left = ToPixels(position.x, screen.TwipsPerPixelX());
  const int top = ToPixels(position.y, screen.TwipsPerPixelY());
  if (window_) {
    Windows().SetWindowPos(window_, {}, client.Offset(left, top), kSwpNoZOrder | kSwpNoActivate);
  }
  return resized;
}

void Surface::FitToClient() {
  PixelRect client;
  if (!Windows().GetClientRect(window_, client)) return;
  ScreenApi& screen = platform_.Screen();
  const PixelRect scale = ClientPixels();
  if (client.width() != scale.width()) scale_.width = ToTwips(client.width(), screen.TwipsPerPixelX());
  if (client.height() != scale.height()) scale_.height = ToTwips(client.height(), screen.TwipsPerPixelY());
}

void Surface::SetVisible(bool visible) {
  if (window_) Windows().ShowWindow(window_, visible ? kSwShowNoActivate : kSwHide);
}

void Surface::Cls() {
  if (!dc_) return;
  const DrawingObject brush(Drawing(), Drawing().CreateSolidBrush(TranslateColor(Drawing(), back_color_)));
  Drawing().FillRect(dc_, ClientPixels(), brush.Handle());
}

void Surface::Refresh() {
  if (!window_) return;
  Windows().InvalidateRect(window_);
  Windows().UpdateWindow(window_);
}

}  // namespace levelwidgets
