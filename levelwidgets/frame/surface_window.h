// A window with a drawing surface and parts in it.
#pragma once

#include <vector>

#include <levelwidgets/frame/control_site.h>
#include <levelwidgets/frame/input.h>
#include <levelwidgets/frame/part_host.h>
#include <levelwidgets/frame/surface.h>

namespace levelwidgets {

// What a control and the panels inside it have in common: the window's messages become notifications.
// Notifications carry "On", because the events raised from them have the same names.
class SurfaceWindow : public PartHost, public WindowClient {
 public:
  SurfaceWindow(const SurfaceWindow&) = delete;
  SurfaceWindow& operator=(const SurfaceWindow&) = delete;

  Surface& GetSurface() final { return surface_; }
  const Surface& GetSurface() const { return surface_; }
  void AddPart(WindowPart& part) final { parts_.push_back(&part); }
  void RemovePart(WindowPart& part) final { std::erase(parts_, &part); }
  // Whether `window` is this one or that of a part, however deep. Windows that were moved to the desktop
  // count.
  bool Holds(WindowHandle window) const;

  // --- Notifications ----------------------------------------------------------------------------

  virtual void OnPaint() {}
  virtual void OnClick() {}
  virtual void OnDblClick() {}
  virtual void OnKeyDown(std::int16_t /*code*/, std::int16_t /*shift*/) {}
  virtual void OnKeyPress(std::int16_t& /*key_ascii*/) {}
  virtual void OnKeyUp(std::int16_t /*code*/, std::int16_t /*shift*/) {}
  virtual void OnMouseDown(const PointerInput&) {}
  virtual void OnMouseMove(const PointerInput&) {}
  virtual void OnMouseUp(const PointerInput&) {}

  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override;

 protected:
  // A hidden child window of `parent`, 0 by 0 twips.
  SurfaceWindow(Platform& platform, WindowHandle parent, SurfaceLook look)
      : surface_(platform, parent, *this, std::move(look)) {}

  // The window that takes the focus when this one is given it: its own, or that of a part.
  virtual WindowHandle FocusWindow() const { return surface_.hWnd(); }
  // Whether a press gives the window the focus.
  virtual bool FocusByPress() const = 0;
  // The pointer's shape over the window while it is in use, a kIdc...; 0 leaves it to what the window is in.
  virtual int PointerShape() const { return 0; }
  // The client area may have another size.
  virtual void OnWindowSize() {}
  // Where the press or double click that is being handled happened.
  TwipPoint PressPoint() const { return press_point_; }
  // Takes what the parts have on the desktop with it.
  void EndParts();

 private:
  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam);
  void PaintMessage(WindowHandle window, bool alive);
  void PrintMessage(DcHandle target, bool alive);
  // Each is true when the message was one of its kind.
  bool Pointer(std::uint32_t message, WParam wparam, LParam lparam);
  bool Focus(std::uint32_t message, WParam wparam);
  bool Key(std::uint32_t message, WParam wparam, LResult& result);
  bool ShapePointer(WindowHandle window, WParam over);
  bool PartMessage(std::uint32_t message, WParam wparam, LParam lparam, LResult& result);
  bool PressIsRefused(std::uint32_t message);
  void Press(std::uint32_t message, PointerAction action, const PointerInput& input);
  void TakeFocusAfterPress(WindowHandle focus_before);

  std::vector<WindowPart*> parts_;
  ClickTracker click_;
  TwipPoint press_point_;
  Surface surface_;  // last: its window's messages find the rest
};

}  // namespace levelwidgets
