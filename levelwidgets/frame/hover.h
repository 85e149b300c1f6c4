// How controls notice that the pointer comes and goes: by capture, or by polling.
#pragma once

#include <functional>

#include <levelwidgets/frame/part_host.h>
#include <levelwidgets/frame/parts/timer.h>
#include <levelwidgets/frame/surface.h>

namespace levelwidgets {

// Whether a point in twips lies outside the surface. A point on the right or bottom edge is inside.
inline bool IsOutside(const Surface& surface, TwipPoint at) {
  return at.x < Twips() || at.x > surface.ScaleWidth() || at.y < Twips() || at.y > surface.ScaleHeight();
}

// Keeps the pointer captured while the control shows that it is under the pointer, so that it still
// gets the move that leaves. The control knows whether it shows that: the state is not kept here.
class CaptureHover {
 public:
  explicit CaptureHover(Surface& surface) : surface_(surface) {}

  // A pointer move. Not highlighted: `highlight()` (set the colours and repaint), then capture. Highlighted
  // and outside: `restore()` (set the colours), give up the capture, `repaint()`. Else nothing.
  template <typename Highlight, typename Restore, typename Repaint>
  void Move(TwipPoint at, bool highlighted, Highlight highlight, Restore restore, Repaint repaint) {
    if (!highlighted) {
      highlight();
      Capture();
    } else if (IsOutside(surface_, at)) {
      restore();
      surface_.Windows().ReleaseCapture();
      repaint();
    }
  }

  void Capture() { surface_.Windows().SetCapture(surface_.hWnd()); }
  bool HasCapture() const { return surface_.Windows().GetCapture() == surface_.hWnd(); }
  // Gives up the capture if this control holds it.
  void Release() {
    if (HasCapture()) surface_.Windows().ReleaseCapture();
  }

 private:
  Surface& surface_;
};

// Polls the pointer's position until it is outside the control.
class PollingHover {
 public:
  // `leave` restores and repaints; it runs on the tick that finds the pointer outside.
  PollingHover(PartHost& host, std::function<void()> leave);

  // Begins or goes on polling.
  void Start() { timMain_.SetEnabled(true); }
  bool Running() const { return timMain_.Enabled(); }

 private:
  void Tick();
  bool PointerIsOutside() const;

  Surface& surface_;
  std::function<void()> leave_;
  Timer timMain_;
};

}  // namespace levelwidgets
