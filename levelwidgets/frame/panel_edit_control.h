// What the controls around an edit box have in common that drop a panel of fixed size down.
#pragma once

#include <string>

#include <levelwidgets/frame/alignment.h>
#include <levelwidgets/frame/edit_control.h>
#include <levelwidgets/frame/hover.h>
#include <levelwidgets/frame/parts/drop_button.h>
#include <levelwidgets/frame/parts/popup_panel.h>

namespace levelwidgets {

// The edit box, and at its right the strip that opens and closes the panel, as F4 and Alt+Down do. The
// strip's fill is the colour of the control's surface, and its three colours are its states. The control sees
// keys before its parts; the panel has the focus while it is open, and the control is not left by that.
class PanelEditControl : public EditControl {
 public:
  // --- Properties -------------------------------------------------------------------------------
  // Each notifies, except the selection.

  ksxAlignmentConstants Alignment() const { return txtMain_.Alignment(); }
  // Any other value is left-aligned.
  void SetAlignment(ksxAlignmentConstants alignment);
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
  // Of the edit box, in characters from 0. A place beyond 32767 raises 6 (overflow) when it is read.
  std::int16_t SelStart() const;
  void SetSelStart(std::int16_t start) { txtMain_.Select(start, 0); }
  std::int16_t SelLength() const;
  void SetSelLength(std::int16_t length) { txtMain_.Select(txtMain_.SelStart(), length); }
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

  // The parts, for tests and for whoever composes the control further.
  TextBox& ActiveEdit() const override { return const_cast<TextBox&>(txtMain_); }
  // Null before the panel has first opened.
  virtual const PopupPanel* Panel() const = 0;
  bool PanelIsOpen() const { return Panel() && Panel()->IsOpen(); }

 protected:
  explicit PanelEditControl(std::shared_ptr<ControlSite> site);

  // The panel with what it is to show when it opens. A listener may destroy the control meanwhile.
  virtual PopupPanel& PreparePanel() = 0;
  // The panel has been hidden.
  virtual void PanelClosed() {}
  // A key that went down while the panel is open; true when it is used.
  virtual bool PanelKey(std::int16_t code) = 0;

  // Opens the panel below the control, or above it where there is no room.
  void ShowPanel();
  // Gives the focus back to the edit box, with the caret at the end, unless the user has turned to another
  // form. Nothing happens while the panel is closed.
  void HidePanel();

  TextBox& Edit() { return txtMain_; }

 private:
  bool CanOpen() const;
  void ShowFill(Color fill);
  void AfterPanel(bool takes_focus);
  // What a control that takes no input any more has begun.
  void EndInput();

  TextBox txtMain_{*this, false};
  DropButton button_{GetSurface()};
  CaptureHover hover_{GetSurface()};
};

}  // namespace levelwidgets
