// Waiting for what comes from the native side.
#pragma once

struct SDL_Window;

namespace levelwidgets::presenter {

// Until an event is pending, `descriptor` can be read from (-1: none), or `milliseconds` have passed (-1: for
// ever). May return before that with nothing. `window` is any of the native ones.
void WaitForNative(SDL_Window* window, int descriptor, int milliseconds);

}  // namespace levelwidgets::presenter
