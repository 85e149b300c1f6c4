// Native keys as the desktop's key codes and shift bits.
#pragma once

#include <cstdint>
#include <string_view>

namespace levelwidgets::presenter {

// A key as the native side reports it: what is engraved on it in the layout, where it is, what is held with
// it.
struct NativeKey {
  std::int32_t symbol = 0;  // an SDL_Keycode
  int position = 0;         // an SDL_Scancode
  std::uint16_t held = 0;   // KMOD_ bits
  std::string_view text;    // what it has typed, UTF-8; "" for nothing
};

// The desktop's code of the key; 0 for one that it does not know. Letters are where the layout has them,
// digits and what has no letter of A to Z in the layout where a US keyboard has them.
int CodeOfKey(const NativeKey& key);

// kShiftMask, kCtrlMask and kAltMask of KMOD_ bits.
int ShiftOfHeld(std::uint16_t held);

struct KeyPress {
  int code = 0;
  int shift = 0;
  std::string_view text;  // its characters, UTF-8
};

// What a key does to the desktop. `own` keeps a character that the key has by itself.
KeyPress PressOf(const NativeKey& key, char& own);

}  // namespace levelwidgets::presenter
