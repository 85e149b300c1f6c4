#include <levelwidgets/frame/popup_placement.h>

#include <algorithm>

namespace levelwidgets {

TwipPoint PlaceDropDown(const PixelRect& owner, TwipSize panel, TwipSize screen, PixelTwips twips) {
  TwipPoint place;
  const bool fits_below = owner.bottom + ToPixels(panel.height, twips.x) <= ToPixels(screen.height, twips.y);
  place.y = fits_below ? ToTwips(owner.bottom, twips.y)
                       : ToTwips(owner.top - ToPixels(panel.height, twips.y), twips.y);
  const Twips flush_right = screen.width - panel.width;
  if (owner.width() > ToPixels(panel.width, twips.x)) {
    const bool ends_outside = owner.right > ToPixels(screen.width, twips.x);
    place.x = ends_outside ? flush_right : ToTwips(owner.right, twips.x) - panel.width;
  } else {
    place.x = owner.left >= 0 ? ToTwips(owner.left, twips.x) : Twips();
    if (place.x + panel.width > screen.width) place.x = flush_right;
  }
  return place;
}

TwipPoint PlacePanel(const PixelRect& owner, TwipSize panel, const PixelRect& area, PixelTwips twips) {
  const int height = ToPixels(panel.height, twips.y);
  const Twips flush_right = ToTwips(area.right, twips.x) - panel.width;
  const Twips first = ToTwips(area.left, twips.x);
  if (owner.bottom + height > area.bottom) {
    const Twips left = owner.right > area.right ? flush_right : ToTwips(owner.right, twips.x) - panel.width;
    return {std::max(left, first), ToTwips(owner.top - height, twips.y)};
  }
  const Twips left = std::max(ToTwips(owner.left, twips.x), first);
  return {left + panel.width >= ToTwips(area.right, twips.x) ? flush_right : left,
          ToTwips(owner.bottom, twips.y)};
}

}  // namespace levelwidgets
