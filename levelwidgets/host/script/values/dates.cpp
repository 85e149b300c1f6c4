#include <levelwidgets/host/script/values/dates.h>

#include <cstdio>
#include <string>

#include <levelwidgets/platform/text/calendar.h>

namespace levelwidgets {

std::optional<Date> DateOfIsoText(std::string_view text) {
  const std::string copy(text);
  DateParts parts;
  char separator = 'T';
  int length = 0;
  const int fields =
      std::sscanf(copy.c_str(), "%4d-%2d-%2d%n%c%2d:%2d:%2d%n", &parts.year, &parts.month, &parts.day,
                  &length, &separator, &parts.hour, &parts.minute, &parts.second, &length);
  const bool complete = (fields == 3 || fields == 7) && static_cast<std::size_t>(length) == copy.size();
  if (!complete || (separator != 'T' && separator != ' ')) return std::nullopt;
  return calendar::DateOf(parts);
}

}  // namespace levelwidgets
