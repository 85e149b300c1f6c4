#include <levelwidgets/presenter/native_keys.h>

#include <SDL.h>

#include <algorithm>
#include <span>

#include <levelwidgets/platform/constants.h>
#include <levelwidgets/platform/memory/memory_keys.h>

namespace levelwidgets::presenter {

namespace {

struct SymbolCode {
  SDL_Keycode symbol;
  int code;
};

constexpr SymbolCode kSymbols[] = {
    {SDLK_BACKSPACE, kKeyBackspace},
    {SDLK_TAB, kKeyTab},
    {SDLK_RETURN, kKeyEnter},
    {SDLK_KP_ENTER, kKeyEnter},
    {SDLK_LSHIFT, kKeyShift},
    {SDLK_RSHIFT, kKeyShift},
    {SDLK_LCTRL, kKeyControl},
    {SDLK_RCTRL, kKeyControl},
    {SDLK_LALT, kKeyAlt},
    {SDLK_RALT, kKeyAlt},
    {SDLK_PAUSE, 19},
    {SDLK_CAPSLOCK, 20},
    {SDLK_ESCAPE, kKeyEscape},
    {SDLK_SPACE, kKeySpace},
    {SDLK_PAGEUP, kKeyPageUp},
    {SDLK_PAGEDOWN, kKeyPageDown},
    {SDLK_END, kKeyEnd},
    {SDLK_HOME, kKeyHome},
    {SDLK_LEFT, kKeyLeft},
    {SDLK_UP, kKeyUp},
    {SDLK_RIGHT, kKeyRight},
    {SDLK_DOWN, kKeyDown},
    {SDLK_PRINTSCREEN, 44},
    {SDLK_INSERT, kKeyInsert},
    {SDLK_DELETE, kKeyDelete},
    {SDLK_LGUI, 91},
    {SDLK_RGUI, 92},
    {SDLK_APPLICATION, 93},
    {SDLK_KP_MULTIPLY, 106},
    {SDLK_KP_PLUS, 107},
    {SDLK_KP_MINUS, 109},
    {SDLK_KP_DIVIDE, 111},
    {SDLK_NUMLOCKCLEAR, 144},
    {SDLK_SCROLLLOCK, 145},
    {';', 186},
    {'=', 187},
    {'+', 187},
    {',', 188},
    {'-', 189},
    {'.', 190},
    {'/', 191},
    {'`', 192},
    {'[', 219},
    {'\\', 220},
    {']', 221},
    {'\'', 222},
};

// By the place of the key on a US keyboard.
constexpr SymbolCode kPositions[] = {
    {SDL_SCANCODE_SEMICOLON, 186},    {SDL_SCANCODE_EQUALS, 187},      {SDL_SCANCODE_COMMA, 188},
    {SDL_SCANCODE_MINUS, 189},        {SDL_SCANCODE_PERIOD, 190},      {SDL_SCANCODE_SLASH, 191},
    {SDL_SCANCODE_GRAVE, 192},        {SDL_SCANCODE_LEFTBRACKET, 219}, {SDL_SCANCODE_BACKSLASH, 220},
    {SDL_SCANCODE_RIGHTBRACKET, 221}, {SDL_SCANCODE_APOSTROPHE, 222},
};

// Keypad digits and the point, with the lock and without.
struct KeypadKey {
  SDL_Keycode symbol;
  int digit;
  int motion;
};
constexpr KeypadKey kKeypad[] = {
    {SDLK_KP_0, 96, kKeyInsert},   {SDLK_KP_1, 97, kKeyEnd},          {SDLK_KP_2, 98, kKeyDown},
    {SDLK_KP_3, 99, kKeyPageDown}, {SDLK_KP_4, 100, kKeyLeft},        {SDLK_KP_5, 101, 12},
    {SDLK_KP_6, 102, kKeyRight},   {SDLK_KP_7, 103, kKeyHome},        {SDLK_KP_8, 104, kKeyUp},
    {SDLK_KP_9, 105, kKeyPageUp},  {SDLK_KP_PERIOD, 110, kKeyDelete},
};

int CodeIn(std::span<const SymbolCode> table, std::int32_t symbol) {
  const auto found = std::ranges::find(table, symbol, &SymbolCode::symbol);
  return found == table.end() ? 0 : found->code;
}

int CodeOfKeypad(const NativeKey& key) {
  const auto found = std::ranges::find(kKeypad, key.symbol, &KeypadKey::symbol);
  if (found == std::end(kKeypad)) return 0;
  return (key.held & KMOD_NUM) != 0 ? found->digit : found->motion;
}

// Also where the digits need Shift, or the layout has letters of another alphabet.
int CodeOfPosition(int position) {
  if (position >= SDL_SCANCODE_1 && position <= SDL_SCANCODE_9) return '1' + position - SDL_SCANCODE_1;
  if (position == SDL_SCANCODE_0) return '0';
  if (position >= SDL_SCANCODE_A && position <= SDL_SCANCODE_Z) return 'A' + position - SDL_SCANCODE_A;
  return CodeIn(kPositions, position);
}

bool IsDigitPosition(int position) { return position >= SDL_SCANCODE_1 && position <= SDL_SCANCODE_0; }

bool IsOwnCharacter(const NativeKey& key) {
  return key.text.size() == 1 && SDL_tolower(key.text[0]) == key.symbol;
}

}  // namespace

int CodeOfKey(const NativeKey& key) {
  if (IsDigitPosition(key.position)) return CodeOfPosition(key.position);
  if (key.symbol >= 'a' && key.symbol <= 'z') return key.symbol - 'a' + 'A';
  if (key.symbol >= SDLK_F1 && key.symbol <= SDLK_F12) return 112 + key.symbol - SDLK_F1;
  if (key.symbol >= SDLK_F13 && key.symbol <= SDLK_F24) return 124 + key.symbol - SDLK_F13;
  if (const int code = CodeOfKeypad(key)) return code;
  if (const int code = CodeIn(kSymbols, key.symbol)) return code;
  return CodeOfPosition(key.position);
}

int ShiftOfHeld(std::uint16_t held) {
  return ((held & KMOD_SHIFT) != 0 ? kShiftMask : 0) | ((held & KMOD_CTRL) != 0 ? kCtrlMask : 0) |
         ((held & KMOD_ALT) != 0 ? kAltMask : 0);
}

// The right Alt key types characters in some layouts (then it counts as Ctrl with Alt, as on Windows) and is
// an Alt key in others, where the key's own character comes.
KeyPress PressOf(const NativeKey& key, char& own) {
  KeyPress press{CodeOfKey(key), ShiftOfHeld(key.held), key.text};
  const bool types_by_alt = (key.held & KMOD_RALT) != 0 && !key.text.empty() && !IsOwnCharacter(key);
  if (types_by_alt) {
    press.shift |= kCtrlMask | kAltMask;
    return press;
  }
  const bool command = (press.shift & (kCtrlMask | kAltMask)) != 0;
  if (!command && !key.text.empty()) return press;
  const auto character = memory::CharacterOfKey(press.code, press.shift);
  const bool control = character && (*character < ' ' || *character == 127);
  press.text = {};
  if (character && (command || control)) {
    own = *character;
    press.text = {&own, 1};
  }
  return press;
}

}  // namespace levelwidgets::presenter
