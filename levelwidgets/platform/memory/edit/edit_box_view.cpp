// Selection, scrolling and layout of an edit box.
#include <algorithm>

#include <levelwidgets/platform/memory/edit/edit_box.h>

namespace levelwidgets::memory {

namespace {

constexpr int kCaretWidth = 1;
// Between the flat border and the text; the border's own pixel is one of them.
constexpr int kBorderInset = 2;

constexpr int LowWord(LParam words) { return static_cast<int>(words & 0xFFFF); }
constexpr int HighWord(LParam words) { return static_cast<int>((words >> 16) & 0xFFFF); }

}  // namespace

// --- Selection -------------------------------------------------------------------------------

void EditBox::Select(Selection selection) {
  const Selection former = buffer_.Selected();
  buffer_.Select(selection);
  const Selection& now = buffer_.Selected();
  if (ShowsSelection() && !(former.Empty() && now.Empty())) {
    if (former.anchor == now.anchor) {
      InvalidateSelection({former.caret, now.caret});
    } else {
      InvalidateSelection(former);
      InvalidateSelection(now);
    }
  }
  PlaceCaret();
}

void EditBox::MoveTo(std::size_t offset, bool extend, bool after_wrap) {
  Select({extend ? buffer_.Selected().anchor : offset, offset, after_wrap});
  ScrollToCaret();
}

// --- Scrolling -------------------------------------------------------------------------------

void EditBox::ScrollToCaret() {
  const int top = view_.TopLine();
  const int left = view_.LeftPixel();
  const bool horizontally = Has(kEsAutoHScroll) && buffer_.Lines().WrapWidth() == 0;
  if (view_.ScrollToCaret(horizontally)) Invalidate();
  PlaceCaret();
  if (left != view_.LeftPixel()) Notify(kEnHScroll);
  if (top != view_.TopLine()) Notify(kEnVScroll);
}

// The number of lines in the low word, 1 in the high one; 0 when there was nothing to scroll. As the
// operating system's it counts a whole page up also where the top was nearer.
LResult EditBox::Scroll(WParam action) {
  if (!multi_line_) return 0;
  const int page = view_.VisibleLines();
  const int to_end = std::max(0, static_cast<int>(buffer_.Lines().Count()) - page - view_.TopLine());
  int lines = 0;
  switch (action) {
    case kSbLineUp: lines = -1; break;
    case kSbLineDown: lines = std::min(1, to_end); break;
    case kSbPageUp: lines = -page; break;
    case kSbPageDown: lines = std::min(page, to_end); break;
    default: return 0;
  }
  return ScrollBy(0, lines, true) ? LParamOfPoint({lines, 1}) : 0;
}

bool EditBox::ScrollBy(int pixels, int lines, bool whole_pages) {
  const bool vertically = view_.ScrollLines(lines, whole_pages) != 0;
  const bool horizontally =
      pixels != 0 && buffer_.Lines().WrapWidth() == 0 && view_.ScrollPixels(pixels) != 0;
  if (!vertically && !horizontally) return false;
  Invalidate();
  PlaceCaret();
  if (horizontally) Notify(kEnHScroll);
  if (vertically) Notify(kEnVScroll);
  return true;
}

// --- Layout ----------------------------------------------------------------------------------

PixelRect EditBox::ClientRect() {
  PixelRect rect;
  host_.Windows().GetClientRect(window_, rect);
  return rect;
}

void EditBox::SetRect(PixelRect rect) {
  outer_ = rect;
  Reformat();
}

void EditBox::SetMargins(WParam which, LParam widths) {
  const auto width_of = [&](int width) {
    if (width != static_cast<int>(kEcUseFontInfo)) return width;
    return metrics_.average_char_width / 2;
  };
  if (which & kEcLeftMargin) left_margin_ = width_of(LowWord(widths));
  if (which & kEcRightMargin) right_margin_ = width_of(HighWord(widths));
}

// Above and below the text the border gets room of its own only where there is some.
PixelRect EditBox::InsideBorder(int line_height) const {
  if (!flat_border_) return outer_;
  PixelRect rect = outer_.Inset(kBorderInset);
  if (rect.height() < line_height) {
    rect.top = outer_.top;
    rect.bottom = outer_.bottom;
  }
  return rect;
}

// Makes the formatting rectangle from what was asked for: inside border and margins, and as high as
// whole lines.
void EditBox::Reformat(bool measure_changed) {
  EditFormat format;
  format.multi_line = multi_line_;
  format.line_height = std::max(1, metrics_.height);
  format.alignment = Has(kEsCenter)  ? EditAlignment::kCenter
                     : Has(kEsRight) ? EditAlignment::kRight
                                     : EditAlignment::kLeft;
  PixelRect rect = InsideBorder(format.line_height);
  rect.left += left_margin_;
  rect.right = std::max(rect.right - right_margin_, rect.left + std::max(1, metrics_.average_char_width));
  const int rows = multi_line_ ? std::max(1, rect.height() / format.line_height) : 1;
  rect.bottom = rect.top + rows * format.line_height;
  format.rect = rect;
  view_.SetFormat(format);
  const bool wraps = multi_line_ && (!Has(kEsAutoHScroll) || format.alignment != EditAlignment::kLeft);
  const int wrap_width = wraps ? rect.width() : 0;
  if (wrap_width != buffer_.Lines().WrapWidth() || (wraps && measure_changed)) {
    buffer_.Lines().SetWrapWidth(wrap_width);
    buffer_.Lines().Rebuild();
  }
  view_.KeepInside();
  Invalidate();
  PlaceCaret();
}

// --- What is to be shown ---------------------------------------------------------------------

void EditBox::PlaceCaret() {
  if (!focused_ || !window_) return;
  const PixelRect& rect = view_.Format().rect;
  const PixelPoint point = view_.CaretPoint();
  PixelRect place{};
  const int bottom = point.y + view_.Format().line_height;
  if (point.y >= rect.top && bottom <= rect.bottom && point.x >= rect.left) {
    // Behind a text that fills the width, and behind blanks that hang over, it stays in sight.
    const int x = std::min(point.x, std::max(rect.left, ClientRect().right - kCaretWidth));
    place = {x, point.y, x + kCaretWidth, bottom};
  }
  caret_.Show(window_, place);
}

void EditBox::Invalidate() {
  if (window_) host_.Invalidate(window_, ClientRect());
}

void EditBox::InvalidateLines(std::size_t first, std::size_t last) {
  if (!window_) return;
  PixelRect area = ClientRect();
  if (multi_line_) {
    const auto top = static_cast<std::size_t>(view_.TopLine());
    const std::size_t below = top + static_cast<std::size_t>(view_.VisibleLines());
    if (last < top || first >= below) return;
    area.top = std::max(area.top, view_.TopOf(std::max(first, top)));
    if (last < below) area.bottom = std::min(area.bottom, view_.TopOf(last + 1));
  }
  host_.Invalidate(window_, area);
}

void EditBox::InvalidateSelection(const Selection& selection) {
  if (selection.Empty()) return;
  InvalidateLines(buffer_.Lines().LineOf(selection.Start()), buffer_.Lines().LineOf(selection.End()));
}

// When lines have come or gone, all below are elsewhere.
void EditBox::InvalidateChange(const LineChange& change) {
  const bool same = change.before == change.after;
  InvalidateLines(change.first, same ? change.first + change.after - 1 : static_cast<std::size_t>(-2));
}

}  // namespace levelwidgets::memory
