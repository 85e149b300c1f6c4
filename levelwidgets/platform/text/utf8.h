// Characters of UTF-8 texts.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace levelwidgets::text {

// One character from the front of `utf8`, which is not empty and moves behind it. A byte that begins no
// well-formed character (overlong forms and surrogates are not) stands for itself plus kIllFormedByte.
inline constexpr char32_t kIllFormedByte = 0x110000;
char32_t TakeCharacter(std::string_view& utf8);
// The bytes of that character; "" of "".
std::string_view FirstCharacter(std::string_view utf8);
void AppendCharacter(char32_t character, std::string& utf8);
std::size_t CharacterCount(std::string_view utf8);
// The byte at which the character `place`, from 0, begins; the end where there are fewer.
std::size_t ByteOfCharacter(std::string_view utf8, std::size_t place);

// Where the first ill-formed byte is.
std::optional<std::size_t> FindIllFormed(std::string_view utf8);

constexpr bool IsDigit(char byte) { return byte >= '0' && byte <= '9'; }
// Whether `byte` is one inside a character.
constexpr bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

}  // namespace levelwidgets::text
