// The calendar behind dates: whole days since 30 December 1899 and the time of day.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include <levelwidgets/platform/conversion.h>

namespace levelwidgets::calendar {

inline constexpr int kFirstYear = 100;
inline constexpr int kLastYear = 9999;
inline constexpr int kSecondsPerDay = 86400;

// A day and a second of it. Days before day 0 are negative, seconds always count forward.
struct Moment {
  int day = 0;
  int second = 0;
};

bool IsLeapYear(int year);
int DaysInMonth(int year, int month);
int DayNumber(int year, int month, int day);

// Midnight at the beginning of the day.
Date DayOf(Date date);
// Whether `a` is the earlier one: on days before day 0 the later time has the smaller number.
bool IsBefore(Date a, Date b);

// To the nearest second; nothing outside the years 100 to 9999.
std::optional<Moment> MomentOf(Date date);
Date DateOf(Moment moment);
// The day with the part of it that has passed, 0 to below 1; in front of day 0 the time counts forward, too.
Date DateOf(int day_number, double time_of_day);
DateParts PartsOf(Moment moment);
// Nothing unless there is such a day and time in the years 100 to 9999.
std::optional<Date> DateOf(const DateParts& parts);
std::optional<DateParts> PartsOf(Date date);

// 1 for `first_day` (1 is Sunday) to 7.
int WeekdayOf(int day_number, int first_day);
int DayOfYear(int year, int month, int day);
// 1 to 54, counted as `first_week` says (1 to 3).
int WeekOfYear(const DateParts& parts, int first_day, int first_week);

Converted<Date> AddToDate(std::string_view interval, double number, Date date);
// How many times a new unit of that name has begun from `a` to `b`, negative when `b` is the earlier one:
// years
// ("yyyy"), quarters ("q"), months ("m"), days ("d", "y"), weeks that begin on `first_day` ("ww"), hours
// ("h"), minutes ("n") and seconds ("s"). "w" counts whole spans of seven days. Dates are taken to the
// nearest second.
Converted<std::int64_t> DifferenceOfDates(std::string_view interval, Date a, Date b, int first_day);

}  // namespace levelwidgets::calendar
