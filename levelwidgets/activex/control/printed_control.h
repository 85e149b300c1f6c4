// The picture of a control with all that is in it.
#pragma once

#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/platform/types.h>
#include <levelwidgets/platform/window.h>

namespace levelwidgets::activex {

// A picture in memory.
class Bitmap {
 public:
  // Raises 7 when there is no room for it. At least one pixel in each direction.
  explicit Bitmap(PixelSize size);
  ~Bitmap();
  Bitmap(const Bitmap&) = delete;
  Bitmap& operator=(const Bitmap&) = delete;

  HDC Context() const { return context_; }
  // Stretches it over the rectangle; the target may be a metafile or a printer.
  void CopyTo(HDC target, const RECTL& bounds) const;

 private:
  PixelSize size_;
  HDC context_ = nullptr;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ former_ = nullptr;
  void* bits_ = nullptr;
};

// Draws `window` and the windows in it that are not hidden themselves, from the back to the front, each by
// its own message; it need not be on the screen. Its place in `target` is the origin.
void PrintWindows(WindowApi& windows, HWND window, HDC target);

}  // namespace levelwidgets::activex
