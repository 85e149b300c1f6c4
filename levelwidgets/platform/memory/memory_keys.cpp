#include <levelwidgets/platform/memory/memory_keys.h>

#include <string_view>

#include <levelwidgets/platform/constants.h>

namespace levelwidgets::memory {

namespace {

struct KeyCap {
  int code;
  char plain;
  char shifted;
};

constexpr KeyCap kKeyCaps[] = {
    {'0', '0', ')'},  {'1', '1', '!'}, {'2', '2', '@'},  {'3', '3', '#'}, {'4', '4', '$'}, {'5', '5', '%'},
    {'6', '6', '^'},  {'7', '7', '&'}, {'8', '8', '*'},  {'9', '9', '('}, {186, ';', ':'}, {187, '=', '+'},
    {188, ',', '<'},  {189, '-', '_'}, {190, '.', '>'},  {191, '/', '?'}, {192, '`', '~'}, {219, '[', '{'},
    {220, '\\', '|'}, {221, ']', '}'}, {222, '\'', '"'}, {106, '*', '*'}, {107, '+', '+'}, {109, '-', '-'},
    {110, '.', '.'},  {111, '/', '/'},
};

constexpr int kNumPad0 = 96;
constexpr int kNumPad9 = 105;
constexpr char kDeleteCharacter = 127;
constexpr char kLineFeed = 10;

bool IsLetter(int code) { return code >= 'A' && code <= 'Z'; }

std::optional<char> ControlCharacter(int code) {
  if (IsLetter(code)) return static_cast<char>(code - 'A' + 1);
  switch (code) {
    case kKeyEnter: return kLineFeed;
    case kKeyBackspace: return kDeleteCharacter;
    case kKeyEscape:
    case 219: return char{27};  // [
    case 220: return char{28};  // backslash
    case 221: return char{29};  // ]
    case kKeySpace: return ' ';
    default: return {};
  }
}

std::optional<char> PlainCharacter(int code, bool shifted) {
  if (IsLetter(code)) return static_cast<char>(shifted ? code : code - 'A' + 'a');
  if (code >= kNumPad0 && code <= kNumPad9) return static_cast<char>('0' + code - kNumPad0);
  switch (code) {
    case kKeyEnter:
    case kKeyEscape:
    case kKeyBackspace:
    case kKeyTab:
    case kKeySpace: return static_cast<char>(code);
    default: break;
  }
  for (const KeyCap& cap : kKeyCaps) {
    if (cap.code == code) return shifted ? cap.shifted : cap.plain;
  }
  return {};
}

}  // namespace

std::optional<char> CharacterOfKey(int code, int shift) {
  const bool ctrl = (shift & kCtrlMask) != 0;
  if (ctrl && (shift & kAltMask) != 0) return {};
  return ctrl ? ControlCharacter(code) : PlainCharacter(code, (shift & kShiftMask) != 0);
}

std::optional<KeyStroke> KeyOfCharacter(char character) {
  if (character == '\n') return KeyStroke{kKeyEnter, 0};
  if (character >= 'a' && character <= 'z') return KeyStroke{character - 'a' + 'A', 0};
  if (IsLetter(character)) return KeyStroke{character, kShiftMask};
  for (const KeyCap& cap : kKeyCaps) {
    if (cap.plain == character) return KeyStroke{cap.code, 0};
    if (cap.shifted == character) return KeyStroke{cap.code, kShiftMask};
  }
  if (std::string_view("\b\t\r\x1B ").find(character) != std::string_view::npos) {
    return KeyStroke{character, 0};
  }
  if (character >= 1 && character <= 26) return KeyStroke{character - 1 + 'A', kCtrlMask};
  return {};
}

}  // namespace levelwidgets::memory
