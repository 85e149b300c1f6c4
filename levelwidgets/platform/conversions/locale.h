// What numbers and dates look like in a country.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace levelwidgets::conversions {

// Stands between thousands in some countries.
inline constexpr char kNoBreakSpace[] = "\u00A0";

enum class DateOrder { kMonthDayYear, kDayMonthYear, kYearMonthDay };

// Texts are UTF-8. Patterns are the system's: d to dddd, M to MMMM, yy, yyyy, h, hh, H, HH, m, mm, s, ss, tt,
// and texts in single quotes.
struct Locale {
  std::string name;
  int code_page = 1252;  // in which its texts are written on the system

  std::string decimal = ".";
  std::string thousands = ",";
  std::string list = ",";

  std::string currency = "$";
  std::string currency_decimal = ".";
  std::string currency_thousands = ",";
  int currency_digits = 2;
  int positive_currency = 0;  // 0 to 3, 0 is $1.1
  int negative_currency = 0;  // 0 to 15, 0 is ($1.1)
  int negative_number = 1;    // 0 to 4, 1 is -1.1

  DateOrder date_order = DateOrder::kMonthDayYear;
  std::string short_date = "M/d/yyyy";
  std::string long_date = "dddd, MMMM d, yyyy";
  std::string time = "h:mm:ss tt";
  std::string date_separator = "/";
  std::string time_separator = ":";
  std::string am = "AM";
  std::string pm = "PM";

  std::array<std::string, 12> months;  // from January
  std::array<std::string, 12> short_months;
  std::array<std::string, 7> days;  // from Sunday
  std::array<std::string, 7> short_days;
  int first_day = 1;   // 1 is Sunday
  int first_week = 1;  // 1 that of 1 January, 2 the first with four days, 3 the first full one
};

// The names of the built-in locales.
std::vector<std::string_view> LocaleNames();
// A built-in locale: en-US, en-GB, de-DE, fr-FR, sv-SE or ja-JP, whatever the case; null for another name.
const Locale* FindLocale(std::string_view name);
// en-US for a name that is not built in.
const Locale& LocaleOrDefault(std::string_view name);

}  // namespace levelwidgets::conversions
