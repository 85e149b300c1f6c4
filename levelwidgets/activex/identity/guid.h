// The 128 bits that name a class, an interface or a library all over the world.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace levelwidgets {

// In memory like the system's own type of this name.
struct Guid {
  std::uint32_t data1 = 0;
  std::uint16_t data2 = 0;
  std::uint16_t data3 = 0;
  std::array<std::uint8_t, 8> data4{};

  friend constexpr bool operator==(const Guid&, const Guid&) = default;
  constexpr bool IsNull() const { return *this == Guid{}; }
};
static_assert(sizeof(Guid) == 16 && offsetof(Guid, data4) == 8);

// "{E975254E-2CE4-4229-9737-8A2C9E493AE1}" in letters of either case; nothing for any other text.
constexpr std::optional<Guid> ParseGuid(std::string_view text) {
  constexpr std::string_view kPattern = "{########-####-####-####-############}";
  if (text.size() != kPattern.size()) return std::nullopt;
  std::array<std::uint8_t, 16> bytes{};
  std::size_t digits = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (kPattern[i] != '#') {
      if (c != kPattern[i]) return std::nullopt;
      continue;
    }
    const char lower = c >= 'A' && c <= 'F' ? static_cast<char>(c - 'A' + 'a') : c;
    const bool is_letter = lower >= 'a' && lower <= 'f';
    if (!is_letter && (lower < '0' || lower > '9')) return std::nullopt;
    const int digit = is_letter ? lower - 'a' + 10 : lower - '0';
    std::uint8_t& byte = bytes[digits++ / 2];
    byte = static_cast<std::uint8_t>(byte << 4 | digit);
  }
  const auto word = [&](std::size_t at) {
    return static_cast<std::uint16_t>(bytes[at] << 8 | bytes[at + 1]);
  };
  Guid guid{static_cast<std::uint32_t>(word(0)) << 16 | word(2), word(4), word(6), {}};
  for (std::size_t i = 0; i < guid.data4.size(); ++i) guid.data4[i] = bytes[8 + i];
  return guid;
}

// A literal that is no identifier does not compile.
consteval Guid operator""_guid(const char* text, std::size_t length) {
  return ParseGuid(std::string_view(text, length)).value();
}

// In capital letters and braces, as registries show it.
std::string TextOf(const Guid& guid);

}  // namespace levelwidgets
