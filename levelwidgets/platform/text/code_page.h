// The single-byte code page that texts pass through on their way to the screen.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace levelwidgets::text {

class CodePage {
 public:
  // `number` is a single-byte code page (1250 to 1258, 437, 850, 866, 874, 28591 ...); for any other
  // 1252 is taken.
  explicit CodePage(int number);

  int Number() const { return number_; }

  // The character of a byte; a byte without one stands for itself.
  char32_t Unicode(std::uint8_t byte) const { return unicode_[byte]; }
  // "?" for a character outside the code page.
  std::uint8_t Byte(char32_t character) const;

  // Appends the bytes of `utf8` to `bytes`; an ill-formed sequence becomes one "?" per byte.
  void Append(std::string_view utf8, std::string& bytes) const;
  std::string ToBytes(std::string_view utf8) const;
  std::string ToUtf8(std::string_view bytes) const;

 private:
  struct Entry {
    char32_t character;
    std::uint8_t byte;
  };

  void BuildInverse();

  int number_;
  std::array<char32_t, 256> unicode_{};
  std::vector<Entry> inverse_;  // of the bytes above 0x7F, ordered by character
};

// The code page whose bytes a font of `charset` shows; `system` for the sets that follow the system.
int CodePageOfCharset(int charset, int system);

}  // namespace levelwidgets::text
