#include <levelwidgets/presenter/native_title.h>

#include <levelwidgets/presenter/xlib.h>

namespace levelwidgets::presenter {

namespace {

#ifdef SDL_VIDEO_DRIVER_X11

void SetText(Display* display, ::Window window, const char* property, const std::string& text) {
  using InternAtom = Atom (*)(Display*, const char*, Bool);
  using ChangeProperty = int (*)(Display*, ::Window, Atom, Atom, int, int, const unsigned char*, int);
  static const Xlib xlib;
  static const auto intern_atom = xlib.Load<InternAtom>("XInternAtom");
  static const auto change_property = xlib.Load<ChangeProperty>("XChangeProperty");
  if (!intern_atom || !change_property) return;
  constexpr int kBitsOfUnit = 8;
  change_property(display, window, intern_atom(display, property, False),
                  intern_atom(display, "UTF8_STRING", False), kBitsOfUnit, PropModeReplace,
                  reinterpret_cast<const unsigned char*>(text.data()), static_cast<int>(text.size()));
}

// SDL converts a title by the locale of the process. In the C locale, which a program has unless it asks for
// another one, nothing but ASCII arrives.
void SetTextOfX11(SDL_Window* window, const std::string& title) {
  SDL_SysWMinfo info{};
  if (!IsOnX11(window, info)) return;
  for (const char* property : {"_NET_WM_NAME", "_NET_WM_ICON_NAME"}) {
    SetText(info.info.x11.display, info.info.x11.window, property, title);
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
