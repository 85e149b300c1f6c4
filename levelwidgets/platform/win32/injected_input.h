// Input that the system takes for a person's.
#pragma once

#include <cstdint>

#include <levelwidgets/platform/types.h>

namespace levelwidgets::win32 {

void InjectMove(PixelPoint screen);
// `button` is one of kLeftButton, kRightButton, kMiddleButton. `time` decides what is a double click, in
// milliseconds; 0 is the present.
void InjectButton(int button, bool down, std::uint32_t time);
void InjectWheel(int notches);
void InjectKey(int code, bool down);
// A character that no key of the keyboard makes.
void InjectCharacter(wchar_t unit, bool down);

}  // namespace levelwidgets::win32
