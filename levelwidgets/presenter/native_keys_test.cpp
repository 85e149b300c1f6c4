#include <levelwidgets/presenter/native_keys.h>

#include <SDL.h>
#include <gtest/gtest.h>

#include <levelwidgets/platform/constants.h>

namespace levelwidgets::presenter {
namespace {

constexpr int kElsewhere = SDL_SCANCODE_UNKNOWN;

int Code(std::int32_t symbol, int position = kElsewhere, std::uint16_t held = 0) {
  return CodeOfKey({symbol, position, held, ""});
}

struct Press {
  int code;
  int shift;
  std::string text;
  friend bool operator==(const Press&, const Press&) = default;
};
void PrintTo(const Press& press, std::ostream* out) {
  *out << press.code << " with " << press.shift << " types \"" << press.text << "\"";
}

Press PressOfKey(std::int32_t symbol, int held, std::string_view text) {
  char own = 0;
  const KeyPress press = PressOf({symbol, kElsewhere, static_cast<std::uint16_t>(held), text}, own);
  return {press.code, press.shift, std::string(press.text)};
}

TEST(NativeKeys, LettersAreThoseOfTheLayout) {
  EXPECT_EQ(Code(SDLK_a, SDL_SCANCODE_Q), 'A');
  EXPECT_EQ(Code(SDLK_z, SDL_SCANCODE_Y), 'Z');
}

TEST(NativeKeys, LettersOfAnotherAlphabetAreWhereAUsKeyboardHasThem) {
  EXPECT_EQ(Code(0x444, SDL_SCANCODE_A), 'A');
  EXPECT_EQ(Code(0xF6, SDL_SCANCODE_SEMICOLON), 186);
}

TEST(NativeKeys, DigitKeysAreDigitsEvenWhereTheyNeedShift) {
  EXPECT_EQ(Code('&', SDL_SCANCODE_1), '1');
  EXPECT_EQ(Code(0xE0, SDL_SCANCODE_0), '0');
  EXPECT_EQ(Code('9', SDL_SCANCODE_9), '9');
}

TEST(NativeKeys, KeysThatControlsUseHaveTheirCodes) {
  const std::pair<SDL_Keycode, int> keys[] = {
      {SDLK_BACKSPACE, 8}, {SDLK_TAB, 9},     {SDLK_RETURN, 13},   {SDLK_KP_ENTER, 13}, {SDLK_ESCAPE, 27},
      {SDLK_SPACE, 32},    {SDLK_PAGEUP, 33}, {SDLK_PAGEDOWN, 34}, {SDLK_END, 35},      {SDLK_HOME, 36},
      {SDLK_LEFT, 37},     {SDLK_UP, 38},     {SDLK_RIGHT, 39},    {SDLK_DOWN, 40},     {SDLK_INSERT, 45},
      {SDLK_DELETE, 46},   {SDLK_F1, 112},    {SDLK_F4, 115},      {SDLK_F12, 123},     {SDLK_F13, 124},
      {SDLK_RSHIFT, 16},   {SDLK_LCTRL, 17},  {SDLK_RALT, 18},     {SDLK_KP_PLUS, 107}, {SDLK_COMMA, 188}};
  for (const auto& [symbol, code] : keys) EXPECT_EQ(Code(symbol), code) << SDL_GetKeyName(symbol);
}

TEST(NativeKeys, TheKeypadFollowsItsLock) {
  EXPECT_EQ(Code(SDLK_KP_7, kElsewhere, KMOD_NUM), 103);
  EXPECT_EQ(Code(SDLK_KP_7), kKeyHome);
  EXPECT_EQ(Code(SDLK_KP_PERIOD, kElsewhere, KMOD_NUM), 110);
  EXPECT_EQ(Code(SDLK_KP_PERIOD), kKeyDelete);
}

TEST(NativeKeys, UnknownKeysHaveNoCode) {
  EXPECT_EQ(Code(SDLK_VOLUMEUP, SDL_SCANCODE_VOLUMEUP), 0);
  EXPECT_EQ(Code(SDLK_UNKNOWN), 0);
}

TEST(NativeKeys, LeftAndRightModifierKeysGiveTheSameShiftBits) {
  EXPECT_EQ(ShiftOfHeld(0), 0);
  EXPECT_EQ(ShiftOfHeld(KMOD_RSHIFT | KMOD_LCTRL), kShiftMask | kCtrlMask);
  EXPECT_EQ(ShiftOfHeld(KMOD_LALT | KMOD_NUM | KMOD_CAPS), kAltMask);
}

TEST(NativeKeys, AKeyTypesWhatTheLayoutSays) {
  EXPECT_EQ(PressOfKey(SDLK_a, 0, "a"), (Press{'A', 0, "a"}));
  EXPECT_EQ(PressOfKey(SDLK_a, KMOD_LSHIFT, "A"), (Press{'A', kShiftMask, "A"}));
  EXPECT_EQ(PressOfKey(SDLK_a, KMOD_CAPS, "A"), (Press{'A', 0, "A"}));
  EXPECT_EQ(PressOfKey(SDLK_e, 0, "\xC3\xAA"), (Press{'E', 0, "\xC3\xAA"}));
}

TEST(NativeKeys, AKeyWithoutTextHasOnlyAControlCharacterOfItsOwn) {
  EXPECT_EQ(PressOfKey(SDLK_e, 0, ""), (Press{'E', 0, ""}));  // after a dead key, or in an input method
  EXPECT_EQ(PressOfKey(SDLK_RETURN, 0, ""), (Press{13, 0, "\r"}));
  EXPECT_EQ(PressOfKey(SDLK_BACKSPACE, 0, ""), (Press{8, 0, "\b"}));
  EXPECT_EQ(PressOfKey(SDLK_TAB, KMOD_LSHIFT, ""), (Press{9, kShiftMask, "\t"}));
  EXPECT_EQ(PressOfKey(SDLK_ESCAPE, 0, ""), (Press{27, 0, "\x1B"}));
  EXPECT_EQ(PressOfKey(SDLK_LEFT, 0, ""), (Press{37, 0, ""}));
}

TEST(NativeKeys, WithCtrlAKeyHasItsControlCharacterWhateverTheNativeTextIs) {
  EXPECT_EQ(PressOfKey(SDLK_v, KMOD_LCTRL, ""), (Press{'V', kCtrlMask, "\x16"}));
  EXPECT_EQ(PressOfKey(SDLK_v, KMOD_LCTRL, "v"), (Press{'V', kCtrlMask, "\x16"}));
}

TEST(NativeKeys, WithAltAKeyHasItsOwnCharacter) {
  EXPECT_EQ(PressOfKey(SDLK_s, KMOD_LALT, "s"), (Press{'S', kAltMask, "s"}));
  EXPECT_EQ(PressOfKey(SDLK_s, KMOD_LALT, ""), (Press{'S', kAltMask, "s"}));
  EXPECT_EQ(PressOfKey(SDLK_s, KMOD_RALT, "s"), (Press{'S', kAltMask, "s"}));
}

TEST(NativeKeys, TheRightAltKeyTypesTheThirdCharacterOfAKey) {
  EXPECT_EQ(PressOfKey(SDLK_e, KMOD_RALT, "\xE2\x82\xAC"),
            (Press{'E', kCtrlMask | kAltMask, "\xE2\x82\xAC"}));
  EXPECT_EQ(PressOfKey(SDLK_q, KMOD_RALT, "@"), (Press{'Q', kCtrlMask | kAltMask, "@"}));
}

}  // namespace
}  // namespace levelwidgets::presenter
