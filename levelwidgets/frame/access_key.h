// The access key in a caption.
#pragma once

#include <string>
#include <string_view>

namespace levelwidgets {

// The character (UTF-8) after the first "&" of `caption`: "&" itself for "&&", "" when the "&" is the last
// character or there is none.
std::string AccessKeyOf(std::string_view caption);

}  // namespace levelwidgets
