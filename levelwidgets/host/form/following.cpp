// How a form follows what the user and the system make of its window.
#include <levelwidgets/host/form/form.h>
#include <levelwidgets/host/form/form_scale.h>

namespace levelwidgets {

PixelSize Form::ClientSize() const {
  PixelRect client;
  platform_.Windows().GetClientRect(window_, client);
  return {client.width(), client.height()};
}

bool Form::Minimised() const {
  const auto style = static_cast<std::uint32_t>(platform_.Windows().GetWindowLongA(window_, kGwlStyle));
  return (style & kWsMinimize) != 0;
}

// A place that was set follows the window. The twips that were asked for stay as they are while the window is
// at exactly their pixels.
void Form::ClientMoved() {
  if (Minimised()) return;
  const PixelRect rect = ScreenRect();
  const FormScale scale(platform_.Screen());
  if (options_.left && scale.PixelsX(*options_.left) != rect.left) options_.left = scale.TwipsX(rect.left);
  if (options_.top && scale.PixelsY(*options_.top) != rect.top) options_.top = scale.TwipsY(rect.top);
}

// The twips that were asked for stay as they are while the window has the pixels that it got for them, which
// the system may have made more or fewer; a minimised form keeps its size and its controls' places.
void Form::ClientResized() {
  if (Minimised()) {
    Resize.Raise();
    return;
  }
  const PixelSize now = ClientSize();
  if (!sizing_ && now != client_size_) {
    const FormScale scale(platform_.Screen());
    options_.size = {scale.TwipsX(now.width), scale.TwipsY(now.height)};
  }
  client_size_ = now;
  for (const auto& control : std::vector(controls_)) control->FollowForm();
  if (window_) Resize.Raise();
}

}  // namespace levelwidgets
