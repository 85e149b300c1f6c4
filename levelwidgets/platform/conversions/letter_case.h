// Capital and small letters of the European alphabets, whatever the program's own locale.
#pragma once

#include <string>
#include <string_view>

namespace levelwidgets::conversions {

// One character from the front of `utf8`, which moves behind it; an ill-formed byte stands for itself plus
// kIllFormedByte.
inline constexpr char32_t kIllFormedByte = 0x110000;
char32_t TakeCharacter(std::string_view& utf8);
void AppendCharacter(char32_t character, std::string& utf8);
std::size_t CharacterCount(std::string_view utf8);

// Letters without a counterpart of the same kind stay.
char32_t UpperCase(char32_t character);
char32_t LowerCase(char32_t character);
std::string UpperCase(std::string_view utf8);
std::string LowerCase(std::string_view utf8);

// The length of the beginning of `text` that equals `word` but for the case; 0 when it does not begin so.
std::size_t MatchIgnoringCase(std::string_view text, std::string_view word);
bool EqualIgnoringCase(std::string_view a, std::string_view b);

// "a" to "z" for ASCII letters, other bytes as they are.
constexpr char AsciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

}  // namespace levelwidgets::conversions
