// Values and their texts: numbers, dates and formats in the manner of the system's automation layer.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include <levelwidgets/platform/types.h>

namespace levelwidgets {

// How a conversion ended: 0, or the number of the error that it is.
enum class ConversionStatus : std::int16_t { kOk = 0, kInvalid = 5, kOutOfRange = 6, kMismatch = 13 };

struct EmptyValue {
  friend constexpr bool operator==(EmptyValue, EmptyValue) = default;
};
struct NullValue {
  friend constexpr bool operator==(NullValue, NullValue) = default;
};

// The value to convert; a text (UTF-8) belongs to the caller. Booleans count as -1 and 0, empty as 0 or "".
using ConversionValue = std::variant<EmptyValue, NullValue, bool, std::int16_t, std::int32_t, float, double,
                                     Date, std::string_view>;

// A result, or the reason why there is no result; then `value` is its type's default.
template <typename T>
struct Converted {
  ConversionStatus status = ConversionStatus::kOk;
  T value{};

  Converted() = default;
  Converted(T result) : value(std::move(result)) {}
  Converted(ConversionStatus failure) : status(failure) {}
  explicit operator bool() const { return status == ConversionStatus::kOk; }
  friend bool operator==(const Converted&, const Converted&) = default;
};

// Days of the week and first days; kSystemDay is the locale's.
inline constexpr int kSystemDay = 0;
inline constexpr int kSunday = 1;
inline constexpr int kMonday = 2;
inline constexpr int kSaturday = 7;

// What the first week of a year is; kSystemWeek is the locale's.
inline constexpr int kSystemWeek = 0;
inline constexpr int kWeekOfJanuary1 = 1;
inline constexpr int kFirstFourDays = 2;
inline constexpr int kFirstFullWeek = 3;

// A date taken apart, to the nearest second. Years are 100 to 9999.
struct DateParts {
  int year = 1899;
  int month = 12;
  int day = 30;
  int hour = 0;
  int minute = 0;
  int second = 0;

  friend constexpr bool operator==(const DateParts&, const DateParts&) = default;
};

// All operations follow the desktop's locale. None throws.
class ConversionApi {
 public:
  virtual ~ConversionApi() = default;

  // "en-US".
  virtual std::string LocaleName() = 0;

  // A text may hold signs, parentheses, thousands separators, the currency symbol, an exponent, or
  // hexadecimal and octal digits after &H and &O. 13 for null and for a text that is no number, 6 for a text
  // beyond a double's range.
  virtual Converted<double> ToDouble(const ConversionValue& value) = 0;
  // A text is read as a date, a time or both, otherwise as a number of days; today's date supplies what the
  // text leaves out. 13 for a text that is neither, 6 outside the years 100 to 9999.
  virtual Converted<Date> ToDate(const ConversionValue& value) = 0;
  // The general form: up to 15 digits of a double and 7 of a single, dates as short date and long time. 13
  // for null.
  virtual Converted<std::string> ToText(const ConversionValue& value) = 0;

  // "True" and "False" in any case and with "#" around them; otherwise whether the number that ToDouble makes
  // of it is not 0. Fails as that does.
  virtual Converted<bool> ToBoolean(const ConversionValue& value) = 0;

  // Whether ToDouble can convert it; false for dates.
  virtual bool IsNumeric(const ConversionValue& value) = 0;
  // True for dates and for texts of dates; false for numbers.
  virtual bool IsDate(const ConversionValue& value) = 0;

  // `value` by a named or user-defined format; by the general form when `format` is empty. A value that the
  // format does not apply to, such as a text that is no number, is given in its general form. "" for null,
  // except by the fourth section of a number format. 5 for a format of more than four sections and when one
  // of the last two arguments is out of range.
  virtual Converted<std::string> Format(const ConversionValue& value, std::string_view format,
                                        int first_day = kSunday, int first_week = kWeekOfJanuary1) = 0;

  // `date` and `number` (rounded, ties to even) intervals: "yyyy" years, "q" quarters, "m" months, "y", "d"
  // or "w" days, "ww" weeks, "h" hours, "n" minutes, "s" seconds. The day of a shorter month is its last one.
  // 5 for another interval and for a result outside the years 100 to 9999.
  virtual Converted<Date> DateAdd(std::string_view interval, double number, Date date) = 0;
  // 5 outside the years 100 to 9999.
  virtual Converted<DateParts> SplitDate(Date date) = 0;
  // 1 for `first_day` to 7. 5 when an argument is out of range.
  virtual Converted<int> Weekday(Date date, int first_day = kSunday) = 0;

  // 5 unless 1 <= month <= 12.
  virtual Converted<std::string> MonthName(int month, bool abbreviated = false) = 0;
  // The name of the `weekday`-th day (1 to 7) of a week that begins with `first_day`. 5 out of range.
  virtual Converted<std::string> WeekdayName(int weekday, bool abbreviated = false,
                                             int first_day = kSunday) = 0;

  // Capital letters; a letter whose capital the code page lacks stays as it is.
  virtual std::string UpperCase(std::string_view text) = 0;

  // The bytes of the system's code page, as messages of keys carry them, and back. A character outside the
  // code page becomes "?".
  virtual std::string ToCodePage(std::string_view text) = 0;
  virtual std::string FromCodePage(std::string_view bytes) = 0;
  // Whether `byte` at the beginning of a character is the first of two.
  virtual bool IsDBCSLeadByte(char byte) = 0;

  // --- Made of the above ---------------------------------------------------------------------

  Converted<int> Year(Date date) { return PartOf(date, &DateParts::year); }
  Converted<int> Month(Date date) { return PartOf(date, &DateParts::month); }
  Converted<int> Day(Date date) { return PartOf(date, &DateParts::day); }
  Converted<int> Hour(Date date) { return PartOf(date, &DateParts::hour); }
  Converted<int> Minute(Date date) { return PartOf(date, &DateParts::minute); }
  Converted<int> Second(Date date) { return PartOf(date, &DateParts::second); }

 private:
  Converted<int> PartOf(Date date, int DateParts::*part) {
    const Converted<DateParts> parts = SplitDate(date);
    return parts ? Converted<int>(parts.value.*part) : Converted<int>(parts.status);
  }
};

}  // namespace levelwidgets
