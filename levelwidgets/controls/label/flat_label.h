// A one-line text label that behaves like a hyperlink.
#pragma once

#include <string>

#include <levelwidgets/frame/alignment.h>
#include <levelwidgets/frame/control_with.h>
#include <levelwidgets/frame/hover.h>

namespace levelwidgets {

// Under the pointer it changes both colours and, if MouseUnderline is set, underlines its text; while the
// left button is held on it, it shows pushed colours. No frame, no focus frame. No property is validated.
class FlatLabel : public ControlWith<ClickEvents, DblClickEvents, KeyEvents, PointerEvents, FocusFlag> {
 public:
  static const ClassInfo& Table();
  explicit FlatLabel(std::shared_ptr<ControlSite> site);

  // --- Properties -------------------------------------------------------------------------------

  // The colours shown now; the normal ones unless the label is under the pointer or pushed.
  Color BackColor() const { return GetSurface().BackColor(); }
  // Repaints, then notifies.
  void SetBackColor(Color color);
  Color ForeColor() const { return GetSurface().ForeColor(); }
  // Notifies; the text changes its colour at the next repaint.
  void SetForeColor(Color color);
  bool Enabled() const { return GetSurface().Enabled(); }
  // Notifies; no repaint.
  void SetEnabled(bool enabled);
  FontRef GetFont() const { return GetSurface().GetFont(); }
  // Shares the font and remembers whether it is underlined now; repaints, then notifies.
  void SetFont(FontRef font);
  WindowHandle hWnd() const { return GetSurface().hWnd(); }
  bool MouseUnderline() const { return mouse_underline_; }
  // No repaint and no notification.
  void SetMouseUnderline(bool underline) { mouse_underline_ = underline; }
  const std::string& Caption() const { return caption_; }
  // The character after the first "&" becomes the access key. Repaints, then notifies.
  void SetCaption(std::string caption);
  ksxAlignmentConstants Alignment() const { return alignment_; }
  // Repaints; no notification. Any other value draws left-aligned.
  void SetAlignment(ksxAlignmentConstants alignment);
  // Each of the following repaints, then notifies.
  Color BackColorMouseOver() const { return back_color_mouse_over_; }
  void SetBackColorMouseOver(Color color);
  Color BackColorPushed() const { return back_color_pushed_; }
  void SetBackColorPushed(Color color);
  // Kept and saved; the drawing does not use it.
  Color ForeColorDisabled() const { return fore_color_disabled_; }
  void SetForeColorDisabled(Color color);
  Color ForeColorMouseOver() const { return fore_color_mouse_over_; }
  void SetForeColorMouseOver(Color color);
  Color ForeColorPushed() const { return fore_color_pushed_; }
  void SetForeColorPushed(Color color);

  // --- Methods ----------------------------------------------------------------------------------

  // Repaints at once. Returns an empty value.
  Variant Refresh();

  // --- Notifications ----------------------------------------------------------------------------

  const ClassInfo& Class() const override { return Table(); }
  void OnInitProperties() override;
  void OnResize() override;
  void OnPaint() override;
  void OnAccessKeyPress(std::int16_t key_ascii) override;
  void OnMouseDown(const PointerInput& input) override;
  void OnMouseMove(const PointerInput& input) override;
  void OnMouseUp(const PointerInput& input) override;

 private:
  // --- Painting ---------------------------------------------------------------------------------

  void ShareFont(FontRef font);
  void ShowColors(Color back, Color fore);
  void RestoreUnderline();
  void PointerLeft();

  // --- State ------------------------------------------------------------------------------------

  std::string caption_;
  ksxAlignmentConstants alignment_ = ksxLeft;
  bool mouse_underline_ = true;
  Color back_color_;
  Color fore_color_;
  Color back_color_mouse_over_;
  Color fore_color_mouse_over_;
  Color back_color_pushed_;
  Color fore_color_pushed_;
  Color fore_color_disabled_;
  bool font_underline_ = false;  // of the font when it was assigned
  PixelRect client_;
  PollingHover hover_{*this, [this] { PointerLeft(); }};
};

}  // namespace levelwidgets
