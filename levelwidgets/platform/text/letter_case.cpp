#include <levelwidgets/platform/text/letter_case.h>

#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets::text {
namespace {

std::string MapCharacters(std::string_view utf8, char32_t (*map)(char32_t)) {
  std::string mapped;
  mapped.reserve(utf8.size());
  while (!utf8.empty()) AppendCharacter(map(TakeCharacter(utf8)), mapped);
  return mapped;
}

constexpr bool IsAscii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

}  // namespace

std::string UpperCase(std::string_view utf8) { return MapCharacters(utf8, &UpperCase); }
std::string LowerCase(std::string_view utf8) { return MapCharacters(utf8, &LowerCase); }

std::size_t MatchIgnoringCase(std::string_view text, std::string_view word) {
  const std::size_t length = text.size();
  if (word.empty()) return 0;
  while (!word.empty()) {
    // Most texts differ in their first letter, and most letters need no table.
    if (!text.empty() && IsAscii(text.front()) && IsAscii(word.front())) {
      if (AsciiLower(text.front()) != AsciiLower(word.front())) return 0;
      text.remove_prefix(1);
      word.remove_prefix(1);
      continue;
    }
    if (text.empty() || UpperCase(TakeCharacter(text)) != UpperCase(TakeCharacter(word))) return 0;
  }
  return length - text.size();
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return a.empty() ? b.empty() : MatchIgnoringCase(b, a) == b.size() && !b.empty();
}

}  // namespace levelwidgets::text
