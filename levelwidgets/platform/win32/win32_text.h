// Text between UTF-8, UTF-16 and the system's single-byte code page.
#pragma once

#include <string>
#include <string_view>

namespace levelwidgets::win32 {

std::wstring ToWide(std::string_view utf8);
std::string FromWide(std::wstring_view wide);

// A character outside the code page becomes "?", also when a similar one exists.
std::string ToCodePage(std::string_view utf8);
std::string FromCodePage(std::string_view text);

}  // namespace levelwidgets::win32
