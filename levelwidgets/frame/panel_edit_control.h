// What the controls around an edit box have in common that drop a panel down.
#pragma once

#include <memory>
#include <string>

#include <levelwidgets/frame/edit_control.h>
#include <levelwidgets/frame/hover.h>
#include <levelwidgets/frame/parts/drop_button.h>
#include <levelwidgets/frame/parts/popup_panel.h>

namespace levelwidgets {

// In what these controls differ, beside what they do.
struct PanelEditRules {
  PopupLook panel;
  DropButton::Rules strip;
  // What follows when the strip gets another colour under the pointer or pressed.
  Then hidden_colors = Then::kNotify;
  // Closing puts the caret to the end of the text.
  bool caret_to_end = false;
};

// The edit box, and at its right the strip that opens and closes the panel, as F4 and Alt+Down do. The
// strip's three colours are its states. The control sees keys before its parts; the panel has the focus while
// it is open, and the control is not left by that.
class PanelEditControl : public EditControl {
 public:
  // --- Properties -------------------------------------------------------------------------------
  // Each notifies, except the selected text.

  Color BackColor() const { return txtMain_.BackColor(); }
  void SetBackColor(Color color);
  Color ForeColor() const { return txtMain_.ForeColor(); }
  void SetForeColor(Color color);
  bool Enabled() const { return GetSurface().Enabled(); }
  // Disabling closes the panel.
  void SetEnabled(bool enabled);
  FontRef GetFont() const { return txtMain_.GetFont(); }
  // Shares the font.
  void SetFont(FontRef font);
  std::string SelText() const { return txtMain_.SelText(); }
  void SetSelText(std::string_view text) { txtMain_.SetSelText(text); }
  // The strip at rest, under the pointer, and pressed. The first is shown at once when the strip is at rest,
  // the others when the strip comes to that state.
  Color DropDownBackColor() const { return button_.colors.rest; }
  void SetDropDownBackColor(Color color);
  Color DropDownBackColorMouseOver() const { return button_.colors.mouse_over; }
  void SetDropDownBackColorMouseOver(Color color);
  Color DropDownBackColorPushed() const { return button_.colors.pushed; }
  void SetDropDownBackColorPushed(Color color);
  WindowHandle hWnd() const { return GetSurface().hWnd(); }

  // --- Notifications ----------------------------------------------------------------------------

  void OnInitialize() override;
  void OnResize() override;
  void OnPaint() override;
  bool OnKeyPreview(KeyMessage& key) override;
  void OnMouseDown(const PointerInput& input) override;
  void OnMouseMove(const PointerInput& input) override;
  void OnMouseUp(const PointerInput& input) override;

  // For tests and for whoever composes the control further. Null before it has been needed.
  PopupPanel* Panel() const { return picPopup_.get(); }
  bool PanelIsOpen() const { return picPopup_ && picPopup_->IsOpen(); }

 protected:
  PanelEditControl(std::shared_ptr<ControlSite> site, const PanelEditRules& rules);

  // --- For the control ----------------------------------------------------------------------------

  // Makes the panel what it is to show when it opens; false when there is nothing to show. A listener may
  // destroy the control meanwhile.
  virtual bool PreparePanel() = 0;
  // The panel has been detached. One whose size depends on what it shows gets it here; false when there is
  // nothing left to show.
  virtual bool SizePanel() { return true; }
  // Where the panel opens; `owner` is the control's window in screen pixels.
  virtual TwipPoint PlaceFor(const PixelRect& owner) const = 0;
  // The panel has been hidden; the focus is not back yet.
  virtual void PanelClosed() {}
  // A key that went down while the panel is open; true when it is used.
  virtual bool PanelKey(std::int16_t code) = 0;
  // A move of the pointer over the control, or captured, without the left button.
  virtual void Hover(TwipPoint at) = 0;
  // The edit box has another background or another font.
  virtual void LookChanged() {}

  // Makes the panel unless it exists.
  PopupPanel& NeedPanel();
  // Opens the panel below the control, or above it where there is no room.
  void ShowPanel();
  // Gives the focus back to the edit box unless the user has turned to another form. Nothing happens while
  // the panel is closed.
  void HidePanel();

  void AssignAlignment(ksxAlignmentConstants alignment);
  // The fill is the state of the strip.
  void ShowFill(Color fill);
  void ChangeFill(Color fill) {
    if (fill != button_.Fill()) ShowFill(fill);
  }

  TextBox& Edit() { return txtMain_; }
  const TextBox& Edit() const { return txtMain_; }
  DropButton& Strip() { return button_; }
  CaptureHover& Capturing() { return hover_; }

 private:
  bool CanOpen() const;
  void OpenDetached(PopupPanel& panel);
  // What is detached and cannot open gives the keyboard back.
  void AbandonPanel(PopupPanel& panel);
  // Hides the panel, lets `closed` hear of it, and gives the focus back.
  template <typename Closed>
  void ClosePanel(PopupPanel& panel, Closed closed);
  void AfterPanel(bool takes_focus);
  // What a control that takes no input any more has begun.
  void EndInput();

  const PanelEditRules rules_;
  TextBox txtMain_{*this, false};
  DropButton button_{GetSurface(), rules_.strip};
  CaptureHover hover_{GetSurface()};
  std::unique_ptr<PopupPanel> picPopup_;
};

}  // namespace levelwidgets
