// The keyboard of the desktop in memory: a US layout.
#pragma once

#include <cstdint>
#include <optional>

namespace levelwidgets::memory {

// In the second number of a key message: Alt is held.
inline constexpr std::uint32_t kAltContext = 1u << 29;

// The character that key `code` gives with the shift bits held: also the control characters 1 to 26 of
// Ctrl with a letter, and those of Enter, Tab, Backspace and Escape. Nothing for other keys, and with
// Ctrl and Alt together.
std::optional<char> CharacterOfKey(int code, int shift);

struct KeyStroke {
  int code = 0;
  int shift = 0;
};

// The key that types an ASCII character; nothing for a character that no key has.
std::optional<KeyStroke> KeyOfCharacter(char character);

}  // namespace levelwidgets::memory
