#include <levelwidgets/platform/conversions/letter_case.h>

namespace levelwidgets::conversions {
namespace {

// Letters whose capital is `distance` below, or every second of a run of pairs (distance 1).
struct LetterRange {
  char32_t first;  // small letters
  char32_t last;
  char32_t distance;
};

constexpr LetterRange kRanges[] = {
    {U'a', U'z', 32},   {0xE0, 0xF6, 32},   {0xF8, 0xFE, 32},   {0x101, 0x12F, 1},
    {0x133, 0x137, 1},  {0x13A, 0x148, 1},  {0x14B, 0x177, 1},  {0x17A, 0x17E, 1},
    {0x3B1, 0x3C1, 32}, {0x3C3, 0x3CB, 32}, {0x430, 0x44F, 32}, {0x450, 0x45F, 80},
};
constexpr char32_t kSmallYDiaeresis = 0xFF;
constexpr char32_t kCapitalYDiaeresis = 0x178;

// Whether `character`, `offset` above its range's first small letter, is a small letter and no capital.
constexpr bool IsSmall(const LetterRange& range, char32_t character) {
  return character >= range.first && character <= range.last &&
         (range.distance != 1 || (character - range.first) % 2 == 0);
}

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

std::size_t LengthByLead(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

}  // namespace

char32_t TakeCharacter(std::string_view& utf8) {
  const auto lead = static_cast<unsigned char>(utf8.front());
  const std::size_t length = LengthByLead(lead);
  bool complete = length > 0 && length <= utf8.size();
  for (std::size_t i = 1; complete && i < length; ++i) complete = IsContinuation(utf8[i]);
  if (!complete) {
    utf8.remove_prefix(1);
    return kIllFormedByte + lead;
  }
  char32_t character = length == 1 ? lead : lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    character = character << 6 | (static_cast<unsigned char>(utf8[i]) & 0x3FU);
  }
  utf8.remove_prefix(length);
  return character;
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

char32_t UpperCase(char32_t character) {
  for (const LetterRange& range : kRanges) {
    if (IsSmall(range, character)) return character - range.distance;
  }
  return character == kSmallYDiaeresis ? kCapitalYDiaeresis : character;
}

char32_t LowerCase(char32_t character) {
  for (const LetterRange& range : kRanges) {
    if (IsSmall(range, character + range.distance)) return character + range.distance;
  }
  return character == kCapitalYDiaeresis ? kSmallYDiaeresis : character;
}

namespace {

std::string MapCharacters(std::string_view utf8, char32_t (*map)(char32_t)) {
  std::string mapped;
  mapped.reserve(utf8.size());
  while (!utf8.empty()) AppendCharacter(map(TakeCharacter(utf8)), mapped);
  return mapped;
}

}  // namespace

std::string UpperCase(std::string_view utf8) { return MapCharacters(utf8, &UpperCase); }
std::string LowerCase(std::string_view utf8) { return MapCharacters(utf8, &LowerCase); }

std::size_t MatchIgnoringCase(std::string_view text, std::string_view word) {
  const std::size_t length = text.size();
  if (word.empty()) return 0;
  while (!word.empty()) {
    if (text.empty() || UpperCase(TakeCharacter(text)) != UpperCase(TakeCharacter(word))) return 0;
  }
  return length - text.size();
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return a.empty() ? b.empty() : MatchIgnoringCase(b, a) == b.size() && !b.empty();
}

}  // namespace levelwidgets::conversions
