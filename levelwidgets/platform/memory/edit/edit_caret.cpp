#include <levelwidgets/platform/memory/edit/edit_caret.h>

namespace levelwidgets::memory {

void EditCaret::Show(WindowHandle window, PixelRect place) {
  if (window == window_ && place == place_ && on_) return;
  Hide();
  window_ = window;
  place_ = place;
  timer_ = host_.StartTimer(kBlinkMs, [this] { Toggle(); });
  Toggle();
}

void EditCaret::Hide() {
  if (on_) Toggle();
  StopTimer();
  window_ = {};
}

void EditCaret::StopTimer() {
  if (timer_) host_.StopTimer(timer_);
  timer_ = {};
}

void EditCaret::Repaint() {
  if (on_ && !place_.empty()) host_.Invert(window_, place_);
}

void EditCaret::Toggle() {
  on_ = !on_;
  if (!place_.empty()) host_.Invert(window_, place_);
}

}  // namespace levelwidgets::memory
