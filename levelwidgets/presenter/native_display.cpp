#include <levelwidgets/presenter/native_display.h>

#include <SDL.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <string_view>

namespace levelwidgets::presenter {

namespace {

// What suits a program of forms, where the defaults are those of games.
void SetHints() {
  SDL_SetHint(SDL_HINT_APP_NAME, "LevelWidgets");
  SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
  SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
  SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
  SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");  // EndSignals has them
  SDL_SetHint(SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0");
}

bool IsSet(const char* name) {
  const char* value = std::getenv(name);
  return value && *value;
}

// Those that show windows: no bare console screen, and nothing that nobody sees unless asked for. "" where
// there is no display.
std::string Drivers() {
  std::string drivers = IsSet("SDL_VIDEODRIVER") ? std::getenv("SDL_VIDEODRIVER") : "";
#ifdef __APPLE__
  if (drivers.empty()) drivers = "cocoa";
#endif
  if (!drivers.empty()) return drivers;
  if (IsSet("DISPLAY")) drivers += "x11,";
  if (IsSet("WAYLAND_DISPLAY")) drivers += "wayland,";
  return drivers.substr(0, drivers.empty() ? 0 : drivers.size() - 1);
}

// How many pixels a native unit has; only a window knows.
double FindDensity() {
  if (std::string_view(SDL_GetCurrentVideoDriver()) == "x11") return 1;
  SDL_Window* window = SDL_CreateWindow("", 0, 0, 100, 100, SDL_WINDOW_HIDDEN | SDL_WINDOW_ALLOW_HIGHDPI);
  if (!window) return 1;
  int pixels = 0;
  int units = 0;
  SDL_GetWindowSizeInPixels(window, &pixels, nullptr);
  SDL_GetWindowSize(window, &units, nullptr);
  SDL_DestroyWindow(window);
  return units > 0 ? static_cast<double>(pixels) / units : 1;
}

double DisplayDpi() {
  float dpi = 0;
  return SDL_GetDisplayDPI(0, nullptr, &dpi, nullptr) == 0 ? dpi : kStandardDpi;
}

PixelRect FromNative(const SDL_Rect& rect) { return {rect.x, rect.y, rect.x + rect.w, rect.y + rect.h}; }

// de_DE.UTF-8 is de-DE; the conversions have a default for what they do not know.
std::string LocaleOfEnvironment() {
  for (const char* name : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
    const char* value = std::getenv(name);
    if (!value || !*value) continue;
    std::string locale(value, std::string_view(value).find_first_of(".@") == std::string_view::npos
                                  ? std::string_view(value).size()
                                  : std::string_view(value).find_first_of(".@"));
    std::ranges::replace(locale, '_', '-');
    return locale;
  }
  return {};
}

}  // namespace

std::unique_ptr<NativeDisplay> NativeDisplay::Open(std::optional<double> scale, std::string& why) {
  SetHints();
  const std::string drivers = Drivers();
  if (drivers.empty()) {
    why = "neither DISPLAY nor WAYLAND_DISPLAY is set";
    return nullptr;
  }
  SDL_SetHint(SDL_HINT_VIDEODRIVER, drivers.c_str());
  SDL_SetMainReady();
  if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
    why = SDL_GetError();
    return nullptr;
  }
  return std::unique_ptr<NativeDisplay>(new NativeDisplay(scale));
}

NativeDisplay::NativeDisplay(std::optional<double> scale) {
  const double density = FindDensity();
  scale_ = Scale(density);
  dots_per_inch_ = DotsPerInchAt(scale ? *scale : OwnScale(DisplayDpi(), density));
  SDL_Rect usable{};
  if (SDL_GetDisplayUsableBounds(0, &usable) == 0) scale_.SetOrigin({usable.x, usable.y});
  // So that windows are drawn to without a detour through 3-D hardware, which is slow to start.
  if (std::string_view(SDL_GetCurrentVideoDriver()) == "x11") {
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
  }
  SDL_StartTextInput();
}

NativeDisplay::~NativeDisplay() { SDL_QuitSubSystem(SDL_INIT_VIDEO); }

memory::DesktopOptions NativeDisplay::Fit(memory::DesktopOptions base) const {
  // The first one's corner is the origin of the scale.
  base.monitors.clear();
  for (int i = 0; i < SDL_GetNumVideoDisplays(); ++i) {
    SDL_Rect usable{};
    if (SDL_GetDisplayUsableBounds(i, &usable) != 0) continue;
    const PixelPoint corner = scale_.ToDesktop(PixelPoint{usable.x, usable.y});
    const PixelSize size = scale_.ToDesktop(PixelSize{usable.w, usable.h});
    base.monitors.push_back({corner.x, corner.y, corner.x + size.width, corner.y + size.height});
  }
  base.dpi_x = base.dpi_y = dots_per_inch_;
  base.locale = LocaleOfEnvironment();
  base.now = RealNow();
  return base;
}

PixelRect NativeDisplay::PointerArea() const {
  PixelRect area{Nowhere().x, Nowhere().y, 1, 1};
  for (int i = 0; i < SDL_GetNumVideoDisplays(); ++i) {
    SDL_Rect bounds{};
    if (SDL_GetDisplayBounds(i, &bounds) != 0) continue;
    const PixelRect native = FromNative(bounds);
    const PixelPoint end = scale_.ToDesktop(PixelPoint{native.right, native.bottom});
    area = {area.left, area.top, std::max(area.right, end.x), std::max(area.bottom, end.y)};
  }
  return area;
}

Date RealNow() {
  using std::chrono::system_clock;
  const auto now = system_clock::now();
  const std::time_t seconds = system_clock::to_time_t(now);
  std::tm local{};
  localtime_r(&seconds, &local);
  const auto days = std::chrono::sys_days(std::chrono::year(local.tm_year + 1900) /
                                          std::chrono::month(static_cast<unsigned>(local.tm_mon + 1)) /
                                          std::chrono::day(static_cast<unsigned>(local.tm_mday))) -
                    std::chrono::sys_days(std::chrono::year(1899) / 12 / 30);
  const int second = (local.tm_hour * 60 + local.tm_min) * 60 + std::min(local.tm_sec, 59);
  return {static_cast<double>(days.count()) + second / 86400.0};
}

}  // namespace levelwidgets::presenter
