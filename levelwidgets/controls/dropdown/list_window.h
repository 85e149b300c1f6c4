// Which rows of a list its panel shows, and which one is highlighted.
#pragma once

#include <cstdint>
#include <optional>

#include <levelwidgets/frame/units.h>

namespace levelwidgets {

// Rows of the panel.
inline constexpr std::int32_t kListRows = 8;

// The item that `wanted` highlights in a list of `count`: 1 to count, 0 for none.
std::int16_t HighlightFor(std::int32_t wanted, std::int32_t count);

// What the first row has to show once `highlighted` is the highlighted item; nothing when it stays. An item
// one row below the last one shown does not scroll yet: the next step then scrolls by two.
std::optional<std::int16_t> FirstRowFor(std::int16_t highlighted, std::int16_t first_row);

// The item that a key highlights in the open list; nothing when the key does not move the highlight, or
// cannot move it further. Home takes the highlight away.
std::optional<std::int32_t> HighlightAfterKey(std::int16_t key, std::int16_t highlighted, std::int32_t count);

// The item that the pointer at `at` highlights, on a panel of `size` twips with rows of `row_height` twips,
// both measured from the panel's corner; nothing beside the panel. Above it none, below it the last one
// shown.
std::optional<std::int32_t> HighlightAt(TwipPoint at, TwipSize size, float row_height, std::int16_t first_row,
                                        std::int32_t count);

}  // namespace levelwidgets
