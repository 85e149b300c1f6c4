// A box with a caption that a person checks and clears.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <levelwidgets/frame/control_with.h>
#include <levelwidgets/frame/hover.h>

namespace levelwidgets {

// A box of 195 by 195 twips with a line around it, and its caption to the right. The box has another fill
// under the pointer and while it is held down; a dotted frame around the caption shows the focus. Its colours
// are the system's, so that it can be read in every palette.
//
// A click, Space (when it goes up) and the access key change Value. Two quick clicks change it twice. In a
// control or a panel it is a ChildControl<CheckBox>.
class CheckBox : public ControlWith<ClickEvents, KeyEvents, PointerEvents, FocusFlag> {
 public:
  static constexpr std::int32_t kUnchecked = 0;
  static constexpr std::int32_t kChecked = 1;

  static const ClassInfo& Table();
  explicit CheckBox(std::shared_ptr<ControlSite> site);

  // --- Properties -------------------------------------------------------------------------------

  // Of the caption and what is behind it; at first those of the container.
  Color BackColor() const { return GetSurface().BackColor(); }
  // Repaints, then notifies.
  void SetBackColor(Color color);
  Color ForeColor() const { return GetSurface().ForeColor(); }
  // Repaints, then notifies.
  void SetForeColor(Color color);
  bool Enabled() const { return GetSurface().Enabled(); }
  // Disabling ends a press. Repaints, then notifies.
  void SetEnabled(bool enabled);
  FontRef GetFont() const { return GetSurface().GetFont(); }
  // Shares the font; repaints, then notifies.
  void SetFont(FontRef font);
  WindowHandle hWnd() const { return GetSurface().hWnd(); }
  const std::string& Caption() const { return caption_; }
  // The character after the first "&" becomes the access key. Repaints, then notifies.
  void SetCaption(std::string caption);
  // kUnchecked or kChecked.
  std::int32_t Value() const { return value_; }
  // Another value repaints, notifies and raises Click, in this order; the same one does nothing. Raises 380
  // for anything except 0 and 1.
  void SetValue(std::int32_t value);

  // --- Methods ----------------------------------------------------------------------------------

  // For the owner of a part. A form has HostedControl::SetFocus, which asks the control with the focus first.
  void SetFocus();

  // --- Notifications ----------------------------------------------------------------------------

  const ClassInfo& Class() const override { return Table(); }
  void OnInitProperties() override;
  void OnResize() override { client_ = GetSurface().ClientPixels(); }
  void OnPaint() override;
  void OnExitFocus() override;
  void OnAccessKeyPress(std::int16_t key_ascii) override;
  void OnClick() override { Toggle(); }
  void OnKeyDown(std::int16_t code, std::int16_t shift) override;
  void OnKeyUp(std::int16_t code, std::int16_t shift) override;
  void OnMouseDown(const PointerInput& input) override;
  void OnMouseMove(const PointerInput& input) override;
  void OnMouseUp(const PointerInput& input) override;
  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override;

 protected:
  // Also as a part: it is there to be used by keys as well.
  bool FocusByPress() const override { return true; }

 private:
  void Toggle();
  bool IsInside(TwipPoint at) const;
  // Each repaints when it changes something.
  void Show(bool& state, bool value);

  // --- Painting ---------------------------------------------------------------------------------

  PixelRect Box() const;
  Color Fill() const;
  void PaintBox(const PixelRect& box) const;
  void PaintMark(const PixelRect& box) const;
  PixelRect CaptionRect(const PixelRect& box) const;
  void PaintFocus(const PixelRect& box, const PixelRect& text) const;

  // --- State ------------------------------------------------------------------------------------

  std::string caption_;
  std::int32_t value_ = kUnchecked;
  bool under_pointer_ = false;
  bool pressed_ = false;        // by the left button, wherever the pointer is now
  bool space_is_down_ = false;  // pressed while the box had the focus
  PixelRect client_;
  PollingHover hover_{*this, [this] { Show(under_pointer_, false); }};
};

}  // namespace levelwidgets
