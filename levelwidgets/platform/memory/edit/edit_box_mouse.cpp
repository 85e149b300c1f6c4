// The pointer in an edit box.
#include <algorithm>

#include <levelwidgets/platform/memory/edit/edit_box.h>
#include <levelwidgets/platform/memory/edit/words.h>

namespace levelwidgets::memory {

namespace {

constexpr std::uint32_t kDragScrollMs = 100;
constexpr int kWheelDelta = 120;
constexpr int kLinesPerNotch = 3;

}  // namespace

void EditBox::Press(PixelPoint point, bool extend) {
  WindowApi& windows = host_.Windows();
  if (!focused_) windows.SetFocus(window_);
  if (!window_) return;
  if (windows.GetCapture() != window_) windows.SetCapture(window_);
  StopDrag();
  dragging_ = true;
  drag_point_ = point;
  drag_timer_ = host_.StartTimer(kDragScrollMs, [this] { DragOn(); });
  const EditView::Hit hit = view_.At(point);
  buffer_.EndRun();
  MoveTo(hit.offset, extend, hit.after_wrap);
}

// The first click of the two has put the caret there.
void EditBox::DoubleClick() {
  const WordRange word = WordAround(buffer_.Text(), buffer_.Lines(), buffer_.Selected().caret);
  Select({word.start, word.end});
  ScrollToCaret();
}

// Outside the rectangle it selects up to the edge; scrolling is the timer's.
void EditBox::Drag(PixelPoint point) {
  if (!dragging_) return;
  drag_point_ = point;
  const PixelRect& rect = view_.Format().rect;
  const PixelPoint inside{std::clamp(point.x, rect.left, rect.right - 1),
                          std::clamp(point.y, rect.top, rect.bottom - 1)};
  const EditView::Hit hit = view_.At(inside);
  MoveTo(hit.offset, true, hit.after_wrap);
}

// One line, or a few characters, further in the pointer's direction.
void EditBox::DragOn() {
  const PixelRect& rect = view_.Format().rect;
  if (rect.Contains(drag_point_)) return;
  const int dx = 2 * metrics_.average_char_width;
  const PixelPoint beyond{std::clamp(drag_point_.x, rect.left - dx, rect.right + dx),
                          std::clamp(drag_point_.y, rect.top - 1, rect.bottom)};
  const EditView::Hit hit = view_.At(beyond);
  MoveTo(hit.offset, true, hit.after_wrap);
}

void EditBox::StopDragTimer() {
  if (drag_timer_) host_.StopTimer(drag_timer_);
  drag_timer_ = {};
}

void EditBox::StopDrag() {
  StopDragTimer();
  if (!dragging_) return;
  dragging_ = false;
  WindowApi& windows = host_.Windows();
  if (window_ && windows.GetCapture() == window_) windows.ReleaseCapture();
}

// Parts of a notch add up.
void EditBox::Wheel(int delta) {
  wheel_rest_ += delta;
  const int notches = wheel_rest_ / kWheelDelta;
  wheel_rest_ -= notches * kWheelDelta;
  ScrollBy(0, -notches * kLinesPerNotch, true);
}

}  // namespace levelwidgets::memory
