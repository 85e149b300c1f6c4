#include <levelwidgets/controls/dropdown/list_window.h>

#include <algorithm>

#include <levelwidgets/frame/input.h>

namespace levelwidgets {

std::int16_t HighlightFor(std::int32_t wanted, std::int32_t count) {
  return static_cast<std::int16_t>(std::clamp(wanted, 0, count));
}

std::optional<std::int16_t> FirstRowFor(std::int16_t highlighted, std::int16_t first_row) {
  if (highlighted < first_row) return std::max<std::int16_t>(highlighted, 1);
  if (highlighted > first_row + kListRows) return static_cast<std::int16_t>(highlighted - (kListRows - 1));
  return {};
}

std::optional<std::int32_t> HighlightAfterKey(std::int16_t key, std::int16_t highlighted,
                                              std::int32_t count) {
  constexpr std::int32_t kPage = kListRows - 1;
  switch (key) {
    case kKeyUp: return highlighted >= 2 ? std::optional(highlighted - 1) : std::nullopt;
    case kKeyDown: return highlighted < count ? std::optional(highlighted + 1) : std::nullopt;
    case kKeyPageUp: return highlighted > 1 ? std::optional(std::max(highlighted - kPage, 1)) : std::nullopt;
    case kKeyPageDown:
      return highlighted < count ? std::optional(std::min(highlighted + kPage, count)) : std::nullopt;
    case kKeyHome: return 0;
    case kKeyEnd: return count;
    default: return {};
  }
}

std::optional<std::int32_t> HighlightAt(TwipPoint at, TwipSize size, float row_height, std::int16_t first_row,
                                        std::int32_t count) {
  if (at.x < Twips() || at.x >= size.width) return {};
  if (at.y < Twips()) return 0;
  if (at.y >= size.height) return std::min<std::int32_t>(first_row + kListRows - 1, count);
  return first_row + IntegerDivide(at.y.value, row_height);
}

}  // namespace levelwidgets
