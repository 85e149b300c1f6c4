#include <levelwidgets/presenter/native_title.h>

#include <SDL.h>
#include <SDL_syswm.h>

namespace levelwidgets::presenter {

namespace {

#ifdef SDL_VIDEO_DRIVER_X11

// Those of Xlib that are needed here, from where SDL has them: programs need no Xlib of their own to link.
class Xlib {
 public:
  Xlib()
      : library_(SDL_LoadObject("libX11.so.6")),
        intern_atom_(Load<InternAtom>("XInternAtom")),
        change_property_(Load<ChangeProperty>("XChangeProperty")) {}
  Xlib(const Xlib&) = delete;
  Xlib& operator=(const Xlib&) = delete;
  ~Xlib() { SDL_UnloadObject(library_); }

  void SetText(Display* display, ::Window window, const char* property, const std::string& text) const {
    if (!intern_atom_ || !change_property_) return;
    constexpr int kBitsOfUnit = 8;
    change_property_(display, window, intern_atom_(display, property, False),
                     intern_atom_(display, "UTF8_STRING", False), kBitsOfUnit, PropModeReplace,
                     reinterpret_cast<const unsigned char*>(text.data()), static_cast<int>(text.size()));
  }

 private:
  using InternAtom = Atom (*)(Display*, const char*, Bool);
  using ChangeProperty = int (*)(Display*, ::Window, Atom, Atom, int, int, const unsigned char*, int);

  template <typename Function>
  Function Load(const char* name) const {
    return library_ ? reinterpret_cast<Function>(SDL_LoadFunction(library_, name)) : nullptr;
  }

  void* library_;
  InternAtom intern_atom_;
  ChangeProperty change_property_;
};

// SDL converts a title by the locale of the process. In the C locale, which a program has unless it asks for
// another one, nothing but ASCII arrives.
void SetTextOfX11(SDL_Window* window, const std::string& title) {
  SDL_SysWMinfo info{};
  SDL_VERSION(&info.version);
  if (!SDL_GetWindowWMInfo(window, &info) || info.subsystem != SDL_SYSWM_X11) return;
  static const Xlib xlib;
  for (const char* property : {"_NET_WM_NAME", "_NET_WM_ICON_NAME"}) {
    xlib.SetText(info.info.x11.display, info.info.x11.window, property, title);
  }
}

#endif

}  // namespace

void SetNativeTitle(SDL_Window* window, const std::string& title) {
  SDL_SetWindowTitle(window, title.c_str());
#ifdef SDL_VIDEO_DRIVER_X11
  SetTextOfX11(window, title);
#endif
}

}  // namespace levelwidgets::presenter
