// How an edit box is painted.
#include <algorithm>

#include <levelwidgets/platform/memory/edit/edit_box.h>

namespace levelwidgets::memory {

namespace {

// Ends a paint, also when the parent throws from its colour request.
class PaintScope {
 public:
  PaintScope(WindowApi& windows, WindowHandle window)
      : windows_(windows), window_(window), dc_(windows.BeginPaint(window)) {}
  ~PaintScope() { windows_.EndPaint(window_); }
  PaintScope(const PaintScope&) = delete;
  PaintScope& operator=(const PaintScope&) = delete;
  DcHandle Dc() const { return dc_; }

 private:
  WindowApi& windows_;
  WindowHandle window_;
  DcHandle dc_;
};

class SystemBrush {
 public:
  SystemBrush(DrawingApi& drawing, int color)
      : drawing_(drawing), brush_(drawing.CreateSolidBrush(drawing.GetSysColor(color))) {}
  ~SystemBrush() { drawing_.DeleteObject(brush_); }
  SystemBrush(const SystemBrush&) = delete;
  SystemBrush& operator=(const SystemBrush&) = delete;
  ObjectHandle Get() const { return brush_; }

 private:
  DrawingApi& drawing_;
  ObjectHandle brush_;
};

constexpr std::uint32_t kTextFormat = kDtSingleLine | kDtNoPrefix;

}  // namespace

void EditBox::Paint() {
  DrawingApi& drawing = host_.Drawing();
  const PixelRect area = host_.PendingArea(window_);
  const WindowHandle window = window_;
  const PaintScope paint(host_.Windows(), window);
  const DcHandle dc = paint.Dc();
  ObjectHandle brush = AskColors(dc);
  if (window_ != window) return;
  const bool still = Has(kEsReadOnly) || !host_.Windows().IsWindowEnabled(window_);
  const SystemBrush background(drawing, still ? kColorButtonFace : kColorWindow);
  if (!brush) brush = background.Get();
  if (!host_.Windows().IsWindowEnabled(window_))
    drawing.SetTextColor(dc, drawing.GetSysColor(kColorGrayText));
  drawing.FillRect(dc, area, brush);
  const ObjectHandle former = drawing.SelectObject(dc, font_);
  PaintLines(dc, area, brush);
  drawing.SelectObject(dc, former);
  if (flat_border_) PaintBorder(dc);
  caret_.Repaint();
}

// The parent's brush, and the colours it has set; a null brush when it leaves them to the edit box.
ObjectHandle EditBox::AskColors(DcHandle dc) {
  WindowApi& windows = host_.Windows();
  DrawingApi& drawing = host_.Drawing();
  const bool still = Has(kEsReadOnly) || !windows.IsWindowEnabled(window_);
  const ColorRef text = drawing.GetSysColor(kColorWindowText);
  const ColorRef background = drawing.GetSysColor(still ? kColorButtonFace : kColorWindow);
  drawing.SetTextColor(dc, text);
  drawing.SetBkColor(dc, background);
  drawing.SetBkMode(dc, kOpaque);
  const LResult answer =
      windows.SendMessageA(windows.GetParent(window_), still ? kWmCtlColorStatic : kWmCtlColorEdit,
                           WParam{dc.value}, static_cast<LParam>(window_.value));
  return {static_cast<std::uint32_t>(answer)};
}

void EditBox::PaintLines(DcHandle dc, const PixelRect& area, ObjectHandle brush) {
  const int height = view_.Format().line_height;
  const int top = view_.Format().rect.top;
  const int skipped = std::max(0, (area.top - top) / height);
  const auto first = static_cast<std::size_t>(view_.TopLine());
  const std::size_t end =
      std::min(buffer_.Lines().Count(), first + static_cast<std::size_t>(view_.VisibleLines()));
  for (std::size_t line = first + static_cast<std::size_t>(skipped); line < end; ++line) {
    if (view_.TopOf(line) >= area.bottom) break;
    PaintLine(dc, line, area, brush);
  }
}

void EditBox::PaintLine(DcHandle dc, std::size_t line, const PixelRect& area, ObjectHandle brush) {
  const LineLayout& lines = buffer_.Lines();
  TextMeasure& measure = buffer_.Measure();
  const PixelRect& rect = view_.Format().rect;
  const std::size_t start = lines.Start(line);
  const std::size_t line_end = lines.End(line);
  const int left = view_.LeftOf(line);
  const int y = view_.TopOf(line);
  // Letters reach over their places, so some outside of the area show in it.
  const int reach = view_.Format().line_height;
  std::size_t from = measure.Before(start, line_end, std::max(rect.left, area.left - reach) - left);
  const std::size_t last = measure.Before(start, line_end, std::min(rect.right, area.right + reach) - left);
  const std::size_t end = last < line_end ? buffer_.Text().Next(last) : line_end;
  const bool overlaps = left + measure.XOf(start, from) < rect.left;
  while (from < end) {
    const std::size_t to = RunEnd(from, end);
    const PixelPoint at{left + measure.XOf(start, from), y};
    PaintRun(dc, from, to, {at.x, at.y, left + measure.XOf(start, to), y + view_.Format().line_height});
    from = to;
  }
  if (!overlaps) return;
  // A character that is only half to be seen on the left.
  host_.Drawing().FillRect(dc, {0, y, rect.left, y + view_.Format().line_height}, brush);
}

// How far all looks alike; a tab is a run of its own. A caret splits nothing: where one run ends, the next
// covers what letters reach over to it.
std::size_t EditBox::RunEnd(std::size_t from, std::size_t end) const {
  const Selection& selected = buffer_.Selected();
  if (ShowsSelection() && !selected.Empty()) {
    for (const std::size_t edge : {selected.Start(), selected.End()}) {
      if (edge > from && edge < end) end = edge;
    }
  }
  if (!multi_line_) return end;
  return buffer_.Text().At(from) == '\t' ? from + 1 : buffer_.Text().Find('\t', from, end);
}

// As it is shown, in UTF-8.
std::string EditBox::TextOfRun(std::size_t from, std::size_t to) const {
  const text::CodePage& code_page = host_.CodePage();
  if (password_ == 0) return code_page.ToUtf8(buffer_.Text().Copy(from, to));
  std::string mask;
  for (; from < to; from = buffer_.Text().Next(from)) mask += password_;
  return code_page.ToUtf8(mask);
}

void EditBox::PaintRun(DcHandle dc, std::size_t from, std::size_t to, PixelRect place) {
  DrawingApi& drawing = host_.Drawing();
  const Selection& selected = buffer_.Selected();
  const bool is_selected = ShowsSelection() && from >= selected.Start() && from < selected.End();
  const bool is_tab = multi_line_ && buffer_.Text().At(from) == '\t';
  if (is_tab) {
    place.right = std::min(place.right, view_.Format().rect.right);
    if (is_selected) drawing.FillRect(dc, place, SystemBrush(drawing, kColorHighlight).Get());
    return;
  }
  // A slanted letter may reach over the end of its run.
  place.right = view_.Format().rect.right;
  const std::string text = TextOfRun(from, to);
  if (!is_selected) {
    drawing.DrawTextA(dc, text, place, kTextFormat);
    return;
  }
  const ColorRef color = drawing.SetTextColor(dc, drawing.GetSysColor(kColorHighlightText));
  const ColorRef background = drawing.SetBkColor(dc, drawing.GetSysColor(kColorHighlight));
  const int mode = drawing.SetBkMode(dc, kOpaque);
  drawing.DrawTextA(dc, text, place, kTextFormat);
  drawing.SetTextColor(dc, color);
  drawing.SetBkColor(dc, background);
  drawing.SetBkMode(dc, mode);
}

void EditBox::PaintBorder(DcHandle dc) {
  DrawingApi& drawing = host_.Drawing();
  const SystemBrush brush(drawing, kColorWindowFrame);
  const PixelRect box = ClientRect();
  drawing.FillRect(dc, {box.left, box.top, box.right, box.top + 1}, brush.Get());
  drawing.FillRect(dc, {box.left, box.bottom - 1, box.right, box.bottom}, brush.Get());
  drawing.FillRect(dc, {box.left, box.top, box.left + 1, box.bottom}, brush.Get());
  drawing.FillRect(dc, {box.right - 1, box.top, box.right, box.bottom}, brush.Get());
}

}  // namespace levelwidgets::memory
