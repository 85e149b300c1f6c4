#include <levelwidgets/platform/memory/edit/edit_view.h>

#include <algorithm>

namespace levelwidgets::memory {

namespace {

// How much of the width is scrolled at once.
constexpr int kScrollFraction = 3;

}  // namespace

int EditView::LeftOf(std::size_t line) {
  const LineLayout& lines = buffer_.Lines();
  const PixelRect& rect = format_.rect;
  const std::size_t start = lines.Start(line);
  if (!format_.multi_line && first_char_ > 0) {
    const auto first = std::min(static_cast<std::size_t>(first_char_), lines.End(line));
    return rect.left - buffer_.Measure().XOf(start, first);
  }
  if (format_.alignment == EditAlignment::kLeft) return rect.left - left_pixel_;
  const int room = rect.width() - buffer_.Measure().XOf(start, lines.End(line));
  if (room <= 0) return rect.left;
  return rect.left + (format_.alignment == EditAlignment::kRight ? room : room / 2);
}

int EditView::TopOf(std::size_t line) const {
  return format_.rect.top + (static_cast<int>(line) - top_line_) * format_.line_height;
}

PixelPoint EditView::PointOf(std::size_t offset, bool after_wrap) {
  const std::size_t line = buffer_.LineOf(offset, after_wrap);
  const std::size_t inside = std::min(offset, buffer_.Lines().End(line));
  const int left = LeftOf(line);
  return {left + buffer_.Measure().XOf(buffer_.Lines().Start(line), inside), TopOf(line)};
}

PixelPoint EditView::CaretPoint() { return PointOf(buffer_.Selected().caret, buffer_.Selected().after_wrap); }

EditView::Hit EditView::OnLine(std::size_t line, int x) {
  const LineLayout& lines = buffer_.Lines();
  const std::size_t end = lines.End(line);
  const int left = LeftOf(line);
  const std::size_t offset = buffer_.Measure().Nearest(lines.Start(line), end, x - left);
  return {offset, offset == end && lines.IsWrapped(line)};
}

EditView::Hit EditView::At(PixelPoint point) {
  if (!format_.multi_line) return OnLine(0, point.x);
  // Above the rectangle division must not round towards it.
  const int below = point.y - format_.rect.top;
  const int rows = below >= 0 ? below / format_.line_height : -1 - (-below - 1) / format_.line_height;
  const int line = std::clamp(top_line_ + rows, 0, LineCount() - 1);
  return OnLine(static_cast<std::size_t>(line), point.x);
}

int EditView::ScrollLines(int lines, bool whole_pages) {
  const int last = whole_pages ? std::max(LastPageTop(), top_line_) : LineCount() - 1;
  const int top = std::clamp(top_line_ + lines, 0, last);
  const int scrolled = top - top_line_;
  top_line_ = top;
  return scrolled;
}

int EditView::ScrollPixels(int pixels) {
  const int left = std::max(0, std::min(left_pixel_ + pixels, std::max(left_pixel_, TextWidth())));
  const int scrolled = left - left_pixel_;
  left_pixel_ = left;
  return scrolled;
}

int EditView::TextWidth() {
  const LineLayout& lines = buffer_.Lines();
  int widest = 0;
  for (std::size_t line = 0; line < lines.Count(); ++line) {
    widest = std::max(widest, buffer_.Measure().XOf(lines.Start(line), lines.End(line)));
  }
  return widest;
}

void EditView::KeepInside() {
  top_line_ = std::min(top_line_, LastPageTop());
  first_char_ = std::min(first_char_, static_cast<int>(buffer_.Size()));
}

bool EditView::ScrollToCaret(bool horizontally) {
  if (format_.multi_line) return ScrollManyLines(horizontally);
  return horizontally && ScrollSingleLine();
}

bool EditView::ScrollManyLines(bool horizontally) {
  const int old_top = top_line_;
  const int old_left = left_pixel_;
  const int line = static_cast<int>(buffer_.CaretLine());
  top_line_ = std::clamp(top_line_, line - VisibleLines() + 1, line);
  KeepInside();
  if (horizontally) {
    const PixelRect& rect = format_.rect;
    const int x = CaretPoint().x;
    if (x < rect.left) left_pixel_ -= rect.left - x + rect.width() / kScrollFraction;
    if (x > rect.right) left_pixel_ += x - rect.right + rect.width() / kScrollFraction;
    left_pixel_ = std::max(0, left_pixel_);
  }
  return top_line_ != old_top || left_pixel_ != old_left;
}

// A caret out of sight comes a third of the width inside; text that fits on the right stays there.
bool EditView::ScrollSingleLine() {
  const int old = first_char_;
  TextMeasure& measure = buffer_.Measure();
  const PixelRect& rect = format_.rect;
  const int third = rect.width() / kScrollFraction;
  const std::size_t size = buffer_.Size();
  const auto start_of = [&](int x) { return x <= 0 ? 0 : static_cast<int>(measure.Before(0, size, x)); };
  // Of a text that has become shorter all that was shown may be gone.
  const bool beyond = static_cast<std::size_t>(first_char_) > size;
  const int x = CaretPoint().x;
  if (beyond || x < rect.left) {
    first_char_ = start_of(measure.XOf(0, buffer_.Selected().caret) - third);
  } else if (x > rect.right) {
    const int caret = measure.XOf(0, buffer_.Selected().caret);
    const int by_caret = caret - rect.width() + third;
    const int by_end = measure.XOf(0, size) - rect.width();
    const int least = std::min(by_caret, by_end);
    first_char_ = start_of(least);
    if (measure.XOf(0, static_cast<std::size_t>(first_char_)) < least) {
      first_char_ = static_cast<int>(buffer_.Text().Next(static_cast<std::size_t>(first_char_)));
    }
  }
  return first_char_ != old;
}

}  // namespace levelwidgets::memory
