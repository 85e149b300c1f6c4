// The pointer in an edit box.
#include <algorithm>
#include <cstdlib>
#include <utility>

#include <levelwidgets/platform/memory/edit/edit_box.h>

namespace levelwidgets::memory {

namespace {

constexpr std::uint32_t kDragScrollMs = 100;

}  // namespace

void EditBox::Press(PixelPoint point, bool extend) {
  // A hidden window would take it, and gets the second button of a press that a listener hid it for.
  if (!focused_ && host_.Windows().IsWindowVisible(window_)) host_.Windows().SetFocus(window_);
  if (!window_) return;
  BeginDrag(point);
  const EditView::Hit hit = view_.At(point);
  buffer_.EndRun();
  const bool third = IsThirdPress(point);
  MoveTo(hit.offset, extend, hit.after_wrap);
  if (third && !extend && window_) SelectUnit(DragUnit::kLine);
}

void EditBox::BeginDrag(PixelPoint point) {
  WindowApi& windows = host_.Windows();
  if (windows.GetCapture() != window_) windows.SetCapture(window_);
  StopDrag();
  dragging_ = true;
  drag_unit_ = DragUnit::kCharacter;
  drag_point_ = point;
  drag_timer_ = host_.StartTimer(kDragScrollMs, [this] { DragOn(); });
}

// The first click of the two has put the caret there.
void EditBox::DoubleClick(PixelPoint point) {
  BeginDrag(point);
  double_click_ = {point, host_.Ticks(), true};
  SelectUnit(DragUnit::kWord);
}

// Soon after a double click, at its place.
bool EditBox::IsThirdPress(PixelPoint point) {
  const bool after_two = std::exchange(double_click_.any, false);
  return after_two && IsSameClick(host_.Ticks() - double_click_.time, double_click_.at, point);
}

// All around the caret; dragging goes on by as much.
void EditBox::SelectUnit(DragUnit unit) {
  drag_unit_ = unit;
  drag_anchor_ = RangeAround(buffer_.Selected().caret);
  Select({drag_anchor_.start, drag_anchor_.end});
  ScrollToCaret();
}

WordRange EditBox::RangeAround(std::size_t offset) const {
  const LineLayout& lines = buffer_.Lines();
  if (password_ != 0) return {0, buffer_.Size()};
  if (drag_unit_ == DragUnit::kWord) return WordAround(buffer_.Text(), lines, offset);
  const std::size_t line = lines.LineOf(offset);
  return {lines.Start(line), lines.End(line)};
}

// Outside the rectangle it selects up to the edge; scrolling is the timer's.
void EditBox::Drag(PixelPoint point) {
  if (!dragging_) return;
  drag_point_ = point;
  const PixelRect& rect = view_.Format().rect;
  const PixelPoint inside{std::clamp(point.x, rect.left, rect.right - 1),
                          std::clamp(point.y, rect.top, rect.bottom - 1)};
  DragTo(view_.At(inside));
}

// One line, or a few characters, further in the pointer's direction.
void EditBox::DragOn() {
  const PixelRect& rect = view_.Format().rect;
  if (rect.Contains(drag_point_)) return;
  const int dx = 2 * metrics_.average_char_width;
  const PixelPoint beyond{std::clamp(drag_point_.x, rect.left - dx, rect.right + dx),
                          std::clamp(drag_point_.y, rect.top - 1, rect.bottom)};
  DragTo(view_.At(beyond));
}

// What the drag began with stays selected.
void EditBox::DragTo(EditView::Hit hit) {
  if (drag_unit_ == DragUnit::kCharacter) return MoveTo(hit.offset, true, hit.after_wrap);
  const WordRange range = RangeAround(hit.offset);
  if (range.start < drag_anchor_.start) {
    Select({drag_anchor_.end, range.start});
  } else {
    Select({drag_anchor_.start, std::max(range.end, drag_anchor_.end)});
  }
  ScrollToCaret();
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

void EditBox::Wheel(int delta) { ScrollBy(0, -wheel_.Add(delta) * kRowsPerNotch, true); }

}  // namespace levelwidgets::memory
