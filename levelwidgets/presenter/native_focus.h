// Which native window has the keyboard.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

struct SDL_Window;

namespace levelwidgets::presenter {

// The identifier of that one of `windows` that has the keyboard now; 0 when another program has it. Nothing
// where the system does not say, or while nobody has it. On an X server SDL reports a change 200 ms later.
std::optional<std::uint32_t> KeyboardOwner(std::span<SDL_Window* const> windows);

}  // namespace levelwidgets::presenter
