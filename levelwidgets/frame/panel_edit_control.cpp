#include <levelwidgets/frame/panel_edit_control.h>

#include <levelwidgets/frame/variant.h>
#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets {

namespace {

// Of the arrow and of the line between edit box and strip.
constexpr Color kInk{0x00000000u};

// Alt+F4 is the window's.
bool Opens(const KeyMessage& key) {
  const bool alt = (key.shift & kAltMask) != 0;
  return alt ? key.code == kKeyDown : key.code == kKeyF4;
}

}  // namespace

PanelEditControl::PanelEditControl(std::shared_ptr<ControlSite> site)
    : EditControl(std::move(site),
                  {.back_color = DropButton::Colors().rest, .fore_color = kInk, .font = {}}) {
  Relay(txtMain_);
  txtMain_.SetVisible(true);
}

void PanelEditControl::OnInitialize() { txtMain_.SetFont(Site().AmbientFont()); }

// --- Properties --------------------------------------------------------------------------------------

void PanelEditControl::SetAlignment(ksxAlignmentConstants alignment) {
  Assign("Alignment", Then::kNotify, [&] { txtMain_.SetAlignment(alignment); });
}

void PanelEditControl::SetBackColor(Color color) {
  Assign("BackColor", Then::kRepaintThenNotify, [&] { txtMain_.SetBackColor(color); });
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
  Assign("Font", Then::kRepaintThenNotify, [&] { txtMain_.SetFont(std::move(font)); });
}

std::int16_t PanelEditControl::SelStart() const { return ToInt16(txtMain_.SelStart()); }

std::int16_t PanelEditControl::SelLength() const { return ToInt16(txtMain_.SelLength()); }

void PanelEditControl::SetDropDownBackColor(Color color) {
  Assign("DropDownBackColor", Then::kRepaintThenNotify, [&] {
    const bool at_rest = button_.Fill() == button_.colors.rest;
    button_.colors.rest = color;
    if (!at_rest) return;
    button_.SetFill(color);
    GetSurface().SetBackColor(color);
  });
}

void PanelEditControl::SetDropDownBackColorMouseOver(Color color) {
  Store("DropDownBackColorMouseOver", Then::kRepaintThenNotify, button_.colors.mouse_over, color);
}

void PanelEditControl::SetDropDownBackColorPushed(Color color) {
  Store("DropDownBackColorPushed", Then::kRepaintThenNotify, button_.colors.pushed, color);
}

// --- Painting ----------------------------------------------------------------------------------------

void PanelEditControl::OnResize() {
  txtMain_.Move({}, {GetSurface().ScaleWidth() - DropButton::kWidth, GetSurface().ScaleHeight()});
  button_.LayOut();
}

void PanelEditControl::OnPaint() {
  GetSurface().Cls();
  button_.PaintArrow();
}

void PanelEditControl::ShowFill(Color fill) {
  button_.SetFill(fill);
  GetSurface().SetBackColor(fill);
  OnPaint();
}

// --- Keys --------------------------------------------------------------------------------------------

bool PanelEditControl::OnKeyPreview(KeyMessage& key) {
  if (key.kind != KeyMessage::Kind::kDown) return false;
  if (PanelIsOpen()) return PanelKey(key.code);
  const bool opens = Opens(key);
  if (opens) ShowPanel();
  return opens;
}

// --- Pointer -----------------------------------------------------------------------------------------

void PanelEditControl::OnMouseDown(const PointerInput& input) {
  if (input.button != kLeftButton) return;
  const auto keep = Reference();
  ShowFill(button_.colors.pushed);
  if (PanelIsOpen()) {
    HidePanel();
  } else {
    ShowPanel();
  }
}

// The fill is the state. The text is outside: there the capture would keep clicks from the edit box.
void PanelEditControl::OnMouseMove(const PointerInput& input) {
  const bool pushes = (input.button & kLeftButton) != 0;
  const Color fill = pushes ? button_.colors.pushed : button_.colors.mouse_over;
  if (button_.Fill() != fill) {
    ShowFill(fill);
    hover_.Capture();
  } else if (!pushes && (input.at.x < button_.Left() || IsOutside(GetSurface(), input.at))) {
    button_.SetFill(button_.colors.rest);
    GetSurface().SetBackColor(button_.colors.rest);
    hover_.Release();
    OnPaint();
  }
}

// The release has ended the capture, without which the strip would not notice that the pointer leaves.
void PanelEditControl::OnMouseUp(const PointerInput&) {
  ShowFill(button_.colors.mouse_over);
  hover_.Capture();
}

void PanelEditControl::EndInput() {
  HidePanel();
  hover_.Release();
  if (button_.Fill() != button_.colors.rest) ShowFill(button_.colors.rest);
}

// --- Panel -------------------------------------------------------------------------------------------

// A hidden control still has the pointer that it has captured.
bool PanelEditControl::CanOpen() const {
  return GetSurface().Windows().IsWindowVisible(GetSurface().hWnd()) && Enabled();
}

void PanelEditControl::ShowPanel() {
  if (!CanOpen()) return;
  const auto keep = Reference();
  PopupPanel& panel = PreparePanel();
  if (!CanOpen()) return;  // a listener has seen to that
  panel.Detach();
  const PixelRect& owner = panel.TakeOwnerRect();
  const PixelRect area = MonitorArea(owner, GetSurface().GetPlatform().Screen());
  panel.Open(PlacePanel(owner, panel.Size(), area, panel.Twips()));
}

void PanelEditControl::HidePanel() {
  if (!PanelIsOpen()) return;
  const auto keep = Reference();
  WindowApi& windows = GetSurface().Windows();
  const bool returns_focus = const_cast<PopupPanel*>(Panel())->Close();
  const WindowHandle active = windows.GetActiveWindow();
  // A listener may have turned to another form, which keeps the focus, too.
  const auto finish = [&] { AfterPanel(returns_focus && windows.GetActiveWindow() == active); };
  try {
    PanelClosed();
  } catch (...) {
    finish();
    throw;
  }
  finish();
}

void PanelEditControl::AfterPanel(bool takes_focus) {
  if (takes_focus && GetSurface().Windows().IsWindowVisible(txtMain_.hWnd())) txtMain_.SetFocus();
  txtMain_.Select(static_cast<std::int32_t>(text::CharacterCount(txtMain_.Text())), 0);
  if (button_.Fill() != button_.colors.rest) ShowFill(button_.colors.rest);
}

}  // namespace levelwidgets
