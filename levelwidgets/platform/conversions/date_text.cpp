#include <levelwidgets/platform/conversions/date_text.h>

#include <algorithm>

namespace levelwidgets::conversions {
namespace {

int TwelveHours(int hour) { return (hour + 11) % 12 + 1; }

class PatternWriter {
 public:
  PatternWriter(const DateParts& parts, const Locale& locale, TextBuilder& out)
      : parts_(parts), locale_(locale), out_(out) {}

  void Write(std::string_view pattern) {
    while (!pattern.empty()) {
      const char c = pattern.front();
      if (c == '\'') {
        WriteQuoted(pattern);
      } else if (std::string_view("dMyhHmst").find(c) != std::string_view::npos) {
        const std::size_t length = RunLength(pattern, c);
        WriteField(c, static_cast<int>(length));
        pattern.remove_prefix(length);
      } else {
        out_.Append(c);
        pattern.remove_prefix(1);
      }
    }
  }

 private:
  void WriteQuoted(std::string_view& pattern) {
    const std::size_t end = std::min(pattern.find('\'', 1), pattern.size());
    out_.Append(pattern.substr(1, end - 1));
    pattern.remove_prefix(std::min(end + 1, pattern.size()));
  }

  void WriteField(char field, int length) {
    const int digits = std::min(length, 2);
    switch (field) {
      case 'd': return length > 2 ? WriteDay(length == 3) : out_.AppendNumber(parts_.day, digits);
      case 'M':
        return length > 2 ? out_.Append(MonthNameOf(locale_, parts_.month, length == 3))
                          : out_.AppendNumber(parts_.month, digits);
      case 'y':
        return length > 2 ? out_.AppendNumber(parts_.year) : out_.AppendNumber(parts_.year % 100, digits);
      case 'h': return out_.AppendNumber(TwelveHours(parts_.hour), digits);
      case 'H': return out_.AppendNumber(parts_.hour, digits);
      case 'm': return out_.AppendNumber(parts_.minute, digits);
      case 's': return out_.AppendNumber(parts_.second, digits);
      default: return out_.Append(parts_.hour < 12 ? locale_.am : locale_.pm);
    }
  }

  void WriteDay(bool abbreviated) {
    const int weekday =
        calendar::WeekdayOf(calendar::DayNumber(parts_.year, parts_.month, parts_.day), kSunday);
    out_.Append(DayNameOf(locale_, weekday, abbreviated));
  }

  const DateParts& parts_;
  const Locale& locale_;
  TextBuilder& out_;
};

}  // namespace

void AppendPattern(std::string_view pattern, const DateParts& parts, const Locale& locale, TextBuilder& out) {
  PatternWriter(parts, locale, out).Write(pattern);
}

void AppendGeneralDate(const DateParts& parts, const Locale& locale, TextBuilder& out) {
  const bool has_time = parts.hour != 0 || parts.minute != 0 || parts.second != 0;
  const DateParts day_zero;
  const bool has_day =
      parts.year != day_zero.year || parts.month != day_zero.month || parts.day != day_zero.day;
  if (has_day) AppendPattern(locale.short_date, parts, locale, out);
  if (has_day && has_time) out.Append(' ');
  if (has_time || !has_day) AppendPattern(locale.time, parts, locale, out);
}

std::string_view MonthNameOf(const Locale& locale, int month, bool abbreviated) {
  return (abbreviated ? locale.short_months : locale.months)[static_cast<std::size_t>(month - 1)];
}

std::string_view DayNameOf(const Locale& locale, int weekday, bool abbreviated) {
  return (abbreviated ? locale.short_days : locale.days)[static_cast<std::size_t>(weekday - 1)];
}

std::size_t RunLength(std::string_view text, char c) {
  return std::min(text.find_first_not_of(c), text.size());
}

}  // namespace levelwidgets::conversions
