#include <levelwidgets/presenter/native_focus.h>

#include <levelwidgets/presenter/xlib.h>

namespace levelwidgets::presenter {

namespace {

#ifdef SDL_VIDEO_DRIVER_X11

std::optional<::Window> FocusOf(Display* display) {
  using GetInputFocus = int (*)(Display*, ::Window*, int*);
  static const Xlib xlib;
  static const auto get_input_focus = xlib.Load<GetInputFocus>("XGetInputFocus");
  if (!get_input_focus) return std::nullopt;
  ::Window focus = None;
  int revert_to = 0;
  get_input_focus(display, &focus, &revert_to);
  if (focus == None || focus == PointerRoot) return std::nullopt;
  return focus;
}

#endif

}  // namespace

std::optional<std::uint32_t> KeyboardOwner([[maybe_unused]] std::span<SDL_Window* const> windows) {
#ifdef SDL_VIDEO_DRIVER_X11
  std::optional<::Window> focus;
  for (SDL_Window* window : windows) {
    SDL_SysWMinfo info{};
    if (!IsOnX11(window, info)) return std::nullopt;
    if (!focus) focus = FocusOf(info.info.x11.display);
    if (!focus) return std::nullopt;
    if (*focus == info.info.x11.window) return SDL_GetWindowID(window);
  }
  if (focus) return 0;
#endif
  return std::nullopt;
}

}  // namespace levelwidgets::presenter
