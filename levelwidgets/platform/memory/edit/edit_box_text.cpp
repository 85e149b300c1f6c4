// Changes of an edit box's text.
#include <algorithm>

#include <levelwidgets/platform/memory/edit/edit_box.h>

namespace levelwidgets::memory {

// The limits hold only for what the user enters.
void EditBox::SetText(std::string_view bytes) {
  if (Has(kEsUpperCase | kEsLowerCase)) {
    std::string cased(bytes);
    SetCase(cased);
    buffer_.SetText(cased);
  } else {
    buffer_.SetText(bytes);
  }
  modified_ = false;
  view_.Reset();
  Invalidate();
  PlaceCaret();
  if (multi_line_) return;
  Notify(kEnUpdate);
  Notify(kEnChange);
}

void EditBox::SetCase(std::string& bytes) {
  if (!Has(kEsUpperCase | kEsLowerCase)) return;
  const bool upper = Has(kEsUpperCase);
  for (std::string_view rest = bytes; !rest.empty();) {
    char& byte = bytes[bytes.size() - rest.size()];
    const bool pair = host_.CodePage().TakeCode(rest) > 0xFF;
    if (!pair) byte = upper ? host_.UpperCaseOf(byte) : host_.LowerCaseOf(byte);
  }
}

void EditBox::Replace(std::string_view bytes, Change change) {
  std::string entered(bytes);
  SetCase(entered);
  const bool cut = change.limited && !TakeWhatFits(entered);
  const bool changes = !entered.empty() || !buffer_.Selected().Empty();
  if (changes) {
    InvalidateSelection(buffer_.Selected());
    InvalidateChange(buffer_.ReplaceSelection(entered, change.can_undo, change.run));
    modified_ = true;
    ScrollToCaret();
  }
  if (cut) Notify(kEnMaxText);
  if (!changes) return;
  Notify(kEnUpdate);
  Notify(kEnChange);
}

// Leaves the whole characters among the first `most` bytes.
void EditBox::Shorten(std::string& bytes, std::size_t most) {
  if (most >= bytes.size()) return;
  const bool inside = host_.CodePage().IsSecond([&](std::size_t i) { return bytes[i]; }, most);
  bytes.resize(inside ? most - 1 : most);
}

// Leaves of `bytes` what there is room for. False when something had to go.
bool EditBox::TakeWhatFits(std::string& bytes) {
  const std::size_t entered = bytes.size();
  const Selection& selected = buffer_.Selected();
  const std::size_t kept = buffer_.Size() - (selected.End() - selected.Start());
  Shorten(bytes, limit_ > kept ? limit_ - kept : 0);
  if (!multi_line_ && !Has(kEsAutoHScroll)) bytes.resize(FittingWidth(bytes));
  if (multi_line_ && !Has(kEsAutoVScroll)) {
    Shorten(bytes, buffer_.FittingLines(bytes, static_cast<std::size_t>(view_.VisibleLines())));
  }
  return bytes.size() == entered;
}

// How many of `bytes` fit into a single line that does not scroll.
std::size_t EditBox::FittingWidth(std::string_view bytes) {
  TextMeasure& measure = buffer_.Measure();
  const Selection& selected = buffer_.Selected();
  int x = measure.XOf(0, selected.Start()) + measure.XOf(0, buffer_.Size()) - measure.XOf(0, selected.End());
  for (std::string_view rest = bytes; !rest.empty();) {
    const std::size_t count = bytes.size() - rest.size();
    x += measure.Advance(host_.CodePage().TakeCode(rest));
    if (x > view_.Format().rect.width()) return count;
  }
  return bytes.size();
}

void EditBox::Erase(EditRun run) {
  if (Has(kEsReadOnly) || buffer_.Selected().Empty()) return;
  Replace("", {.run = run});
}

bool EditBox::Undo() { return !Has(kEsReadOnly) && Restore(buffer_.Undo()); }

bool EditBox::Redo() { return !Has(kEsReadOnly) && Restore(buffer_.Redo()); }

bool EditBox::Restore(std::optional<LineChange> change) {
  if (!change) return false;
  // What was selected may be on other lines by now.
  Invalidate();
  modified_ = true;
  ScrollToCaret();
  Notify(kEnUpdate);
  Notify(kEnChange);
  return true;
}

bool EditBox::Copy() {
  const Selection& selected = buffer_.Selected();
  if (selected.Empty() || password_ != 0) return false;
  return host_.SetClipboardBytes(buffer_.Text().Copy(selected.Start(), selected.End()));
}

void EditBox::Cut() {
  if (!Has(kEsReadOnly) && Copy()) Erase(EditRun::kNone);
}

// Into a single line goes the first line.
void EditBox::Paste() {
  if (Has(kEsReadOnly)) return;
  const std::optional<std::string> bytes = host_.ClipboardBytes();
  if (!bytes) return;
  std::string_view entered(*bytes);
  entered = entered.substr(0, entered.find('\0'));
  if (!multi_line_) entered = entered.substr(0, entered.find_first_of("\r\n"));
  Replace(entered, {});
}

}  // namespace levelwidgets::memory
