// Dates and times read from texts.
#pragma once

#include <string_view>

#include <levelwidgets/platform/conversion.h>
#include <levelwidgets/platform/conversions/locale.h>

namespace levelwidgets::conversions {

// A date, a time or both. A date is two or three numbers and month names, in the locale's order or, where
// that is no date, in another one; without a year it is in `current_year`. Years below 30 are 20xx, below 100
// 19xx. A time is hours, minutes and seconds, or hours with AM or PM. Names of days are not understood.
Converted<Date> ParseDate(std::string_view text, const Locale& locale, int current_year);

}  // namespace levelwidgets::conversions
