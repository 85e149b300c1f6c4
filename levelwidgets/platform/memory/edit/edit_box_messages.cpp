// Answers to the messages of edit boxes.
#include <algorithm>
#include <cstring>

#include <levelwidgets/platform/memory/edit/edit_box.h>

namespace levelwidgets::memory {

namespace {

constexpr LResult kNothing = -1;
// What a limit of 0 stands for.
constexpr std::size_t kNoLimit = 0x7FFFFFFE;
constexpr std::size_t kNoLimitOfLines = 0xFFFFFFFF;

constexpr LResult Words(int low, int high) { return LParamOfPoint({low, high}); }

}  // namespace

LResult EditBox::OnEditMessage(std::uint32_t message, WParam wparam, LParam lparam) {
  switch (message) {
    case kEmGetSel: return GetSelection(wparam, lparam);
    case kEmSetSel:
      SetSelection(static_cast<std::int32_t>(wparam), static_cast<std::int32_t>(lparam));
      return 1;
    case kEmReplaceSel:
      Replace(lparam == 0 ? "" : reinterpret_cast<const char*>(lparam), {.can_undo = wparam != 0});
      return 1;
    case kEmScroll: return Scroll(wparam);
    case kEmLineScroll:
      if (!multi_line_) return 0;
      ScrollBy(static_cast<std::int32_t>(wparam) * metrics_.average_char_width,
               static_cast<std::int32_t>(lparam), false);
      return 1;
    case kEmScrollCaret: ScrollToCaret(); return 1;
    case kEmGetModify: return modified_ ? 1 : 0;
    case kEmSetModify: modified_ = wparam != 0; return 0;
    case kEmCanUndo: return buffer_.History().CanUndo() ? 1 : 0;
    case kEmUndo: return Undo() || !multi_line_ ? 1 : 0;
    case kEmEmptyUndoBuffer: buffer_.ForgetHistory(); return 0;
    default: return OnLineMessage(message, wparam, lparam);
  }
}

LResult EditBox::OnLineMessage(std::uint32_t message, WParam wparam, LParam lparam) {
  switch (message) {
    case kEmGetLineCount: return static_cast<LResult>(buffer_.Lines().Count());
    case kEmLineIndex: return LineIndexOf(static_cast<std::int32_t>(wparam));
    case kEmLineLength: return LineLength(static_cast<std::int32_t>(wparam));
    case kEmLineFromChar: return LineFromChar(static_cast<std::int32_t>(wparam));
    case kEmGetLine: return lparam == 0 ? 0 : CopyLine(wparam, reinterpret_cast<char*>(lparam));
    case kEmGetFirstVisibleLine: return view_.FirstVisible();
    case kEmPosFromChar: return PosFromChar(wparam);
    case kEmCharFromPos: return CharFromPos(PointOfLParam(lparam));
    default: return OnFormatMessage(message, wparam, lparam);
  }
}

LResult EditBox::OnFormatMessage(std::uint32_t message, WParam wparam, LParam lparam) {
  switch (message) {
    case kEmGetRect:
      if (lparam != 0) *reinterpret_cast<PixelRect*>(lparam) = view_.Format().rect;
      return 1;
    case kEmSetRect:
    case kEmSetRectNP:
      if (!multi_line_) return 0;
      SetRect(lparam == 0 ? ClientRect() : *reinterpret_cast<const PixelRect*>(lparam));
      if (message == kEmSetRect) Invalidate();
      return 0;
    case kEmSetMargins:
      SetMargins(wparam, lparam);
      Reformat();
      Invalidate();
      return 0;
    case kEmGetMargins: return Words(left_margin_, right_margin_);
    case kEmSetLimitText: limit_ = wparam != 0 ? wparam : multi_line_ ? kNoLimitOfLines : kNoLimit; return 0;
    case kEmGetLimitText: return static_cast<LResult>(limit_);
    case kEmSetReadOnly:
      SetStyle(kEsReadOnly, wparam != 0);
      Invalidate();
      return 1;
    case kEmGetPasswordChar: return static_cast<std::uint8_t>(password_);
    case kEmSetPasswordChar:
      if (multi_line_) return 0;
      password_ = static_cast<char>(wparam);
      SetStyle(kEsPassword, password_ != 0);
      buffer_.Measure().SetMask(password_);
      Reformat();
      Invalidate();
      return 1;
    default: return 0;
  }
}

LResult EditBox::GetSelection(WParam start, LParam end) const {
  const Selection& selected = buffer_.Selected();
  if (start != 0) *reinterpret_cast<std::uint32_t*>(start) = static_cast<std::uint32_t>(selected.Start());
  if (end != 0) *reinterpret_cast<std::uint32_t*>(end) = static_cast<std::uint32_t>(selected.End());
  if (selected.End() > 0xFFFF) return kNothing;
  return Words(static_cast<int>(selected.Start()), static_cast<int>(selected.End()));
}

// A start of -1 ends the selection, an end of -1 is the text's.
void EditBox::SetSelection(std::int32_t start, std::int32_t end) {
  const std::size_t caret = buffer_.Selected().caret;
  Selection selection{caret, caret};
  if (start != -1) {
    // As unsigned numbers other negative ones lie beyond the text as well.
    selection = {static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(end)};
  }
  Select(selection);
  ScrollToCaret();
}

// -1: the line where the selection starts.
LResult EditBox::LineFromChar(std::int32_t offset) const {
  const std::size_t at = offset < 0 ? buffer_.Selected().Start() : static_cast<std::size_t>(offset);
  return static_cast<LResult>(buffer_.Lines().LineOf(std::min(at, buffer_.Size())));
}

// -1: the caret's line.
LResult EditBox::LineIndexOf(std::int32_t line) const {
  const LineLayout& lines = buffer_.Lines();
  const std::size_t wanted = line < 0 ? buffer_.CaretLine() : static_cast<std::size_t>(line);
  return wanted < lines.Count() ? static_cast<LResult>(lines.Start(wanted)) : kNothing;
}

// -1: what is not selected of the lines on which the selection starts and ends.
LResult EditBox::LineLength(std::int32_t offset) const {
  const LineLayout& lines = buffer_.Lines();
  if (!multi_line_) return static_cast<LResult>(buffer_.Size());
  if (offset < 0) {
    const Selection& selected = buffer_.Selected();
    const std::size_t before = selected.Start() - lines.Start(lines.LineOf(selected.Start()));
    const std::size_t end = std::max(lines.End(lines.LineOf(selected.End())), selected.End());
    return static_cast<LResult>(before + end - selected.End());
  }
  const auto at = static_cast<std::size_t>(offset);
  if (at > buffer_.Size()) return 0;
  const std::size_t line = lines.LineOf(at);
  return static_cast<LResult>(lines.End(line) - lines.Start(line));
}

// The first word of `buffer` is its size in bytes. Nothing is put behind the line.
LResult EditBox::CopyLine(std::size_t line, char* buffer) const {
  const LineLayout& lines = buffer_.Lines();
  if (!multi_line_) line = 0;
  if (line >= lines.Count()) return 0;
  std::uint16_t room = 0;
  std::memcpy(&room, buffer, sizeof room);
  const std::size_t start = lines.Start(line);
  const std::size_t count = std::min<std::size_t>(room, lines.End(line) - start);
  const auto [first, second] = buffer_.Text().Read(start, start + count);
  std::copy(second.begin(), second.end(), std::copy(first.begin(), first.end(), buffer));
  return static_cast<LResult>(count);
}

LResult EditBox::PosFromChar(std::size_t offset) {
  if (offset >= buffer_.Size()) return kNothing;
  const PixelPoint point = view_.PointOf(offset, false);
  // As the operating system packs it: negative words make a negative answer.
  return static_cast<std::int32_t>(Words(point.x, point.y));
}

LResult EditBox::CharFromPos(PixelPoint point) {
  if (!ClientRect().Contains(point)) return kNothing;
  const EditView::Hit hit = view_.At(point);
  const std::size_t line = buffer_.LineOf(hit.offset, hit.after_wrap);
  return Words(static_cast<int>(hit.offset), static_cast<int>(line));
}

// At most `room` bytes, a 0 among them. Returns how many without it.
LResult EditBox::CopyText(std::size_t room, char* buffer) const {
  if (room == 0 || !buffer) return 0;
  const std::size_t count = std::min(buffer_.Size(), room - 1);
  const auto [first, second] = buffer_.Text().Read(0, count);
  *std::copy(second.begin(), second.end(), std::copy(first.begin(), first.end(), buffer)) = '\0';
  return static_cast<LResult>(count);
}

}  // namespace levelwidgets::memory
