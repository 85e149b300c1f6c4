// The native pointer in the shapes of the desktop's.
#pragma once

#include <map>
#include <memory>
#include <optional>

struct SDL_Cursor;

namespace levelwidgets::presenter {

class NativePointer {
 public:
  NativePointer();
  ~NativePointer();
  NativePointer(const NativePointer&) = delete;
  NativePointer& operator=(const NativePointer&) = delete;

  // A kIdc..., or 0 for none that can be seen; an arrow for a shape that the system does not have.
  void Show(int shape);

  // The system's number (an SDL_SystemCursor) of a shape; nothing for one that it does not have.
  static std::optional<int> SystemShape(int shape);

 private:
  SDL_Cursor* CursorOf(int shape);

  int shown_;
  std::map<int, SDL_Cursor*> cursors_;  // by shape
};

}  // namespace levelwidgets::presenter
