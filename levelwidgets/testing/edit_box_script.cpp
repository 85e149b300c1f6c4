#include <levelwidgets/testing/edit_box_script.h>

#include <cstring>
#include <stdexcept>

namespace levelwidgets::testing {

namespace {

constexpr int kHeightInLines = 4;
constexpr int kWide = 400;

constexpr std::uint32_t kLines = kEsMultiLine | kEsAutoVScroll;

struct BoxStyle {
  std::uint32_t style;
  const char* width;  // a text; null: wide
};

BoxStyle StyleOf(EditBoxKind kind) {
  switch (kind) {
    case EditBoxKind::kSingle: return {kEsAutoHScroll, nullptr};
    case EditBoxKind::kTight: return {0, "aaaaa"};
    case EditBoxKind::kNarrow: return {kEsAutoHScroll, "aaaaa"};
    case EditBoxKind::kMulti: return {kLines | kEsAutoHScroll, nullptr};
    case EditBoxKind::kWrap: return {kLines, "aaaa bbbb "};
    case EditBoxKind::kExact: return {kLines, "aaaa bbbb"};
    case EditBoxKind::kFixed: return {kEsMultiLine, nullptr};
    case EditBoxKind::kRight: return {kEsAutoHScroll | kEsRight, nullptr};
    case EditBoxKind::kCenter: return {kLines | kEsCenter, nullptr};
    case EditBoxKind::kPassword: return {kEsAutoHScroll | kEsPassword, nullptr};
    case EditBoxKind::kNumber: return {kEsAutoHScroll | kEsNumber, nullptr};
    case EditBoxKind::kUpper: return {kEsAutoHScroll | kEsUpperCase, nullptr};
    case EditBoxKind::kLower: return {kEsAutoHScroll | kEsLowerCase, nullptr};
  }
  return {};
}

std::string Decoded(std::string_view text) {
  std::string decoded;
  for (const char c : text) {
    switch (c) {
      case '/': decoded += "\r\n"; break;
      case '~': decoded += '\n'; break;
      case '^': decoded += '\r'; break;
      case '>': decoded += '\t'; break;
      default: decoded += c;
    }
  }
  return decoded;
}

std::string Encoded(std::string_view text) {
  std::string encoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.substr(i, 2) == "\r\n") {
      encoded += '/';
      ++i;
    } else {
      encoded += text[i] == '\n' ? '~' : text[i] == '\r' ? '^' : text[i] == '\t' ? '>' : text[i];
    }
  }
  return encoded;
}

const std::map<std::string, int>& Keys() {
  static const std::map<std::string, int> keys = {
      {"Left", kKeyLeft},  {"Right", kKeyRight}, {"Up", kKeyUp},          {"Down", kKeyDown},
      {"Home", kKeyHome},  {"End", kKeyEnd},     {"PgUp", kKeyPageUp},    {"PgDn", kKeyPageDown},
      {"Del", kKeyDelete}, {"Ins", kKeyInsert},  {"BkSp", kKeyBackspace}, {"Enter", kKeyEnter},
      {"Tab", kKeyTab},    {"Esc", kKeyEscape},
  };
  return keys;
}

const std::map<std::string, std::uint32_t>& Messages() {
  static const std::map<std::string, std::uint32_t> messages = {
      {"sel", kEmSetSel},
      {"rep", kEmReplaceSel},
      {"settext", kWmSetText},
      {"limit", kEmSetLimitText},
      {"readonly", kEmSetReadOnly},
      {"pass", kEmSetPasswordChar},
      {"setmodify", kEmSetModify},
      {"scroll", kEmScroll},
      {"linescroll", kEmLineScroll},
      {"caret", kEmScrollCaret},
      {"undo", kEmUndo},
      {"wmundo", kWmUndo},
      {"emptyundo", kEmEmptyUndoBuffer},
      {"cut", kWmCut},
      {"copy", kWmCopy},
      {"paste", kWmPaste},
      {"clear", kWmClear},
      {"char", kWmChar},
      {"lines", kEmGetLineCount},
      {"line", kEmLineFromChar},
      {"index", kEmLineIndex},
      {"linelen", kEmLineLength},
      {"first", kEmGetFirstVisibleLine},
      {"canundo", kEmCanUndo},
      {"modify", kEmGetModify},
      {"getlimit", kEmGetLimitText},
      {"getpass", kEmGetPasswordChar},
      {"len", kWmGetTextLength},
  };
  return messages;
}

}  // namespace

// "CS-Left", "sel(1,3)", "?line(2)" or "'typed'" taken apart.
struct EditBoxScript::Word {
  explicit Word(std::string_view word) : whole(word) {
    std::string_view rest = word;
    if (rest.front() == '=' || rest.front() == '?') mark = rest.front();
    if (mark) rest.remove_prefix(1);
    const std::size_t open = rest.find('(');
    name = rest.substr(0, open);
    if (open != std::string_view::npos) argument = rest.substr(open + 1, rest.size() - open - 2);
    const std::size_t comma = argument.find(',');
    try {
      first = std::stoi(argument);
      if (comma != std::string::npos) second = std::stoi(argument.substr(comma + 1));
    } catch (const std::invalid_argument&) {
      // A text is no number.
    }
  }

  std::string whole;
  std::string name;
  std::string argument;
  char mark = 0;
  int first = 0;
  int second = 0;
};

EditBoxScript::EditBoxScript(DesktopDriver& driver, WindowHandle parent, EditBoxKind kind,
                             std::string_view text)
    : driver_(driver), windows_(driver.GetPlatform().Windows()) {
  const BoxStyle box = StyleOf(kind);
  const std::uint32_t style = kWsChild | kWsVisible | box.style;
  window_ = windows_.CreateWindowExA({"EDIT", "", style, 0, {10, 10, 110, 40}, parent, nullptr});
  if (!window_) throw std::runtime_error("no edit box");
  TextMetrics metrics;
  const DcHandle dc = windows_.GetDC(window_);
  driver.GetPlatform().Drawing().GetTextMetricsA(dc, metrics);
  windows_.ReleaseDC(window_, dc);
  const int width = box.width ? Width(box.width) + 2 : kWide;
  windows_.SetWindowPos(window_, {}, {10, 10, 10 + width, 10 + kHeightInLines * metrics.height},
                        kSwpNoZOrder);
  Send(kWmSetText, 0, reinterpret_cast<LParam>(Decoded(text).c_str()));
  windows_.SetFocus(window_);
  driver_.Settle();
  told_.clear();
}

EditBoxScript::~EditBoxScript() { windows_.DestroyWindow(window_); }

LResult EditBoxScript::Send(std::uint32_t message, WParam wparam, LParam lparam) {
  return windows_.SendMessageA(window_, message, wparam, lparam);
}

int EditBoxScript::Width(std::string_view text) {
  PixelSize size;
  const DcHandle dc = windows_.GetDC(window_);
  driver_.GetPlatform().Drawing().GetTextExtentPoint32A(dc, text, size);
  windows_.ReleaseDC(window_, dc);
  return size.width;
}

PixelRect EditBoxScript::Rect() {
  PixelRect rect;
  Send(kEmGetRect, 0, reinterpret_cast<LParam>(&rect));
  return rect;
}

void EditBoxScript::Told(WParam wparam) {
  static const std::map<std::uint32_t, char> codes = {
      {kEnSetFocus, 'S'}, {kEnKillFocus, 'K'}, {kEnChange, 'C'},  {kEnUpdate, 'U'},
      {kEnMaxText, 'M'},  {kEnHScroll, 'H'},   {kEnVScroll, 'V'},
  };
  const auto code = codes.find(static_cast<std::uint32_t>(wparam >> 16));
  told_ += code == codes.end() ? '?' : code->second;
}

std::string EditBoxScript::Run(std::string_view script) {
  while (!script.empty()) {
    const char end = script.front() == '\'' ? '\'' : ' ';
    std::size_t length = script.find(end, 1);
    length = length == std::string_view::npos ? script.size() : length + (end == '\'' ? 1 : 0);
    Do(Word(script.substr(0, length)));
    script.remove_prefix(length);
    script.remove_prefix(std::min(script.find_first_not_of(' '), script.size()));
  }
  driver_.Settle();
  std::string result = State();
  for (const std::string& note : notes_) result += " " + note;
  return result;
}

void EditBoxScript::Do(const Word& word) {
  if (word.whole.front() == '\'') {
    driver_.Type(word.whole.substr(1, word.whole.size() - 2));
  } else if (word.mark == '?') {
    Ask(word);
  } else if (!UsePointer(word) && !SendNamed(word) && !Press(word)) {
    throw std::invalid_argument("what is " + word.whole);
  }
}

bool EditBoxScript::Press(const Word& word) {
  std::string key = word.name;
  int shift = 0;
  if (const std::size_t dash = key.find('-'); dash != std::string::npos && dash > 0) {
    for (const char c : key.substr(0, dash)) shift |= c == 'S' ? kShiftMask : c == 'C' ? kCtrlMask : kAltMask;
    key = key.substr(dash + 1);
  }
  const auto found = Keys().find(key);
  if (found == Keys().end() && key.size() != 1) return false;
  driver_.Key(found == Keys().end() ? key[0] : found->second, shift);
  return true;
}

bool EditBoxScript::SendNamed(const Word& word) {
  const auto found = Messages().find(word.name);
  if (found == Messages().end()) return false;
  const std::string text = Decoded(word.argument);
  const auto address = reinterpret_cast<LParam>(text.c_str());
  LResult answer = 0;
  switch (found->second) {
    case kEmReplaceSel: answer = Send(kEmReplaceSel, 1, address); break;
    case kWmSetText: answer = Send(kWmSetText, 0, address); break;
    case kWmChar:
    case kEmSetPasswordChar:
      answer = Send(found->second, text.empty() ? 0 : static_cast<std::uint8_t>(text[0]));
      break;
    default: answer = Send(found->second, static_cast<WParam>(word.first), word.second);
  }
  if (word.mark == '=') notes_.push_back(std::to_string(answer));
  return true;
}

// The middle of the character's left edge.
PixelPoint EditBoxScript::ScreenPoint(int offset) {
  PixelPoint point = PointOfLParam(Send(kEmPosFromChar, static_cast<WParam>(offset)));
  point.x += 1;
  point.y += 2;
  windows_.ClientToScreen(window_, point);
  return point;
}

bool EditBoxScript::UsePointer(const Word& word) {
  if (word.name == "wheel") {
    driver_.MovePointer(
        ScreenPoint(static_cast<int>(Send(kEmLineIndex, static_cast<WParam>(Send(kEmGetFirstVisibleLine))))));
    driver_.Wheel(word.first);
  } else if (word.name == "click") {
    driver_.Click(ScreenPoint(word.first));
  } else if (word.name == "dbl") {
    driver_.DoubleClick(ScreenPoint(word.first));
  } else if (word.name == "shiftclick") {
    // As messages: some display servers let go of the key when the pointer is moved.
    PixelPoint point = ScreenPoint(word.first);
    windows_.ScreenToClient(window_, point);
    Send(kWmLButtonDown, kMkLButton | kMkShift, LParamOfPoint(point));
    Send(kWmLButtonUp, kMkShift, LParamOfPoint(point));
  } else if (word.name == "drag") {
    driver_.MovePointer(ScreenPoint(word.first));
    driver_.Press(kLeftButton);
    driver_.MovePointer(ScreenPoint(word.second));
    driver_.Release(kLeftButton);
  } else {
    return false;
  }
  return true;
}

void EditBoxScript::Ask(const Word& word) {
  const auto number = static_cast<WParam>(word.first);
  if (word.name == "en") {
    notes_.push_back(told_.empty() ? "-" : told_);
    told_.clear();
  } else if (word.name == "getline") {
    notes_.push_back("\"" + LineText(word.first) + "\"");
  } else if (word.name == "pos") {
    notes_.push_back(std::to_string(Send(kEmPosFromChar, number)));
  } else if (word.name == "round") {
    const LResult at = Send(kEmPosFromChar, number);
    const auto found = static_cast<std::uint32_t>(Send(kEmCharFromPos, 0, at));
    notes_.push_back(std::to_string(found & 0xFFFF) + "@" + std::to_string(found >> 16));
  } else if (Messages().count(word.name)) {
    notes_.push_back(std::to_string(Send(Messages().at(word.name), number)));
  } else {
    throw std::invalid_argument("what is " + word.whole);
  }
}

std::string EditBoxScript::LineText(int line) {
  char buffer[256] = {};
  const std::uint16_t room = sizeof buffer;
  std::memcpy(buffer, &room, sizeof room);
  const LResult length = Send(kEmGetLine, static_cast<WParam>(line), reinterpret_cast<LParam>(buffer));
  return Encoded(std::string_view(buffer, static_cast<std::size_t>(length)));
}

std::string EditBoxScript::Text() {
  std::string text(static_cast<std::size_t>(Send(kWmGetTextLength)) + 1, '\0');
  const LResult length = Send(kWmGetText, text.size(), reinterpret_cast<LParam>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

std::string EditBoxScript::State() {
  std::uint32_t start = 0;
  std::uint32_t end = 0;
  Send(kEmGetSel, reinterpret_cast<WParam>(&start), reinterpret_cast<LParam>(&end));
  const std::string text = Text();
  const std::string_view view = text;
  if (end > text.size()) return "selection beyond the text";
  const std::string before = Encoded(view.substr(0, start));
  if (start == end) return before + "|" + Encoded(view.substr(end));
  return before + "[" + Encoded(view.substr(start, end - start)) + "]" + Encoded(view.substr(end));
}

}  // namespace levelwidgets::testing
