// Which of the numbers in a date is the day, the month and the year.
#pragma once

#include <optional>
#include <span>

#include <levelwidgets/platform/conversion.h>
#include <levelwidgets/platform/conversions/locale.h>

namespace levelwidgets::conversions {

// A number of a date, or the number of a month that was named.
struct DateElement {
  int value = 0;
  bool is_month_name = false;
};

// 0 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999.
int FullYear(int year);

// The day that two or three elements stand for (time 0); nothing when they stand for none.
std::optional<DateParts> ResolveDate(std::span<const DateElement> elements, DateOrder order,
                                     int current_year);

}  // namespace levelwidgets::conversions
