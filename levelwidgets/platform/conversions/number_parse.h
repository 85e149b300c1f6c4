// Numbers read from texts.
#pragma once

#include <string_view>

#include <levelwidgets/platform/conversion.h>
#include <levelwidgets/platform/conversions/locale.h>

namespace levelwidgets::conversions {

// Around the digits, in any order: blanks; one sign, in front or behind; parentheses, which make the number
// negative; the currency symbol, once in front and any number of times behind. Thousands separators may stand
// anywhere behind the first digit. &H and &O begin hexadecimal and octal digits, up to 64 bits without a
// sign. 13 for any other text, 6 beyond a double's range; below it the number is 0.
Converted<double> ParseNumber(std::string_view text, const Locale& locale);

}  // namespace levelwidgets::conversions
