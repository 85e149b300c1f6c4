// The access key in a caption.
#pragma once

#include <string>
#include <string_view>

namespace levelwidgets {

// The character (UTF-8) after the first "&" of `caption`: "&" itself for "&&", "" when the "&" is the last
// character or there is none.
std::string AccessKeyOf(std::string_view caption);

// Whether `character` is one of `keys` (both UTF-8) in either case.
bool IsAccessKey(std::string_view keys, std::string_view character);

}  // namespace levelwidgets
