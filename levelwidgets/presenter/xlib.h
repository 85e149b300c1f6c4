// What is needed of Xlib itself, from where SDL has it: programs need no Xlib of their own to link.
#pragma once

#include <SDL.h>
#include <SDL_syswm.h>

namespace levelwidgets::presenter {

#ifdef SDL_VIDEO_DRIVER_X11

class Xlib {
 public:
  Xlib() : library_(SDL_LoadObject("libX11.so.6")) {}
  Xlib(const Xlib&) = delete;
  Xlib& operator=(const Xlib&) = delete;
  ~Xlib() { SDL_UnloadObject(library_); }

  // Null when the library has no function of that name.
  template <typename Function>
  Function Load(const char* name) const {
    return library_ ? reinterpret_cast<Function>(SDL_LoadFunction(library_, name)) : nullptr;
  }

 private:
  void* library_;
};

// Whether `window` is one of an X server; `info` is then what it is there.
inline bool IsOnX11(SDL_Window* window, SDL_SysWMinfo& info) {
  SDL_VERSION(&info.version);
  return window && SDL_GetWindowWMInfo(window, &info) && info.subsystem == SDL_SYSWM_X11;
}

#endif

}  // namespace levelwidgets::presenter
