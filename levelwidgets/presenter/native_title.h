// The titles of native windows.
#pragma once

#include <string>

struct SDL_Window;

namespace levelwidgets::presenter {

// In any language. `title` is UTF-8.
void SetNativeTitle(SDL_Window* window, const std::string& title);

}  // namespace levelwidgets::presenter
