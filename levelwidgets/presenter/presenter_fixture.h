// For tests of the presenter: a desktop with a form, shown on a display without a screen.
#pragma once

#include <SDL.h>

#include <cstdlib>
#include <stdexcept>

#include <levelwidgets/platform/memory/desktop_fixture.h>
#include <levelwidgets/presenter/presenter.h>

namespace levelwidgets::presenter {

// The form's client area is (100, 100, 400, 300), with two children in it, (10, 10, 60, 60) and
// (60, 10, 110, 60).
class PresenterTest : public memory::DesktopTest {
 protected:
  static constexpr std::uint32_t kFormStyle = kWsCaption | kWsThickFrame | kWsVisible | kWsClipChildren;

  PresenterTest() { presenter.Sync(); }

  static std::unique_ptr<NativeDisplay> Open(std::optional<double> scale) {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    std::string why;
    auto display = NativeDisplay::Open(scale, why);
    unsetenv("SDL_VIDEODRIVER");
    if (!display) throw std::runtime_error(why);
    return display;
  }

  WindowHandle MakeForm(const std::string& name, PixelRect area, std::uint32_t style = kFormStyle) {
    return MakeTop(name, windows.AdjustWindowRectEx(area, style, 0), style);
  }
  WindowHandle MakePopup(PixelRect rect) {
    const WindowHandle popup = MakeTop("popup", rect, kWsPopup | kWsBorder);
    windows.SetWindowPos(popup, {kHwndTopMost}, {},
                         kSwpNoMove | kSwpNoSize | kSwpNoActivate | kSwpShowWindow);
    return popup;
  }
  void Paint(WindowHandle window, PixelRect area, ColorRef color) {
    desktop.Settle();
    const ObjectHandle brush = desktop.Drawing().CreateSolidBrush(color);
    desktop.Drawing().FillRect(windows.GetDC(window), area, brush);
    desktop.Drawing().DeleteObject(brush);
  }

  // --- The native side -----------------------------------------------------------------------------

  SDL_Window* Native(WindowHandle window) { return SDL_GetWindowFromID(presenter.NativeIdOf(window)); }
  std::uint32_t Flags(WindowHandle window) { return SDL_GetWindowFlags(Native(window)); }
  PixelSize NativeSize(WindowHandle window) {
    PixelSize size;
    SDL_GetWindowSize(Native(window), &size.width, &size.height);
    return size;
  }
  PixelPoint NativePlace(WindowHandle window) {
    PixelPoint place;
    SDL_GetWindowPosition(Native(window), &place.x, &place.y);
    return place;
  }
  // 0x00RRGGBB
  std::uint32_t NativePixel(WindowHandle window, int x, int y) {
    const SDL_Surface* surface = SDL_GetWindowSurface(Native(window));
    std::uint32_t pixel = 0;
    SDL_memcpy(&pixel, static_cast<const std::uint8_t*>(surface->pixels) + y * surface->pitch + x * 4, 4);
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    SDL_GetRGB(pixel, surface->format, &red, &green, &blue);
    return static_cast<std::uint32_t>(red << 16 | green << 8 | blue);
  }
  static std::string NativeClipboard() {
    const std::unique_ptr<char, void (*)(void*)> text(SDL_GetClipboardText(), SDL_free);
    return text.get();
  }

  // --- Events --------------------------------------------------------------------------------------

  void Handle(const std::vector<SDL_Event>& events) { presenter.Handle(events); }

  SDL_Event WindowEvent(WindowHandle window, std::uint8_t what, int x = 0, int y = 0) {
    SDL_Event event{};
    event.type = SDL_WINDOWEVENT;
    event.window.windowID = presenter.NativeIdOf(window);
    event.window.event = what;
    event.window.data1 = x;
    event.window.data2 = y;
    return event;
  }
  SDL_Event Motion(WindowHandle window, int x, int y) {
    SDL_Event event{};
    event.type = SDL_MOUSEMOTION;
    event.motion.windowID = presenter.NativeIdOf(window);
    event.motion.x = x;
    event.motion.y = y;
    return event;
  }
  SDL_Event Button(WindowHandle window, std::uint32_t what, int x, int y, int button = SDL_BUTTON_LEFT) {
    SDL_Event event{};
    event.type = what;
    event.button.windowID = presenter.NativeIdOf(window);
    event.button.button = static_cast<std::uint8_t>(button);
    event.button.x = x;
    event.button.y = y;
    return event;
  }
  static SDL_Event Key(std::uint32_t what, SDL_Keycode symbol, int held = 0) {
    SDL_Event event{};
    event.type = what;
    event.key.keysym.sym = symbol;
    event.key.keysym.mod = static_cast<std::uint16_t>(held);
    return event;
  }
  static SDL_Event Text(const std::string& text) {
    SDL_Event event{};
    event.type = SDL_TEXTINPUT;
    SDL_strlcpy(event.text.text, text.c_str(), sizeof(event.text.text));
    return event;
  }

  // --- What the desktop's windows got ----------------------------------------------------------------

  memory::Log Messages(const std::string& kind) {
    memory::Log lines;
    for (const std::string& line : Take()) {
      if (line.find(kind) != std::string::npos && line.find("MouseActivate") == std::string::npos) {
        lines.push_back(line);
      }
    }
    return lines;
  }
  // Without paints, questions about activation and what comes with a change of it.
  memory::Log Input() {
    memory::Log lines;
    for (const std::string& line : Take()) {
      const bool noise = line.ends_with(" Paint") || line.find("Activate") != std::string::npos ||
                         line.find("Focus") != std::string::npos;
      if (!noise) lines.push_back(line);
    }
    return lines;
  }

  std::unique_ptr<NativeDisplay> display_ = Open(1);
  WindowHandle form = MakeForm("form", {100, 100, 400, 300});
  WindowHandle left = MakeChild("left", form, {10, 10, 60, 60});
  WindowHandle right = MakeChild("right", form, {60, 10, 110, 60});
  Presenter presenter{*display_, desktop};
};

}  // namespace levelwidgets::presenter
