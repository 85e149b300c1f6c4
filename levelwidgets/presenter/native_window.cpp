#include <levelwidgets/presenter/native_window.h>

#include <SDL.h>

#include <algorithm>
#include <stdexcept>

#include <levelwidgets/presenter/native_title.h>

namespace levelwidgets::presenter {

namespace {

std::uint32_t FlagsOf(WindowKind kind) {
  switch (kind) {
    case WindowKind::kForm: return SDL_WINDOW_ALLOW_HIGHDPI | SDL_WINDOW_RESIZABLE;
    case WindowKind::kFixedForm: return SDL_WINDOW_ALLOW_HIGHDPI;
    case WindowKind::kPopup: break;
  }
  return SDL_WINDOW_ALLOW_HIGHDPI | SDL_WINDOW_BORDERLESS | SDL_WINDOW_SKIP_TASKBAR |
         SDL_WINDOW_ALWAYS_ON_TOP | SDL_WINDOW_POPUP_MENU;
}

// Of 32 bits; the usual order where the display's pixels have another size and are converted.
PixelShifts ShiftsOf(const SDL_PixelFormat& format) {
  if (format.BytesPerPixel != 4) return {};
  return {format.Rshift, format.Gshift, format.Bshift};
}

std::uint32_t* RowOf(SDL_Surface& surface, int y) {
  return reinterpret_cast<std::uint32_t*>(static_cast<std::uint8_t*>(surface.pixels) + y * surface.pitch);
}

// What to write to in 32 bits: the window's own surface where it has them.
struct Canvas {
  explicit Canvas(SDL_Surface& window_surface) : window(&window_surface), surface(&window_surface) {
    if (window->format->BytesPerPixel == 4) return;
    surface = SDL_CreateRGBSurfaceWithFormat(0, window->w, window->h, 32, SDL_PIXELFORMAT_RGB888);
    if (!surface) throw std::runtime_error(SDL_GetError());
    SDL_BlitSurface(window, nullptr, surface, nullptr);
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;
  ~Canvas() {
    if (surface == window) return;
    SDL_BlitSurface(surface, nullptr, window, nullptr);
    SDL_FreeSurface(surface);
  }

  SDL_Surface* window;
  SDL_Surface* surface;
};

// While the native window is larger than what it shows already.
void FillRest(PixelSize shown, SDL_Surface& surface) {
  const SDL_Rect right{shown.width, 0, surface.w - shown.width, surface.h};
  const SDL_Rect below{0, shown.height, surface.w, surface.h - shown.height};
  for (const SDL_Rect& rest : {right, below}) {
    if (rest.w > 0 && rest.h > 0) SDL_FillRect(&surface, &rest, SDL_MapRGB(surface.format, 240, 240, 240));
  }
}

// Takes the waiting events of moves of the window `id` out of the queue.
void DropMoves(std::uint32_t id) {
  SDL_FilterEvents(
      [](void* window, SDL_Event* event) {
        const bool is_move = event->type == SDL_WINDOWEVENT && event->window.event == SDL_WINDOWEVENT_MOVED &&
                             event->window.windowID == *static_cast<std::uint32_t*>(window);
        return is_move ? 0 : 1;
      },
      &id);
}

}  // namespace

NativeWindow::NativeWindow(WindowKind kind, const std::string& title, PixelPoint place, PixelSize size)
    : kind_(kind),
      window_(SDL_CreateWindow(title.c_str(), place.x, place.y, size.width, size.height, FlagsOf(kind))) {
  if (!window_) throw std::runtime_error(std::string("No native window can be made: ") + SDL_GetError());
  if (kind == WindowKind::kPopup) return;
  SetTitle(title);
  // A window manager takes the first place for that of its frame. Once the window has a frame, the place is
  // that of the client area; nobody needs to hear of the place between.
  SDL_PumpEvents();
  DropMoves(Id());
  MoveTo(place);
}

NativeWindow::~NativeWindow() { SDL_DestroyWindow(window_); }

std::uint32_t NativeWindow::Id() const { return SDL_GetWindowID(window_); }

void NativeWindow::SetTitle(const std::string& title) { SetNativeTitle(window_, title); }

void NativeWindow::MoveTo(PixelPoint place) { SDL_SetWindowPosition(window_, place.x, place.y); }

void NativeWindow::SetSize(PixelSize size) { SDL_SetWindowSize(window_, size.width, size.height); }

void NativeWindow::Raise() { SDL_RaiseWindow(window_); }

void NativeWindow::Minimize() { SDL_MinimizeWindow(window_); }

void NativeWindow::Maximize() { SDL_MaximizeWindow(window_); }

void NativeWindow::Restore() { SDL_RestoreWindow(window_); }

PixelPoint NativeWindow::Place() const {
  PixelPoint place;
  SDL_GetWindowPosition(window_, &place.x, &place.y);
  return place;
}

PixelSize NativeWindow::Size() const {
  PixelSize size;
  SDL_GetWindowSize(window_, &size.width, &size.height);
  return size;
}

void NativeWindow::Show(memory::PixelStore& store, const PixelRect& part) {
  SDL_Surface* surface = SDL_GetWindowSurface(window_);
  if (!surface) return;  // while it is minimised on some systems
  if (surface->pixels != surface_pixels_) Forget();
  surface_pixels_ = surface->pixels;
  const bool all = shown_.Size() != PixelSize{part.width(), part.height()};
  std::vector<SDL_Rect> changes;
  const Canvas canvas(*surface);
  for (const PixelRect& changed : shown_.Update(store, part)) {
    const PixelRect seen = Intersect(changed, {0, 0, surface->w, surface->h});
    if (seen.empty()) continue;
    Write(seen, *canvas.surface);
    changes.push_back({seen.left, seen.top, seen.width(), seen.height()});
  }
  if (all) {
    FillRest(shown_.Size(), *canvas.surface);
    changes = {{0, 0, surface->w, surface->h}};
  }
  if (!changes.empty()) {
    SDL_UpdateWindowSurfaceRects(window_, changes.data(), static_cast<int>(changes.size()));
  }
}

void NativeWindow::Write(const PixelRect& changed, SDL_Surface& surface) const {
  const PixelShifts shifts = ShiftsOf(*surface.format);
  for (int y = changed.top; y < changed.bottom; ++y) {
    WritePixels(shown_.Row(y) + changed.left, changed.width(), shifts, RowOf(surface, y) + changed.left);
  }
}

}  // namespace levelwidgets::presenter
