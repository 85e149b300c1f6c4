// What the controls around an edit box have in common whose panel has a size of its own: keypad and month
// view.
#pragma once

#include <levelwidgets/frame/panel_edit_control.h>

namespace levelwidgets {

// The strip's fill is the colour of the control's surface. The panel opens on the monitor that holds most of
// the control, and its closing leaves the caret at the end of the text.
class FixedPanelControl : public PanelEditControl {
 public:
  // --- Properties -------------------------------------------------------------------------------

  ksxAlignmentConstants Alignment() const { return Edit().Alignment(); }
  // Any other value is left-aligned.
  void SetAlignment(ksxAlignmentConstants alignment) { AssignAlignment(alignment); }
  // Of the edit box, in characters from 0; they notify nobody. A place beyond 32767 raises 6 (overflow) when
  // it is read.
  std::int16_t SelStart() const;
  void SetSelStart(std::int16_t start) { Edit().Select(start, 0); }
  std::int16_t SelLength() const;
  void SetSelLength(std::int16_t length) { Edit().Select(Edit().SelStart(), length); }

 protected:
  FixedPanelControl(std::shared_ptr<ControlSite> site, const PopupLook& panel);

  TwipPoint PlaceFor(const PixelRect& owner) const override;
  void Hover(TwipPoint at) override;
};

}  // namespace levelwidgets
