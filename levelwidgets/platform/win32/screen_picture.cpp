#include <levelwidgets/platform/win32/screen_picture.h>

#include <windows.h>

#include <algorithm>

namespace levelwidgets::win32 {
namespace {

// A picture that the system can draw into: 32 bits per pixel, blue in the low byte, top row first.
class Canvas {
 public:
  Canvas(HDC compatible_with, PixelSize size) : dc_(::CreateCompatibleDC(compatible_with)) {
    BITMAPINFO info = {};
    info.bmiHeader = {.biSize = sizeof(BITMAPINFOHEADER),
                      .biWidth = size.width,
                      .biHeight = -size.height,
                      .biPlanes = 1,
                      .biBitCount = 32,
                      .biCompression = BI_RGB};
    bitmap_ = ::CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
    former_ = ::SelectObject(dc_, bitmap_);
  }
  ~Canvas() {
    ::SelectObject(dc_, former_);
    ::DeleteObject(bitmap_);
    ::DeleteDC(dc_);
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  HDC dc() const { return dc_; }
  const std::uint32_t* pixels() const { return static_cast<const std::uint32_t*>(bits_); }

 private:
  HDC dc_;
  void* bits_ = nullptr;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ former_ = nullptr;
};

std::uint32_t SwapRedAndBlue(std::uint32_t pixel) {
  return (pixel & 0x00FF00u) | (pixel & 0xFFu) << 16 | (pixel >> 16 & 0xFFu);
}

}  // namespace

Picture CaptureScreen(PixelRect screen) {
  if (screen.empty()) return {};
  const PixelSize size{screen.width(), screen.height()};
  Picture picture{size, std::vector<std::uint32_t>(static_cast<std::size_t>(size.width) *
                                                   static_cast<std::size_t>(size.height))};
  const HDC source = ::GetDC(nullptr);
  {
    const Canvas canvas(source, size);
    const PixelRect visible =
        Intersect(screen, {0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)});
    const PixelRect place = visible.Offset(-screen.left, -screen.top);
    if (!visible.empty())
      ::BitBlt(canvas.dc(), place.left, place.top, place.width(), place.height(), source, visible.left,
               visible.top, SRCCOPY);
    ::GdiFlush();
    std::transform(canvas.pixels(), canvas.pixels() + picture.pixels.size(), picture.pixels.begin(),
                   SwapRedAndBlue);
  }
  ::ReleaseDC(nullptr, source);
  return picture;
}

}  // namespace levelwidgets::win32
