#include <levelwidgets/frame/fixed_panel_control.h>

#include <levelwidgets/frame/variant.h>

namespace levelwidgets {

FixedPanelControl::FixedPanelControl(std::shared_ptr<ControlSite> site, const PopupLook& panel)
    : PanelEditControl(
          std::move(site),
          {.panel = panel, .strip = {}, .hidden_colors = Then::kRepaintThenNotify, .caret_to_end = true}) {
  Relay(Edit());
}

std::int16_t FixedPanelControl::SelStart() const { return ToInt16(Edit().SelStart()); }

std::int16_t FixedPanelControl::SelLength() const { return ToInt16(Edit().SelLength()); }

TwipPoint FixedPanelControl::PlaceFor(const PixelRect& owner) const {
  const PixelRect area = MonitorArea(owner, GetSurface().GetPlatform().Screen());
  return PlacePanel(owner, Panel()->Size(), area, Panel()->Twips());
}

// The text is outside: there the capture would keep clicks from the edit box.
void FixedPanelControl::Hover(TwipPoint at) {
  DropButton& strip = Strip();
  if (strip.Fill() != strip.colors.mouse_over) {
    ShowFill(strip.colors.mouse_over);
    Capturing().Capture();
  } else if (at.x < strip.Left() || IsOutside(GetSurface(), at)) {
    strip.SetFill(strip.colors.rest);
    Capturing().Release();
    OnPaint();
  }
}

}  // namespace levelwidgets
