#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets::text {
namespace {

constexpr char32_t kLastCharacter = 0x10FFFF;

std::size_t LengthByLead(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

constexpr bool IsSurrogate(char32_t character) { return character >= 0xD800 && character < 0xE000; }

// Nothing when the bytes at the front are no character.
std::optional<char32_t> Decode(std::string_view utf8, std::size_t length) {
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  if (length == 0 || length > utf8.size()) return std::nullopt;
  const auto lead = static_cast<unsigned char>(utf8.front());
  char32_t character = length == 1 ? lead : lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if (!IsContinuation(utf8[i])) return std::nullopt;
    character = character << 6 | (static_cast<unsigned char>(utf8[i]) & 0x3FU);
  }
  if (character < kLeast[length] || character > kLastCharacter || IsSurrogate(character)) return std::nullopt;
  return character;
}

}  // namespace

char32_t TakeCharacter(std::string_view& utf8) {
  const auto lead = static_cast<unsigned char>(utf8.front());
  const std::size_t length = LengthByLead(lead);
  const std::optional<char32_t> character = Decode(utf8, length);
  utf8.remove_prefix(character ? length : 1);
  return character.value_or(kIllFormedByte + lead);
}

std::string_view FirstCharacter(std::string_view utf8) {
  std::string_view rest = utf8;
  if (!rest.empty()) TakeCharacter(rest);
  return utf8.substr(0, utf8.size() - rest.size());
}

void AppendCharacter(char32_t character, std::string& utf8) {
  const auto append = [&utf8](char32_t byte) { utf8 += static_cast<char>(byte); };
  if (character >= kIllFormedByte) return append(character - kIllFormedByte);
  if (character < 0x80) return append(character);
  if (character < 0x800) {
    append(0xC0 | character >> 6);
  } else {
    if (character < 0x10000) {
      append(0xE0 | character >> 12);
    } else {
      append(0xF0 | character >> 18);
      append(0x80 | (character >> 12 & 0x3F));
    }
    append(0x80 | (character >> 6 & 0x3F));
  }
  append(0x80 | (character & 0x3F));
}

std::size_t CharacterCount(std::string_view utf8) {
  std::size_t count = 0;
  for (; !utf8.empty(); ++count) TakeCharacter(utf8);
  return count;
}

std::size_t ByteOfCharacter(std::string_view utf8, std::size_t place) {
  const std::size_t all = utf8.size();
  for (; place > 0 && !utf8.empty(); --place) TakeCharacter(utf8);
  return all - utf8.size();
}

std::optional<std::size_t> FindIllFormed(std::string_view utf8) {
  std::string_view rest = utf8;
  while (!rest.empty()) {
    const std::size_t at = utf8.size() - rest.size();
    if (TakeCharacter(rest) >= kIllFormedByte) return at;
  }
  return std::nullopt;
}

}  // namespace levelwidgets::text
