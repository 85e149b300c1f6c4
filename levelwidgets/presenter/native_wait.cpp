#include <levelwidgets/presenter/native_wait.h>

#include <poll.h>

#include <levelwidgets/presenter/xlib.h>

namespace levelwidgets::presenter {

namespace {

// Where there is no connection to wait at, this is how often the other descriptor is looked at.
constexpr int kLongestBlindWait = 250;

int ConnectionOf([[maybe_unused]] SDL_Window* window) {
#ifdef SDL_VIDEO_DRIVER_X11
  SDL_SysWMinfo info{};
  if (IsOnX11(window, info)) return ConnectionNumber(info.info.x11.display);
#endif
  return -1;
}

bool IsPending() {
  SDL_PumpEvents();
  return SDL_HasEvents(SDL_FIRSTEVENT, SDL_LASTEVENT) == SDL_TRUE;
}

}  // namespace

// SDL_WaitEventTimeout wakes itself by a message to one of the windows over a connection of its own. When
// that window closes at the same time, the X server refuses the message and Xlib ends the program.
void WaitForNative(SDL_Window* window, int descriptor, int milliseconds) {
  if (IsPending()) return;
  const int connection = ConnectionOf(window);
  if (connection >= 0) {
    pollfd ready[] = {{connection, POLLIN, 0}, {descriptor, POLLIN, 0}};
    poll(ready, 2, milliseconds);
  } else {
    const bool longer = milliseconds < 0 || milliseconds > kLongestBlindWait;
    SDL_WaitEventTimeout(nullptr, longer ? kLongestBlindWait : milliseconds);
  }
}

}  // namespace levelwidgets::presenter
