#include <levelwidgets/frame/panel_edit_control.h>

#include <levelwidgets/platform/system_colors.h>
#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets {

namespace {

// Of the arrow and of the line between edit box and strip.
constexpr Color kInk{0x00000000u};

bool HasAlt(const KeyMessage& key) { return (key.shift & kAltMask) != 0; }
// F4 with whatever is held.
bool Opens(const KeyMessage& key) { return key.code == kKeyF4 || (HasAlt(key) && key.code == kKeyDown); }
bool ClosesWindow(const KeyMessage& key) { return HasAlt(key) && key.code == kKeyF4; }

}  // namespace

PanelEditControl::PanelEditControl(std::shared_ptr<ControlSite> site, const PanelEditRules& rules)
    : EditControl(std::move(site), {.back_color = kWindowBack, .fore_color = kInk, .font = {}}, txtMain_),
      rules_(rules) {
  txtMain_.SetVisible(true);
}

void PanelEditControl::OnInitialize() {
  txtMain_.SetFont(Site().AmbientFont());
  LookChanged();
}

// --- Properties --------------------------------------------------------------------------------------

void PanelEditControl::AssignAlignment(ksxAlignmentConstants alignment) {
  Assign("Alignment", Then::kNotify, [&] { txtMain_.SetAlignment(alignment); });
}

void PanelEditControl::SetBackColor(Color color) {
  Assign("BackColor", Then::kRepaintThenNotify, [&] {
    txtMain_.SetBackColor(color);
    LookChanged();
  });
}

void PanelEditControl::SetForeColor(Color color) {
  Assign("ForeColor", Then::kRepaintThenNotify, [&] { txtMain_.SetForeColor(color); });
}

void PanelEditControl::SetEnabled(bool enabled) {
  Assign("Enabled", Then::kNotify, [&] {
    if (!enabled) EndInput();
    Enable(enabled);
  });
}

void PanelEditControl::SetFont(FontRef font) {
  Assign("Font", Then::kRepaintThenNotify, [&] {
    txtMain_.SetFont(std::move(font));
    LookChanged();
  });
}

void PanelEditControl::SetDropDownBackColor(Color color) {
  Assign("DropDownBackColor", Then::kRepaintThenNotify, [&] { button_.SetRestColor(color); });
}

void PanelEditControl::SetDropDownBackColorMouseOver(Color color) {
  Store("DropDownBackColorMouseOver", rules_.hidden_colors, button_.colors.mouse_over, color);
}

void PanelEditControl::SetDropDownBackColorPushed(Color color) {
  Store("DropDownBackColorPushed", rules_.hidden_colors, button_.colors.pushed, color);
}

// --- Painting ----------------------------------------------------------------------------------------

void PanelEditControl::OnResize() {
  txtMain_.Move({}, {GetSurface().ScaleWidth() - DropButton::kWidth, GetSurface().ScaleHeight()});
  button_.LayOut();
}

void PanelEditControl::OnPaint() {
  GetSurface().Cls();
  button_.Paint();
}

void PanelEditControl::ShowFill(Color fill) {
  button_.SetFill(fill);
  OnPaint();
}

// --- Keys --------------------------------------------------------------------------------------------

bool PanelEditControl::OnKeyPreview(KeyMessage& key) {
  if (key.kind != KeyMessage::Kind::kDown) return false;
  if (PanelIsOpen()) return !ClosesWindow(key) && PanelKey(key.code);
  const bool opens = Opens(key);
  if (opens) ShowPanel();
  return opens && !ClosesWindow(key);
}

// --- Pointer -----------------------------------------------------------------------------------------

void PanelEditControl::OnMouseDown(const PointerInput& input) {
  if (input.button != kLeftButton) return;
  const auto keep = Reference();
  ShowFill(button_.Pressed());
  if (PanelIsOpen()) {
    HidePanel();
  } else {
    ShowPanel();
  }
}

void PanelEditControl::OnMouseMove(const PointerInput& input) {
  if ((input.button & kLeftButton) == 0) return Hover(input.at);
  if (button_.Fill() == button_.colors.pushed) return;
  ShowFill(button_.colors.pushed);
  hover_.Capture();
}

// The release has ended the capture, without which the strip would not notice that the pointer leaves.
void PanelEditControl::OnMouseUp(const PointerInput&) {
  ShowFill(button_.colors.mouse_over);
  hover_.Capture();
}

// The window that is disabled loses its capture by that.
void PanelEditControl::EndInput() {
  HidePanel();
  ChangeFill(button_.colors.rest);
}

// --- Panel -------------------------------------------------------------------------------------------

// A hidden control still has the pointer that it has captured.
bool PanelEditControl::CanOpen() const {
  return GetSurface().Windows().IsWindowVisible(GetSurface().hWnd()) && Enabled();
}

PopupPanel& PanelEditControl::NeedPanel() {
  if (!picPopup_) picPopup_ = std::make_unique<PopupPanel>(*this, rules_.panel, [this] { HidePanel(); });
  return *picPopup_;
}

void PanelEditControl::ShowPanel() {
  if (!CanOpen()) return;
  const auto keep = Reference();
  if (!PreparePanel() || !CanOpen()) return;  // a listener may have seen to the second
  PopupPanel& panel = NeedPanel();
  try {
    OpenDetached(panel);
  } catch (...) {
    AbandonPanel(panel);
    throw;
  }
  if (!panel.IsOpen()) AbandonPanel(panel);
}

// The panel is the active window once it is detached: listeners hear that the focus has moved, and may see to
// it that nothing can open any more.
void PanelEditControl::OpenDetached(PopupPanel& panel) {
  panel.Detach();
  if (CanOpen() && SizePanel()) panel.Open(PlaceFor(panel.TakeOwnerRect()));
}

void PanelEditControl::HidePanel() {
  if (!PanelIsOpen()) return;
  const auto keep = Reference();
  ClosePanel(*picPopup_, [this] { PanelClosed(); });
}

// The system turns from a hidden window to the next one only if it was seen before.
void PanelEditControl::AbandonPanel(PopupPanel& panel) {
  if (GetSurface().Windows().GetActiveWindow() == panel.hWnd()) panel.SetVisible(true);
  ClosePanel(panel, [] {});
}

template <typename Closed>
void PanelEditControl::ClosePanel(PopupPanel& panel, Closed closed) {
  WindowApi& windows = GetSurface().Windows();
  const bool returns_focus = panel.Close();
  const WindowHandle active = windows.GetActiveWindow();
  // A listener may have turned to another form, which keeps the focus, too.
  const auto finish = [&] { AfterPanel(returns_focus && windows.GetActiveWindow() == active); };
  try {
    closed();
  } catch (...) {
    finish();
    throw;
  }
  finish();
}

void PanelEditControl::AfterPanel(bool takes_focus) {
  if (takes_focus && GetSurface().Windows().IsWindowVisible(txtMain_.hWnd())) txtMain_.SetFocus();
  if (rules_.caret_to_end) {
    txtMain_.Select(static_cast<std::int32_t>(text::CharacterCount(txtMain_.Text())), 0);
  }
  ChangeFill(button_.colors.rest);
}

}  // namespace levelwidgets
