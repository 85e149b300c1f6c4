// How a cell's text is shown.
#pragma once

#include <string>
#include <string_view>

#include <levelwidgets/frame/alignment.h>
#include <levelwidgets/platform/conversion.h>

namespace levelwidgets {

// `text` in a column's format; unchanged when the format is invalid.
std::string ShownText(ConversionApi& conversions, std::string_view text, std::string_view format);

// The DrawTextA flags of captions and cells: one line, in the middle of the height. Any alignment but
// ksxRight and ksxCenter is left.
constexpr std::uint32_t GridTextFlags(ksxAlignmentConstants alignment) {
  return kDtSingleLine | kDtVCenter | DrawTextAlignment(alignment);
}

}  // namespace levelwidgets
