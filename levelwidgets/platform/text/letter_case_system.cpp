#include <levelwidgets/platform/text/letter_case.h>

#include <windows.h>

namespace levelwidgets::text {
namespace {

// By the letters' own cases, not by a language's (Turkish has others).
char32_t Mapped(char32_t character, DWORD kind) {
  constexpr char32_t kFirstPair = 0x10000;
  if (character >= kFirstPair) return character;  // two units; none of them is in a code page
  const auto unit = static_cast<WCHAR>(character);
  WCHAR mapped = unit;
  return ::LCMapStringEx(LOCALE_NAME_INVARIANT, kind, &unit, 1, &mapped, 1, nullptr, nullptr, 0) == 1
             ? mapped
             : character;
}

}  // namespace

char32_t UpperCase(char32_t character) { return Mapped(character, LCMAP_UPPERCASE); }
char32_t LowerCase(char32_t character) { return Mapped(character, LCMAP_LOWERCASE); }

}  // namespace levelwidgets::text
