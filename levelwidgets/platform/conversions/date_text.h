// Dates by the locale's own patterns.
#pragma once

#include <string_view>

#include <levelwidgets/platform/conversions/locale.h>
#include <levelwidgets/platform/conversions/text_builder.h>
#include <levelwidgets/platform/text/calendar.h>

namespace levelwidgets::conversions {

void AppendPattern(std::string_view pattern, const DateParts& parts, const Locale& locale, TextBuilder& out);
// The short date, the time or both: the day of day 0 and the time of midnight are left out (but not both).
void AppendGeneralDate(const DateParts& parts, const Locale& locale, TextBuilder& out);

// The locale's names; the arguments must be in range (weekday 1 is Sunday).
std::string_view MonthNameOf(const Locale& locale, int month, bool abbreviated);
std::string_view DayNameOf(const Locale& locale, int weekday, bool abbreviated);

// The number of `c` at the beginning of `text`.
std::size_t RunLength(std::string_view text, char c);

}  // namespace levelwidgets::conversions
