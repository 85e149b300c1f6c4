#include <levelwidgets/presenter/native_pointer.h>

#include <SDL.h>

#include <levelwidgets/platform/constants.h>

namespace levelwidgets::presenter {

NativePointer::NativePointer() : shown_(kIdcArrow) {}

NativePointer::~NativePointer() {
  for (const auto& [shape, cursor] : cursors_) SDL_FreeCursor(cursor);
}

void NativePointer::Show(int shape) {
  if (shape == shown_) return;
  shown_ = shape;
  SDL_ShowCursor(shape == 0 ? SDL_DISABLE : SDL_ENABLE);
  SDL_Cursor* cursor = shape == 0 ? nullptr : CursorOf(shape);
  if (cursor) SDL_SetCursor(cursor);
}

std::optional<int> NativePointer::SystemShape(int shape) {
  switch (shape) {
    case kIdcArrow: return SDL_SYSTEM_CURSOR_ARROW;
    case kIdcIBeam: return SDL_SYSTEM_CURSOR_IBEAM;
    case kIdcWait: return SDL_SYSTEM_CURSOR_WAIT;
    case kIdcCross: return SDL_SYSTEM_CURSOR_CROSSHAIR;
    case kIdcSizeNwSe: return SDL_SYSTEM_CURSOR_SIZENWSE;
    case kIdcSizeNeSw: return SDL_SYSTEM_CURSOR_SIZENESW;
    case kIdcSizeWe: return SDL_SYSTEM_CURSOR_SIZEWE;
    case kIdcSizeNs: return SDL_SYSTEM_CURSOR_SIZENS;
    case kIdcNo: return SDL_SYSTEM_CURSOR_NO;
    case kIdcHand: return SDL_SYSTEM_CURSOR_HAND;
    default: return std::nullopt;
  }
}

// Null where the display has no pointer.
SDL_Cursor* NativePointer::CursorOf(int shape) {
  const auto [known, is_new] = cursors_.try_emplace(shape, nullptr);
  if (is_new) {
    const int system = SystemShape(shape).value_or(SDL_SYSTEM_CURSOR_ARROW);
    known->second = SDL_CreateSystemCursor(static_cast<SDL_SystemCursor>(system));
  }
  return known->second;
}

}  // namespace levelwidgets::presenter
