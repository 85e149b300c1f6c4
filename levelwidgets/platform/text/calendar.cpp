#include <levelwidgets/platform/text/calendar.h>

#include <algorithm>
#include <chrono>
#include <cmath>

#include <levelwidgets/platform/text/letter_case.h>

namespace levelwidgets::calendar {
namespace {

namespace chrono = std::chrono;

constexpr chrono::sys_days kDayZero{chrono::December / 30 / 1899};
constexpr int kDaySunday = 1;  // 31 December 1899

constexpr int DayNumberOf(chrono::year_month_day day) {
  return static_cast<int>((chrono::sys_days(day) - kDayZero).count());
}
constexpr int kFirstDay = DayNumberOf(chrono::January / 1 / kFirstYear);
constexpr int kLastDay = DayNumberOf(chrono::December / 31 / kLastYear);

int Modulo(int value, int divisor) { return (value % divisor + divisor) % divisor; }

// The number of the first day of the year's first week, counted from its first day, 0.
int FirstWeekStart(int year, int first_day, int first_week) {
  const int before = WeekdayOf(DayNumber(year, 1, 1), first_day) - 1;  // days of its week in the last year
  switch (first_week) {
    case kFirstFourDays: return before <= 3 ? -before : 7 - before;
    case kFirstFullWeek: return before == 0 ? 0 : 7 - before;
    default: return -before;
  }
}

}  // namespace

bool IsLeapYear(int year) { return chrono::year(year).is_leap(); }

int DaysInMonth(int year, int month) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

int DayNumber(int year, int month, int day) { return DayNumberOf(chrono::year(year) / month / day); }

std::optional<Moment> MomentOf(Date date) {
  // The bounds also keep out what is not a number.
  if (!(date.days > kFirstDay - 1.0 && date.days < kLastDay + 1.0)) return std::nullopt;
  const double whole = std::trunc(date.days);
  Moment moment{static_cast<int>(whole),
                static_cast<int>(std::floor(std::fabs(date.days - whole) * kSecondsPerDay + 0.5))};
  if (moment.second == kSecondsPerDay) moment = {moment.day + 1, 0};
  if (moment.day < kFirstDay || moment.day > kLastDay) return std::nullopt;
  return moment;
}

Date DateOf(Moment moment) { return DateOf(moment.day, static_cast<double>(moment.second) / kSecondsPerDay); }

Date DateOf(int day_number, double time_of_day) {
  return {day_number < 0 ? day_number - time_of_day : day_number + time_of_day};
}

Date DayOf(Date date) { return {std::trunc(date.days)}; }

bool IsBefore(Date a, Date b) {
  const double day_a = DayOf(a).days;
  const double day_b = DayOf(b).days;
  return day_a != day_b ? day_a < day_b : std::fabs(a.days - day_a) < std::fabs(b.days - day_b);
}

DateParts PartsOf(Moment moment) {
  const chrono::year_month_day day{kDayZero + chrono::days(moment.day)};
  return {static_cast<int>(day.year()),
          static_cast<int>(static_cast<unsigned>(day.month())),
          static_cast<int>(static_cast<unsigned>(day.day())),
          moment.second / 3600,
          moment.second / 60 % 60,
          moment.second % 60};
}

std::optional<Date> DateOf(const DateParts& parts) {
  const auto within = [](int value, int least, int most) { return value >= least && value <= most; };
  if (!within(parts.year, kFirstYear, kLastYear) || !within(parts.month, 1, 12) ||
      !within(parts.day, 1, DaysInMonth(parts.year, parts.month)) || !within(parts.hour, 0, 23) ||
      !within(parts.minute, 0, 59) || !within(parts.second, 0, 59)) {
    return std::nullopt;
  }
  return DateOf(Moment{DayNumber(parts.year, parts.month, parts.day),
                       (parts.hour * 60 + parts.minute) * 60 + parts.second});
}

std::optional<DateParts> PartsOf(Date date) {
  const std::optional<Moment> moment = MomentOf(date);
  return moment ? std::optional(PartsOf(*moment)) : std::nullopt;
}

int WeekdayOf(int day_number, int first_day) {
  return Modulo(day_number - kDaySunday - (first_day - 1), 7) + 1;
}

int DayOfYear(int year, int month, int day) {
  return DayNumber(year, month, day) - DayNumber(year, 1, 1) + 1;
}

int WeekOfYear(const DateParts& parts, int first_day, int first_week) {
  int year = parts.year;
  int since = DayOfYear(parts.year, parts.month, parts.day) - 1;
  int start = FirstWeekStart(year, first_day, first_week);
  if (since < start) {  // it belongs to the last week of the year before
    --year;
    since += IsLeapYear(year) ? 366 : 365;
    start = FirstWeekStart(year, first_day, first_week);
  } else if (first_week == kFirstFourDays) {
    const int length = IsLeapYear(year) ? 366 : 365;
    if (since - length >= FirstWeekStart(year + 1, first_day, first_week)) return 1;
  }
  return (since - start) / 7 + 1;
}

namespace {

constexpr ConversionStatus kInvalid = ConversionStatus::kInvalid;

// Time in front of day 0 counts forward, so days and their part are moved each for itself.
Converted<Date> AddDays(Date date, double days) {
  const double whole = std::trunc(date.days);
  const double time = std::fabs(date.days - whole);
  const double day = whole + days;
  if (!(day >= kFirstDay && day <= kLastDay)) return kInvalid;
  return Date{day < 0 ? day - time : day + time};
}

Converted<Date> AddMonths(Date date, double months) {
  constexpr double kMostMonths = 12.0 * kLastYear;
  if (!(std::fabs(months) <= kMostMonths)) return kInvalid;
  const int whole = static_cast<int>(std::trunc(date.days));
  const DateParts parts = PartsOf(Moment{whole, 0});
  const int month = parts.year * 12 + parts.month - 1 + static_cast<int>(months);
  const int year = month / 12;
  if (month < 0 || year < kFirstYear || year > kLastYear) return kInvalid;
  const int day = std::min(parts.day, DaysInMonth(year, month % 12 + 1));
  return AddDays(date, DayNumber(year, month % 12 + 1, day) - whole);
}

Converted<Date> AddSeconds(Date date, double seconds) {
  constexpr double kMostSeconds = 9e11;
  const std::optional<Moment> moment = MomentOf(date);
  if (!moment || !(std::fabs(seconds) < kMostSeconds)) return kInvalid;
  const auto sum = moment->second + static_cast<long long>(seconds);
  const long long days = sum >= 0 ? sum / kSecondsPerDay : (sum - kSecondsPerDay + 1) / kSecondsPerDay;
  const long long day = moment->day + days;
  if (day < kFirstDay || day > kLastDay) return kInvalid;
  return DateOf(Moment{static_cast<int>(day), static_cast<int>(sum - days * kSecondsPerDay)});
}

}  // namespace

Converted<Date> AddToDate(std::string_view interval, double number, Date date) {
  if (!MomentOf(date)) return kInvalid;
  const double whole = std::nearbyint(number);
  const auto is = [interval](std::string_view name) { return text::EqualIgnoringCase(interval, name); };
  if (is("yyyy")) return AddMonths(date, whole * 12);
  if (is("q")) return AddMonths(date, whole * 3);
  if (is("m")) return AddMonths(date, whole);
  if (is("y") || is("d") || is("w")) return AddDays(date, whole);
  if (is("ww")) return AddDays(date, whole * 7);
  if (is("h")) return AddSeconds(date, whole * 3600);
  if (is("n")) return AddSeconds(date, whole * 60);
  if (is("s")) return AddSeconds(date, whole);
  return kInvalid;
}

namespace {

std::int64_t Floor(std::int64_t value, std::int64_t divisor) {
  return value >= 0 ? value / divisor : -((-value + divisor - 1) / divisor);
}

// Units that have begun by then, counted from anywhere.
std::optional<std::int64_t> UnitsBy(std::string_view interval, Moment moment, int first_day) {
  const auto is = [interval](std::string_view name) { return text::EqualIgnoringCase(interval, name); };
  const DateParts parts = PartsOf(moment);
  const std::int64_t seconds = std::int64_t{moment.day} * kSecondsPerDay + moment.second;
  if (is("yyyy")) return parts.year;
  if (is("q")) return parts.year * 4 + (parts.month - 1) / 3;
  if (is("m")) return parts.year * 12 + parts.month;
  if (is("y") || is("d")) return moment.day;
  if (is("ww")) return Floor(moment.day - kDaySunday - (first_day - 1), 7);
  if (is("h")) return Floor(seconds, 3600);
  if (is("n")) return Floor(seconds, 60);
  if (is("s")) return seconds;
  return std::nullopt;
}

}  // namespace

Converted<std::int64_t> DifferenceOfDates(std::string_view interval, Date a, Date b, int first_day) {
  const auto from = MomentOf(a);
  const auto to = MomentOf(b);
  if (!from || !to || first_day < kSunday || first_day > kSaturday) return kInvalid;
  if (text::EqualIgnoringCase(interval, "w")) return std::int64_t{(to->day - from->day) / 7};
  const auto before = UnitsBy(interval, *from, first_day);
  const auto after = UnitsBy(interval, *to, first_day);
  if (!before || !after) return kInvalid;
  return *after - *before;
}

}  // namespace levelwidgets::calendar
