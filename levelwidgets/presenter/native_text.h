// Text on its way to other programs and back.
#pragma once

#include <string>
#include <string_view>

namespace levelwidgets::presenter {

// The desktop's lines end in CR LF, those of other programs in LF.
std::string ToNativeLines(std::string_view text);
// A CR without an LF ends a line, too.
std::string ToDesktopLines(std::string_view text);

}  // namespace levelwidgets::presenter
