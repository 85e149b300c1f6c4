// A native window that shows one of the desktop's.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <levelwidgets/platform/memory/target.h>
#include <levelwidgets/presenter/shown_pixels.h>

struct SDL_Window;
struct SDL_Surface;

namespace levelwidgets::presenter {

enum class WindowKind {
  kForm,       // with the native frame, and an edge to resize it by
  kFixedForm,  // with the native frame
  kPopup,      // bare, above all others, unknown to the task bar; takes no focus
};

// Places and sizes are native units.
class NativeWindow {
 public:
  // Shown at once. Throws std::runtime_error when the system refuses.
  NativeWindow(WindowKind kind, const std::string& title, PixelPoint place, PixelSize size);
  ~NativeWindow();
  NativeWindow(const NativeWindow&) = delete;
  NativeWindow& operator=(const NativeWindow&) = delete;

  WindowKind Kind() const { return kind_; }
  std::uint32_t Id() const;

  void SetTitle(const std::string& title);
  void MoveTo(PixelPoint place);
  void SetSize(PixelSize size);
  // To the front; a form with the keyboard.
  void Raise();
  void Minimize();
  void Maximize();
  void Restore();
  PixelPoint Place() const;
  PixelSize Size() const;

  // Brings what has changed in `part` of `store` to the screen.
  void Show(memory::PixelStore& store, const PixelRect& part);
  // What was on the screen is lost.
  void Forget() { shown_.Forget(); }

 private:
  void Write(const PixelRect& changed, SDL_Surface& surface) const;

  WindowKind kind_;
  SDL_Window* window_;
  ShownPixels shown_;
  const void* surface_pixels_ = nullptr;  // of the surface that was written to last
};

}  // namespace levelwidgets::presenter
