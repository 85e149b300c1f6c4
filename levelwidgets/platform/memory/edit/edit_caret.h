// The blinking line where the next character goes.
#pragma once

#include <levelwidgets/platform/memory/edit/edit_host.h>

namespace levelwidgets::memory {

// Drawn by inverting pixels, so that blinking asks for no paint. While it is shown, its window must call
// Repaint at the end of every paint.
class EditCaret {
 public:
  static constexpr std::uint32_t kBlinkMs = 530;

  explicit EditCaret(EditHost& host) : host_(host) {}
  // Without a last look at the window, which may be gone.
  ~EditCaret() { StopTimer(); }
  EditCaret(const EditCaret&) = delete;
  EditCaret& operator=(const EditCaret&) = delete;

  // Begins a blink there; an empty `place` cannot be seen.
  void Show(WindowHandle window, PixelRect place);
  void Hide();
  // The pixels under the caret have been painted anew.
  void Repaint();

 private:
  void Toggle();
  void StopTimer();

  EditHost& host_;
  WindowHandle window_;  // none while hidden
  PixelRect place_;
  bool on_ = false;
  TimerHandle timer_;
};

}  // namespace levelwidgets::memory
