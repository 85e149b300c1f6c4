// A push button with a one-pixel frame and a centred one-line caption.
#pragma once

#include <string>

#include <levelwidgets/frame/control_with.h>
#include <levelwidgets/frame/hover.h>

namespace levelwidgets {

// Shows the pointer over it by BackColorMouseOver, a press by BackColorPushed, the container's default button
// by a two-pixel frame and the focus by a dotted frame. No property is validated: every value is accepted.
class FlatButton : public ControlWith<ClickEvents, KeyEvents, PointerEvents, FocusFlag> {
 public:
  static const ClassInfo& Table();
  explicit FlatButton(std::shared_ptr<ControlSite> site);

  // --- Properties -------------------------------------------------------------------------------

  // The colour shown now; the normal one unless the button is under the pointer or pushed.
  Color BackColor() const { return GetSurface().BackColor(); }
  // Repaints, then notifies.
  void SetBackColor(Color color);
  // Caption colour while enabled, and the colour of the frame.
  Color ForeColor() const { return GetSurface().ForeColor(); }
  // Repaints, then notifies.
  void SetForeColor(Color color);
  bool Enabled() const { return GetSurface().Enabled(); }
  // Disabling ends what the pointer has brought about. Repaints, then notifies.
  void SetEnabled(bool enabled);
  FontRef GetFont() const { return GetSurface().GetFont(); }
  // Shares the font; repaints, then notifies.
  void SetFont(FontRef font);
  WindowHandle hWnd() const { return GetSurface().hWnd(); }
  const std::string& Caption() const { return caption_; }
  // The character after the first "&" becomes the access key. Notifies, then repaints.
  void SetCaption(std::string caption);
  // The colours of passing states are stored and notified without a repaint.
  Color BackColorMouseOver() const { return back_color_mouse_over_; }
  void SetBackColorMouseOver(Color color);
  Color BackColorPushed() const { return back_color_pushed_; }
  void SetBackColorPushed(Color color);
  Color ForeColorDisabled() const { return fore_color_disabled_; }
  void SetForeColorDisabled(Color color);

  // --- Notifications ----------------------------------------------------------------------------

  const ClassInfo& Class() const override { return Table(); }
  void OnInitProperties() override;
  void OnResize() override { client_ = GetSurface().ClientPixels(); }
  void OnPaint() override;
  void OnAmbientChanged(std::string_view name) override;
  void OnAccessKeyPress(std::int16_t key_ascii) override;
  void OnClick() override;
  void OnMouseDown(const PointerInput& input) override;
  void OnMouseMove(const PointerInput& input) override;
  void OnMouseUp(const PointerInput& input) override;

 private:
  // --- Painting ---------------------------------------------------------------------------------

  void EndFeedback();
  bool DisplaysAsDefault() const;
  void ShowBackColor(Color color);

  // --- State ------------------------------------------------------------------------------------

  std::string caption_;
  Color back_color_;
  Color fore_color_;
  Color back_color_mouse_over_;
  Color back_color_pushed_;
  Color fore_color_disabled_;
  PixelRect client_;
  CaptureHover hover_{GetSurface()};
};

}  // namespace levelwidgets
