// The items of the lists that several property pages have.
#pragma once

#include <string_view>

namespace levelwidgets {

// The position of an item, from 0, is the value.
inline constexpr std::string_view kAlignmentItems[] = {"0 - ksxLeft", "1 - ksxRight", "2 - ksxCenter"};

// The named formats: those of dates are the last seven.
inline constexpr std::string_view kFormatItems[] = {
    "Standard",   "General Number", "Currency",    "Fixed",        "Percent",   "Scientific",
    "Yes/No",     "True/False",     "On/Off",      "General Date", "Long Date", "Medium Date",
    "Short Date", "Long Time",      "Medium Time", "Short Time"};

}  // namespace levelwidgets
