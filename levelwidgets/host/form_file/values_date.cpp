#include <levelwidgets/host/form_file/values_date.h>

#include <cmath>
#include <cstdio>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/platform/text/calendar.h>

namespace levelwidgets {

namespace {

constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
constexpr std::int64_t kNanosecondsPerDay = 86'400 * kNanosecondsPerSecond;

struct DayAndTime {
  int day;
  std::int64_t nanoseconds;

  Date ToDate() const {
    return calendar::DateOf(day, static_cast<double>(nanoseconds) / static_cast<double>(kNanosecondsPerDay));
  }
};

// The roundest time that is still this very date.
DayAndTime Split(Date date) {
  const double day = calendar::DayOf(date).days;
  const double nanoseconds = std::fabs(date.days - day) * static_cast<double>(kNanosecondsPerDay);
  DayAndTime split{};
  for (const std::int64_t unit : {kNanosecondsPerSecond, std::int64_t{1'000'000}, std::int64_t{1}}) {
    split = {static_cast<int>(day), std::llround(nanoseconds / static_cast<double>(unit)) * unit};
    if (split.nanoseconds >= kNanosecondsPerDay) split = {split.day + 1, 0};
    if (split.ToDate() == date) break;
  }
  return split;
}

std::string SecondsFraction(std::int64_t nanoseconds) {
  if (nanoseconds == 0) return {};
  char digits[12];
  std::snprintf(digits, sizeof digits, ".%09d", static_cast<int>(nanoseconds));
  std::string text = digits;
  text.erase(text.find_last_not_of('0') + 1);
  return text;
}

}  // namespace

double TimeFraction(int hour, int minute, int second, std::uint32_t nanosecond) {
  const std::int64_t seconds = (hour * 60 + minute) * 60 + second;
  return static_cast<double>(seconds * kNanosecondsPerSecond + nanosecond) /
         static_cast<double>(kNanosecondsPerDay);
}

std::string WriteDate(Date date) {
  if (!(date.days > -693'594 && date.days < 2'958'466)) throw Error(kOverflow);
  const DayAndTime split = Split(date);
  const DateParts day = calendar::PartsOf(calendar::Moment{split.day, 0});
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", day.year, day.month, day.day);
  if (split.nanoseconds == 0) return text;
  std::string result = text;
  const int seconds = static_cast<int>(split.nanoseconds / kNanosecondsPerSecond);
  std::snprintf(text, sizeof text, "T%02d:%02d:%02d", seconds / 3600, seconds / 60 % 60, seconds % 60);
  return result + text + SecondsFraction(split.nanoseconds % kNanosecondsPerSecond);
}

}  // namespace levelwidgets
