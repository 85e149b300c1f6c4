// A panel that a control drops down over everything else on the screen.
#pragma once

#include <cstdint>
#include <functional>

#include <levelwidgets/frame/parts/picture_box.h>
#include <levelwidgets/frame/parts/timer.h>
#include <levelwidgets/frame/popup_placement.h>
#include <levelwidgets/platform/wheel.h>

namespace levelwidgets {

// The order of the calls that detach a panel, which controls differ in.
enum class DetachOrder { kExtendedStyleParentStyle, kStyleExtendedStyleParent };

struct PopupLook {
  std::uint32_t style = 0;  // of the detached window
  DetachOrder order = DetachOrder::kExtendedStyleParentStyle;
  bool border = false;  // of one pixel
};

// A picture box of its owner, hidden until it opens: then it is a top-most tool window that belongs to the
// desktop, and stays one. While it is open it is looked at ten times a second whether it is still the active
// window, and whether its owner is still where it was. Closing it as a window (Alt+F4) only means that it is
// left.
class PopupPanel : public PictureBox {
 public:
  // `left` is called when the user has turned elsewhere; it is to close the panel.
  PopupPanel(PartHost& owner, PopupLook look, std::function<void()> left);

  bool IsOpen() const { return Visible(); }

  // --- Opening, in this order ---------------------------------------------------------------------

  // Makes the window what it is while it is open. Then the owner gives the panel its size.
  void Detach();
  // Where the owner's window is now, in screen pixels. The panel closes once it is elsewhere.
  const PixelRect& TakeOwnerRect();
  PixelTwips Twips() const;
  // Places the panel, first its top, then its left; shows it in front, gives it the focus and begins to
  // watch.
  void Open(TwipPoint at);

  // --- Closing ------------------------------------------------------------------------------------

  // Stops watching and hides the panel. Returns whether the owner is to have the focus: false when another
  // window of this program is active by now, which keeps it.
  bool Close();

  // --- Events -----------------------------------------------------------------------------------

  // The wheel was turned over the open panel: notches, positive away from the user.
  Event<int> Wheel;

  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override;

 private:
  bool IsLeft() const;

  PartHost& owner_;
  PopupLook look_;
  PixelRect owner_rect_;
  WheelNotches wheel_;
  std::function<void()> left_;
  Timer timStatus_;
};

// The area of the monitor that holds most of `rect`; the primary one's when none holds any of it.
PixelRect MonitorArea(const PixelRect& rect, ScreenApi& screen);

}  // namespace levelwidgets
