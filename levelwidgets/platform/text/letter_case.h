// Capital and small letters, and texts that differ in nothing else. Whatever the program's own locale is:
// those of the operating system on Windows, those of the European alphabets elsewhere.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace levelwidgets::text {

// Letters without a counterpart of the same kind stay.
char32_t UpperCase(char32_t character);
char32_t LowerCase(char32_t character);
std::string UpperCase(std::string_view utf8);
std::string LowerCase(std::string_view utf8);

// The length of the beginning of `text` that equals `word` except for the case; 0 when it does not begin so.
std::size_t MatchIgnoringCase(std::string_view text, std::string_view word);
bool EqualIgnoringCase(std::string_view a, std::string_view b);

// "a" to "z" for ASCII letters, other bytes as they are.
constexpr char AsciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

}  // namespace levelwidgets::text
