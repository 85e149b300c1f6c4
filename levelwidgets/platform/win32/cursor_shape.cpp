#include <levelwidgets/platform/win32/cursor_shape.h>

#include <windows.h>

#include <levelwidgets/platform/constants.h>

namespace levelwidgets::win32 {

namespace {

constexpr int kShapes[] = {kIdcArrow,    kIdcIBeam,  kIdcWait,   kIdcCross, kIdcSizeNwSe,
                           kIdcSizeNeSw, kIdcSizeWe, kIdcSizeNs, kIdcNo,    kIdcHand};

}  // namespace

void* CursorOfShape(int shape) {
  return shape == 0 ? nullptr : ::LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(static_cast<INT_PTR>(shape)));
}

int ShapeOfCursor(const void* cursor) {
  for (const int shape : kShapes) {
    if (cursor && cursor == CursorOfShape(shape)) return shape;
  }
  return 0;
}

}  // namespace levelwidgets::win32
