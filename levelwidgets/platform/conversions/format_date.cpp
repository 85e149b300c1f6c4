#include <levelwidgets/platform/conversions/date_text.h>
#include <levelwidgets/platform/conversions/format.h>

namespace levelwidgets::conversions {
namespace {

class DateWriter {
 public:
  DateWriter(const DateParts& date, const Locale& locale, TextBuilder& out)
      : date_(date), locale_(locale), out_(out) {}

  void Write(const ParsedFormat& format, int first_day, int first_week) {
    twelve_hours_ = format.twelve_hours;
    for (std::uint32_t i = format.sections[0].first; i < format.sections[0].last; ++i) {
      const FormatToken& token = format.tokens[i];
      switch (token.kind) {
        case TokenKind::kLiteral: out_.Append(format.LiteralOf(token)); break;
        case TokenKind::kWeekday: out_.AppendNumber(Weekday(first_day)); break;
        case TokenKind::kWeek: out_.AppendNumber(calendar::WeekOfYear(date_, first_day, first_week)); break;
        default: WriteDay(token.kind);
      }
    }
  }

 private:
  int Weekday(int first_day) const {
    return calendar::WeekdayOf(calendar::DayNumber(date_.year, date_.month, date_.day), first_day);
  }

  void WriteDay(TokenKind kind) {
    switch (kind) {
      case TokenKind::kDay: return out_.AppendNumber(date_.day);
      case TokenKind::kDay2: return out_.AppendNumber(date_.day, 2);
      case TokenKind::kDayShort: return out_.Append(DayNameOf(locale_, Weekday(kSunday), true));
      case TokenKind::kDayLong: return out_.Append(DayNameOf(locale_, Weekday(kSunday), false));
      case TokenKind::kMonth: return out_.AppendNumber(date_.month);
      case TokenKind::kMonth2: return out_.AppendNumber(date_.month, 2);
      case TokenKind::kMonthShort: return out_.Append(MonthNameOf(locale_, date_.month, true));
      case TokenKind::kMonthLong: return out_.Append(MonthNameOf(locale_, date_.month, false));
      case TokenKind::kQuarter: return out_.AppendNumber((date_.month + 2) / 3);
      case TokenKind::kDayOfYear:
        return out_.AppendNumber(calendar::DayOfYear(date_.year, date_.month, date_.day));
      case TokenKind::kYear2: return out_.AppendNumber(date_.year % 100, 2);
      case TokenKind::kYear4: return out_.AppendNumber(date_.year);
      default: WriteTime(kind);
    }
  }

  void WriteTime(TokenKind kind) {
    const int hour = twelve_hours_ ? (date_.hour + 11) % 12 + 1 : date_.hour;
    switch (kind) {
      case TokenKind::kHour: return out_.AppendNumber(hour);
      case TokenKind::kHour2: return out_.AppendNumber(hour, 2);
      case TokenKind::kMinute: return out_.AppendNumber(date_.minute);
      case TokenKind::kMinute2: return out_.AppendNumber(date_.minute, 2);
      case TokenKind::kSecond: return out_.AppendNumber(date_.second);
      case TokenKind::kSecond2: return out_.AppendNumber(date_.second, 2);
      case TokenKind::kTimeSeparator: return out_.Append(locale_.time_separator);
      case TokenKind::kDateSeparator: return out_.Append(locale_.date_separator);
      default: WriteRest(kind);
    }
  }

  void WriteRest(TokenKind kind) {
    const bool morning = date_.hour < 12;
    switch (kind) {
      case TokenKind::kHalfUpper: return out_.Append(morning ? "AM" : "PM");
      case TokenKind::kHalfLower: return out_.Append(morning ? "am" : "pm");
      case TokenKind::kHalfUpperLetter: return out_.Append(morning ? 'A' : 'P');
      case TokenKind::kHalfLowerLetter: return out_.Append(morning ? 'a' : 'p');
      case TokenKind::kHalfLocal: return out_.Append(morning ? locale_.am : locale_.pm);
      case TokenKind::kShortDate: return AppendPattern(locale_.short_date, date_, locale_, out_);
      case TokenKind::kLongDate: return AppendPattern(locale_.long_date, date_, locale_, out_);
      case TokenKind::kLongTime: return AppendPattern(locale_.time, date_, locale_, out_);
      case TokenKind::kGeneralDate: return AppendGeneralDate(date_, locale_, out_);
      default: return;
    }
  }

  const DateParts& date_;
  const Locale& locale_;
  TextBuilder& out_;
  bool twelve_hours_ = false;
};

}  // namespace

void FormatDate(const DateParts& date, const ParsedFormat& format, const Locale& locale, int first_day,
                int first_week, TextBuilder& out) {
  DateWriter(date, locale, out).Write(format, first_day, first_week);
}

}  // namespace levelwidgets::conversions
