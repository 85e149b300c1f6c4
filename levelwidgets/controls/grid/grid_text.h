// How a cell's text is shown.
#pragma once

#include <string>
#include <string_view>

#include <levelwidgets/frame/alignment.h>
#include <levelwidgets/platform/conversion.h>

namespace levelwidgets {

// `text` by a column's format, and as it is by a format that is none.
std::string ShownText(ConversionApi& conversions, std::string_view text, std::string_view format);

// The DrawTextA flags of captions and cells: one line, in the middle of the height. Any alignment but
// ksxRight and ksxCenter is left.
constexpr std::uint32_t GridTextFlags(ksxAlignmentConstants alignment) {
  return kDtSingleLine | kDtVCenter | DrawTextAlignment(alignment);
}

}  // namespace levelwidgets
