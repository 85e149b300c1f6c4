#include <levelwidgets/platform/conversions/date_resolve.h>

#include <algorithm>
#include <string_view>

#include <levelwidgets/platform/text/calendar.h>

namespace levelwidgets::conversions {
namespace {

using Elements = std::span<const DateElement>;

// The elements taken as the fields that `order` names: d, m and y. Without y the year is `year`, without d
// the day is the first.
std::optional<DateParts> TakeAs(Elements elements, std::string_view order, int year) {
  DateParts parts{.year = year, .month = 0, .day = 1};
  for (std::size_t i = 0; i < elements.size(); ++i) {
    const DateElement& element = elements[i];
    if (element.is_month_name && order[i] != 'm') return std::nullopt;
    switch (order[i]) {
      case 'd': parts.day = element.value; break;
      case 'm': parts.month = element.value; break;
      default: parts.year = FullYear(element.value);
    }
  }
  return calendar::DateOf(parts) ? std::optional(parts) : std::nullopt;
}

std::optional<DateParts> TakeAsFirst(Elements elements, std::initializer_list<std::string_view> orders,
                                     int year) {
  for (std::string_view order : orders) {
    if (const auto parts = TakeAs(elements, order, year)) return parts;
  }
  return std::nullopt;
}

// Two elements: a day of this year if they can be one, otherwise a month.
std::optional<DateParts> ResolveTwo(Elements elements, DateOrder order, int year) {
  if (order == DateOrder::kDayMonthYear) return TakeAsFirst(elements, {"dm", "md", "ym", "my"}, year);
  return TakeAsFirst(elements, {"md", "dm", "ym", "my"}, year);
}

std::optional<DateParts> ResolveNumbers(Elements elements, DateOrder order, int year) {
  const std::string_view own = order == DateOrder::kMonthDayYear   ? "mdy"
                               : order == DateOrder::kDayMonthYear ? "dmy"
                                                                   : "ymd";
  return TakeAsFirst(elements, {own, "ymd", "mdy", "dmy", "ydm"}, year);
}

// A named month: the number next to it is the day as people write it, unless only the other one can be.
std::optional<DateParts> ResolveNamed(Elements elements, DateOrder order, int year) {
  if (order == DateOrder::kYearMonthDay) {
    return TakeAsFirst(elements, {"ymd", "dmy", "mdy", "ydm"}, year);
  }
  return TakeAsFirst(elements, {"dmy", "ymd", "mdy", "ydm"}, year);
}

}  // namespace

int FullYear(int year) {
  constexpr int kFirstOfLastCentury = 30;
  if (year >= 100) return year;
  return year + (year < kFirstOfLastCentury ? 2000 : 1900);
}

std::optional<DateParts> ResolveDate(Elements elements, DateOrder order, int current_year) {
  const auto names = std::ranges::count_if(elements, &DateElement::is_month_name);
  if (elements.size() == 2) return ResolveTwo(elements, order, current_year);
  if (elements.size() != 3 || names > 1) return std::nullopt;
  return names == 1 ? ResolveNamed(elements, order, current_year)
                    : ResolveNumbers(elements, order, current_year);
}

}  // namespace levelwidgets::conversions
