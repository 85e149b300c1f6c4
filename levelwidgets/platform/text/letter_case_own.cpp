// The letters of the Latin, Greek and Cyrillic alphabets, for systems whose own depend on the user's locale.
#include <levelwidgets/platform/text/letter_case.h>

namespace levelwidgets::text {
namespace {

// Capitals from `first` to `last`, every `step`th; the small letter is `distance` further on.
struct Letters {
  char32_t first;
  char32_t last;
  char32_t step;
  char32_t distance;
};

constexpr Letters kLetters[] = {
    {U'A', U'Z', 1, 32},   {0xC0, 0xD6, 1, 32},   {0xD8, 0xDE, 1, 32},   {0x100, 0x12E, 2, 1},
    {0x132, 0x136, 2, 1},  {0x139, 0x147, 2, 1},  {0x14A, 0x176, 2, 1},  {0x179, 0x17D, 2, 1},
    {0x386, 0x386, 1, 38}, {0x388, 0x38A, 1, 37}, {0x38C, 0x38C, 1, 64}, {0x38E, 0x38F, 1, 63},
    {0x391, 0x3A1, 1, 32}, {0x3A3, 0x3AB, 1, 32}, {0x400, 0x40F, 1, 80}, {0x410, 0x42F, 1, 32},
    {0x490, 0x490, 1, 1},
};

// The one small letter whose capital lies behind it.
constexpr char32_t kSmallYDiaeresis = 0xFF;
constexpr char32_t kCapitalYDiaeresis = 0x178;

constexpr bool IsCapital(const Letters& letters, char32_t character) {
  return character >= letters.first && character <= letters.last &&
         (character - letters.first) % letters.step == 0;
}

}  // namespace

char32_t UpperCase(char32_t character) {
  if (character == kSmallYDiaeresis) return kCapitalYDiaeresis;
  for (const Letters& letters : kLetters) {
    if (IsCapital(letters, character - letters.distance)) return character - letters.distance;
  }
  return character;
}

char32_t LowerCase(char32_t character) {
  if (character == kCapitalYDiaeresis) return kSmallYDiaeresis;
  for (const Letters& letters : kLetters) {
    if (IsCapital(letters, character)) return character + letters.distance;
  }
  return character;
}

}  // namespace levelwidgets::text
