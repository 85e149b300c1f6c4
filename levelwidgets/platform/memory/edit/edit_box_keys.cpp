// The keyboard in an edit box.
#include <algorithm>
#include <utility>

#include <levelwidgets/platform/memory/edit/edit_box.h>
#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets::memory {

namespace {

// The characters of Ctrl with a letter.
constexpr char Ctrl(char letter) { return static_cast<char>(letter - 'A' + 1); }

constexpr char kDeleteCharacter = 127;  // of Ctrl+Backspace

constexpr int kKeyMenu = 93;  // the key with the picture of a menu

}  // namespace

// --- Keys ------------------------------------------------------------------------------------

void EditBox::KeyDown(int key) {
  if (IsDown(kKeyAlt)) return;
  const bool shift = IsDown(kKeyShift);
  const bool ctrl = IsDown(kKeyControl);
  if (key == kKeyDelete) return DeleteKey(shift, ctrl);
  if (key == kKeyInsert) return InsertKey(shift, ctrl);
  if (key == kKeyTab && ctrl && !shift) return ControlCharacter('\t');
  if (key == kKeyMenu) return OpenMenu(view_.CaretPoint());
  MoveByKey(key, shift, ctrl);
}

bool EditBox::MoveByKey(int key, bool extend, bool ctrl) {
  const std::size_t caret = buffer_.Selected().caret;
  switch (key) {
    case kKeyLeft: MoveTo(ctrl ? WordStart(caret) : Previous(caret), extend); return true;
    case kKeyRight: MoveTo(ctrl ? WordEnd(caret) : Next(caret), extend); return true;
    case kKeyUp: multi_line_ ? MoveByLines(-1, extend) : MoveTo(Previous(caret), extend); return true;
    case kKeyDown: multi_line_ ? MoveByLines(1, extend) : MoveTo(Next(caret), extend); return true;
    case kKeyHome: MoveToEdge(false, extend, ctrl); return true;
    case kKeyEnd: MoveToEdge(true, extend, ctrl); return true;
    case kKeyPageUp:
      if (multi_line_) MoveByLines(-view_.VisibleLines(), extend);
      return true;
    case kKeyPageDown:
      if (multi_line_) MoveByLines(view_.VisibleLines(), extend);
      return true;
    default: return false;
  }
}

void EditBox::DeleteKey(bool shift, bool ctrl) {
  if (Has(kEsReadOnly) || (shift && ctrl)) return;
  const Selection& selected = buffer_.Selected();
  if (!selected.Empty()) return shift ? Cut() : Erase(EditRun::kNone);
  if (shift) return Backspace();
  const std::size_t caret = selected.caret;
  const std::size_t line_end = buffer_.Lines().End(buffer_.CaretLine());
  buffer_.Select({caret, ctrl ? std::max(caret, line_end) : Next(caret)});
  Erase(ctrl ? EditRun::kNone : EditRun::kErasing);
}

void EditBox::InsertKey(bool shift, bool ctrl) {
  if (shift && !ctrl) Paste();
  if (ctrl && !shift) Copy();
}

// --- Where keys lead -------------------------------------------------------------------------

// A password is one word: nobody learns where its blanks are.
std::size_t EditBox::WordStart(std::size_t offset) const {
  return password_ != 0 ? 0 : WordLeftInText(buffer_.Text(), buffer_.Lines(), offset);
}

std::size_t EditBox::WordEnd(std::size_t offset) const {
  return password_ != 0 ? buffer_.Size() : WordRightInText(buffer_.Text(), buffer_.Lines(), offset);
}

// A line break is passed in one step.
std::size_t EditBox::Previous(std::size_t offset) const {
  const LineLayout& lines = buffer_.Lines();
  if (offset == 0) return 0;
  const std::size_t line = lines.LineOf(offset);
  const std::size_t previous = buffer_.Text().Previous(offset);
  if (offset > lines.Start(line)) return std::min(previous, lines.End(line));
  return lines.IsWrapped(line - 1) ? previous : lines.End(line - 1);
}

std::size_t EditBox::Next(std::size_t offset) const {
  const std::size_t line = buffer_.Lines().LineOf(offset);
  return offset < buffer_.Lines().End(line) ? buffer_.Text().Next(offset) : buffer_.Lines().Limit(line);
}

void EditBox::MoveByLines(int lines, bool extend) {
  const auto last = static_cast<std::ptrdiff_t>(buffer_.Lines().Count()) - 1;
  const auto line = static_cast<std::ptrdiff_t>(buffer_.CaretLine());
  const std::ptrdiff_t target = std::clamp<std::ptrdiff_t>(line + lines, 0, last);
  const EditView::Hit hit = view_.OnLine(static_cast<std::size_t>(target), view_.CaretPoint().x);
  MoveTo(hit.offset, extend, hit.after_wrap);
}

void EditBox::MoveToEdge(bool end, bool extend, bool ctrl) {
  const std::size_t line = buffer_.CaretLine();
  if (ctrl || !multi_line_) return MoveTo(end ? buffer_.Size() : 0, extend);
  const LineLayout& lines = buffer_.Lines();
  MoveTo(end ? lines.End(line) : lines.Start(line), extend, end && lines.IsWrapped(line));
}

// --- Characters ------------------------------------------------------------------------------

// Of a pair the bytes come one after the other.
void EditBox::Character(char byte) {
  const char first = std::exchange(first_of_pair_, '\0');
  if (first != 0 && host_.CodePage().IsPair(first, byte)) return Enter(std::string{first, byte});
  if (host_.CodePage().IsFirst(byte)) {
    first_of_pair_ = byte;
    return;
  }
  const auto code = static_cast<std::uint8_t>(byte);
  if (code < ' ') return ControlCharacter(byte);
  if (byte == kDeleteCharacter) return EraseWord();
  Enter({byte});
}

void EditBox::Enter(const std::string& character) {
  if (Has(kEsReadOnly) || (Has(kEsNumber) && !text::IsDigit(character[0]))) return;
  Replace(character, {.run = EditRun::kTyping});
}

void EditBox::ControlCharacter(char byte) {
  switch (byte) {
    case '\b': Backspace(); break;
    case '\r':
    case '\n': EnterKey(); break;
    case '\t':
      if (multi_line_ && !Has(kEsReadOnly)) Replace("\t", {.run = EditRun::kTyping});
      break;
    case Ctrl('A'): Select({0, buffer_.Size()}); break;
    case Ctrl('C'): Copy(); break;
    case Ctrl('V'): Paste(); break;
    case Ctrl('X'): Cut(); break;
    case Ctrl('Y'): Redo(); break;
    case Ctrl('Z'): Undo(); break;
    default: break;
  }
}

void EditBox::EnterKey() {
  if (!multi_line_) return;
  if (!Has(kEsReadOnly)) return Replace("\r\n", {.run = EditRun::kTyping});
  MoveToEdge(false, false, false);
  if (window_) MoveByLines(1, false);
}

void EditBox::Backspace() {
  if (Has(kEsReadOnly)) return;
  if (buffer_.Selected().Empty()) {
    const std::size_t caret = buffer_.Selected().caret;
    buffer_.Select({caret, Previous(caret)});
    return Erase(EditRun::kErasing);
  }
  Erase(EditRun::kNone);
}

// From the start of the word, with what is selected where anything is.
void EditBox::EraseWord() {
  if (Has(kEsReadOnly)) return;
  const std::size_t caret = buffer_.Selected().caret;
  if (buffer_.Selected().Empty()) buffer_.Select({caret, WordStart(caret)});
  Erase(EditRun::kNone);
}

}  // namespace levelwidgets::memory
