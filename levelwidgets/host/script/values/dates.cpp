#include <levelwidgets/host/script/values/dates.h>

#include <chrono>
#include <cmath>
#include <cstdio>

#include <levelwidgets/host/form_file/values_date.h>

namespace levelwidgets {

namespace {

namespace chrono = std::chrono;

constexpr chrono::sys_days kDayZero{chrono::December / 30 / 1899};
constexpr double kSecondsPerDay = 86400;

bool IsBetween(int value, int least, int most) { return value >= least && value <= most; }

}  // namespace

std::optional<Date> DateOf(const CalendarTime& time) {
  const chrono::year_month_day day{chrono::year(time.year), chrono::month(static_cast<unsigned>(time.month)),
                                   chrono::day(static_cast<unsigned>(time.day))};
  if (!IsBetween(time.year, 100, 9999) || !IsBetween(time.month, 1, 12) || !IsBetween(time.day, 1, 31) ||
      !day.ok() || !IsBetween(time.hour, 0, 23) || !IsBetween(time.minute, 0, 59) ||
      !IsBetween(time.second, 0, 59)) {
    return std::nullopt;
  }
  return MakeDate(day, TimeFraction(time.hour, time.minute, time.second, 0));
}

CalendarTime CalendarTimeOf(Date date) {
  double whole = std::trunc(date.days);
  auto seconds = static_cast<int>(std::lround(std::fabs(date.days - whole) * kSecondsPerDay));
  if (seconds == static_cast<int>(kSecondsPerDay)) {
    seconds = 0;
    whole += 1;
  }
  const chrono::year_month_day day{kDayZero + chrono::days(static_cast<int>(whole))};
  return {static_cast<int>(day.year()),
          static_cast<int>(static_cast<unsigned>(day.month())),
          static_cast<int>(static_cast<unsigned>(day.day())),
          seconds / 3600,
          seconds / 60 % 60,
          seconds % 60};
}

bool IsBefore(Date a, Date b) {
  // On days before day zero the later time has the smaller number.
  const double day_a = std::trunc(a.days);
  const double day_b = std::trunc(b.days);
  return day_a != day_b ? day_a < day_b : std::fabs(a.days - day_a) < std::fabs(b.days - day_b);
}

std::optional<Date> DateOfIsoText(std::string_view text) {
  const std::string copy(text);
  CalendarTime time;
  char separator = 'T';
  int length = 0;
  const int fields =
      std::sscanf(copy.c_str(), "%4d-%2d-%2d%n%c%2d:%2d:%2d%n", &time.year, &time.month, &time.day, &length,
                  &separator, &time.hour, &time.minute, &time.second, &length);
  const bool complete = (fields == 3 || fields == 7) && static_cast<std::size_t>(length) == copy.size();
  if (!complete || (separator != 'T' && separator != ' ')) return std::nullopt;
  return DateOf(time);
}

}  // namespace levelwidgets
