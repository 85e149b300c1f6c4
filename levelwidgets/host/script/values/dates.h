// Days of the calendar and the dates of properties.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <levelwidgets/platform/types.h>

namespace levelwidgets {

struct CalendarTime {
  int year = 1899;
  int month = 12;
  int day = 30;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

// Nothing for a day or time that there is not.
std::optional<Date> DateOf(const CalendarTime& time);
// To the nearest second.
CalendarTime CalendarTimeOf(Date date);

bool IsBefore(Date a, Date b);

// "2024-05-31", "2024-05-31T10:30:00" (a space may stand for the T).
std::optional<Date> DateOfIsoText(std::string_view text);

}  // namespace levelwidgets
