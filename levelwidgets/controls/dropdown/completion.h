// What typing a character into an edit box with a list of texts makes of it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace levelwidgets {

// The text of an edit box with what is selected in it. UTF-8; places count in characters, from 0.
struct EditedText {
  std::string text;
  std::int32_t start = 0;
  std::int32_t length = 0;

  bool operator==(const EditedText&) const = default;
};

// After `typed` has taken the place of the selection. When the text then is, whatever its case, the beginning
// of one of the items, the first such item completes it: what was typed keeps its case, and the rest, in the
// item's case, is selected. Without one the caret stands behind what was typed.
EditedText Complete(const EditedText& before, std::string_view typed, std::span<const std::string> items);

}  // namespace levelwidgets
