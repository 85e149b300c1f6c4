#include <levelwidgets/controls/tabstrip/flat_tab_strip.h>

namespace levelwidgets {

void FlatTabStrip::OnMouseDown(const PointerInput& input) {
  const auto keep = Reference();
  if (input.button == kLeftButton) {
    ScreenApi& screen = GetSurface().GetPlatform().Screen();
    const int tab = TabPressed(input.at, {.tab_width = tab_width_,
                                          .tab_count = tab_count_,
                                          .band_height = band_height_,
                                          .twips_per_pixel_x = screen.TwipsPerPixelX(),
                                          .twips_per_pixel_y = screen.TwipsPerPixelY()});
    if (tab != 0) SetSelectedTab(static_cast<std::int16_t>(tab));
  }
  Raise(MouseDown, input);
}

void FlatTabStrip::OnKeyDown(std::int16_t code, std::int16_t shift) {
  const auto keep = Reference();
  switch (code) {
    case kKeyTab:
      // With Shift too it is the next tab, not the previous one.
      if (shift & kCtrlMask) SelectByKey(NextTab());
      break;
    case kKeyLeft: SelectByKey(PreviousTab()); break;
    case kKeyRight: SelectByKey(NextTab()); break;
    default: break;
  }
  KeyDown.Raise(code, shift);
}

// Without tabs there is nothing to select.
void FlatTabStrip::SelectByKey(std::int16_t tab) {
  if (tab_count_ > 0) SetSelectedTab(tab);
}

// A selection beyond the last tab counts as the last one.
std::int16_t FlatTabStrip::NextTab() const {
  return selected_tab_ >= tab_count_ ? std::int16_t{1} : static_cast<std::int16_t>(selected_tab_ + 1);
}

std::int16_t FlatTabStrip::PreviousTab() const {
  if (selected_tab_ <= 1) return tab_count_;
  return std::min(static_cast<std::int16_t>(selected_tab_ - 1), tab_count_);
}

}  // namespace levelwidgets
