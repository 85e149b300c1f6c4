// The code page that texts pass through on their way to the screen.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace levelwidgets::text {

// A character's code is its byte, or in the code pages of East Asia that of a pair of bytes: the first one
// times 256 plus the second. No second byte is below 0x40, so that blanks, line breaks, digits and "&" are
// always characters of their own.
using CharacterCode = std::uint16_t;

class CodePage {
 public:
  // `number` is a code page of single bytes (1250 to 1258, 437, 850, 866, 874, 28591 ...) or of pairs as well
  // (932, 936, 949, 950); for any other 1252 is taken.
  explicit CodePage(int number);

  int Number() const { return number_; }
  bool HasPairs() const { return !pairs_.empty(); }

  // The character of a code; a byte without one stands for itself, and a pair for the replacement character.
  char32_t Unicode(CharacterCode code) const {
    return code < kFirstPair ? unicode_[code & 0xFF] : pairs_.empty() ? U'?' : pairs_[code - kFirstPair];
  }
  // "?" for a character outside the code page.
  CharacterCode Code(char32_t character) const;

  // The code at the front of `bytes`, which are not empty and move behind it. The first byte of a pair whose
  // second is missing is a character of its own.
  CharacterCode TakeCode(std::string_view& bytes) const {
    const auto first = static_cast<std::uint8_t>(bytes.front());
    const bool pair = bytes.size() > 1 && IsPair(bytes[0], bytes[1]);
    const auto code = pair ? first << 8 | static_cast<std::uint8_t>(bytes[1]) : first;
    bytes.remove_prefix(pair ? 2 : 1);
    return static_cast<CharacterCode>(code);
  }
  // Whether `byte` is the first of a pair, where a character begins with it and a second one follows.
  bool IsFirst(char byte) const { return HasPairs() && firsts_[static_cast<std::uint8_t>(byte)]; }
  bool IsPair(char first, char second) const {
    return IsFirst(first) && static_cast<std::uint8_t>(second) >= kLeastSecond;
  }
  // Whether the byte at `offset` is the second of a pair; `at(i)` is byte i of the text.
  template <typename At>
  bool IsSecond(const At& at, std::size_t offset) const {
    if (!HasPairs() || offset == 0 || static_cast<std::uint8_t>(at(offset)) < kLeastSecond) return false;
    // Before the first bytes in front of it a character ends, so that they are pairs among themselves.
    std::size_t firsts = 0;
    while (firsts < offset && IsFirst(at(offset - 1 - firsts))) ++firsts;
    return firsts % 2 == 1;
  }

  // Appends the bytes of `utf8` to `bytes`; an ill-formed sequence becomes one "?" per byte.
  void Append(std::string_view utf8, std::string& bytes) const;
  std::string ToBytes(std::string_view utf8) const;
  std::string ToUtf8(std::string_view bytes) const;

 private:
  static constexpr CharacterCode kFirstPair = 0x8000;
  static constexpr std::uint8_t kLeastSecond = 0x40;
  struct Entry {
    char32_t character;
    CharacterCode code;
  };

  bool FillTables();
  void BuildInverse();

  int number_;
  std::array<char32_t, 256> unicode_{};
  std::array<bool, 256> firsts_{};  // the first bytes of pairs
  std::vector<char32_t> pairs_;     // from kFirstPair on; none in a code page of single bytes
  std::vector<Entry> inverse_;      // of the codes above 0x7F, ordered by character
};

// Whether `number` is a code page that there is here.
bool IsCodePage(int number);

// The code page whose bytes a font of `charset` shows; `system` for the sets that follow the system.
int CodePageOfCharset(int charset, int system);

}  // namespace levelwidgets::text
