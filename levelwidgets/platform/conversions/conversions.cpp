#include <levelwidgets/platform/conversions/conversions.h>

#include <cmath>
#include <optional>

#include <levelwidgets/platform/conversions/date_parse.h>
#include <levelwidgets/platform/conversions/date_text.h>
#include <levelwidgets/platform/conversions/format.h>
#include <levelwidgets/platform/conversions/number_parse.h>
#include <levelwidgets/platform/conversions/number_text.h>
#include <levelwidgets/platform/text/calendar.h>
#include <levelwidgets/platform/text/letter_case.h>
#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets::conversions {
namespace {

constexpr ConversionStatus kInvalid = ConversionStatus::kInvalid;
constexpr ConversionStatus kOutOfRange = ConversionStatus::kOutOfRange;
constexpr ConversionStatus kMismatch = ConversionStatus::kMismatch;

template <typename... Functions>
struct Overload : Functions... {
  using Functions::operator()...;
};
template <typename... Functions>
Overload(Functions...) -> Overload<Functions...>;

// True is -1.
std::int32_t NumberOf(bool truth) { return truth ? -1 : 0; }

bool IsWithin(int value, int least, int most) { return value >= least && value <= most; }

}  // namespace

Conversions::Conversions(Locale locale, std::function<Date()> now, const CodePageCoder* code_page)
    : locale_(std::move(locale)), now_(std::move(now)), code_page_(code_page) {}

// --- Numbers and dates -----------------------------------------------------------------------

Converted<double> Conversions::ToDouble(const ConversionValue& value) {
  return std::visit(
      Overload{[](EmptyValue) -> Converted<double> { return 0.0; },
               [](NullValue) -> Converted<double> { return kMismatch; },
               [](bool truth) -> Converted<double> { return static_cast<double>(NumberOf(truth)); },
               [](Date date) -> Converted<double> { return date.days; },
               [this](std::string_view text) { return ParseNumber(text, locale_); },
               [](auto number) -> Converted<double> { return static_cast<double>(number); }},
      value);
}

Converted<Date> Conversions::TextToDate(std::string_view text) {
  const std::optional<DateParts> today = calendar::PartsOf(now_());
  return ParseDate(text, locale_, today ? today->year : calendar::kFirstYear);
}

Converted<Date> Conversions::ToDate(const ConversionValue& value) {
  if (const auto* text = std::get_if<std::string_view>(&value)) {
    if (const Converted<Date> date = TextToDate(*text)) return date;
  }
  const Converted<double> days = ToDouble(value);
  if (!days) return days.status;
  return calendar::MomentOf({days.value}) ? Converted<Date>(Date{days.value}) : kOutOfRange;
}

Converted<bool> Conversions::ToBoolean(const ConversionValue& value) {
  if (const auto* text = std::get_if<std::string_view>(&value)) {
    const auto is = [&](std::string_view word, std::string_view marked) {
      return text::EqualIgnoringCase(*text, word) || text::EqualIgnoringCase(*text, marked);
    };
    if (is("True", "#TRUE#")) return true;
    if (is("False", "#FALSE#")) return false;
  }
  const Converted<double> number = ToDouble(value);
  return number ? Converted<bool>(number.value != 0) : number.status;
}

bool Conversions::IsNumeric(const ConversionValue& value) {
  if (std::holds_alternative<Date>(value)) return false;
  const Converted<double> number = ToDouble(value);
  return static_cast<bool>(number);
}

bool Conversions::IsDate(const ConversionValue& value) {
  if (const auto* text = std::get_if<std::string_view>(&value)) return static_cast<bool>(TextToDate(*text));
  return std::holds_alternative<Date>(value);
}

// --- Texts -----------------------------------------------------------------------------------

Converted<std::string> Conversions::ToText(const ConversionValue& value) {
  if (std::holds_alternative<NullValue>(value)) return kMismatch;
  return GeneralText(value);
}

std::string Conversions::GeneralText(const ConversionValue& value) {
  TextBuilder out;
  std::visit(Overload{[](EmptyValue) {}, [](NullValue) {},
                      [&out](bool truth) { out.Append(truth ? "True" : "False"); },
                      [&out](std::string_view text) { out.Append(text); },
                      [&](float number) { AppendGeneral(number, locale_, out); },
                      [&](double number) { AppendGeneral(number, locale_, out); },
                      [&](Date date) {
                        const std::optional<DateParts> parts = calendar::PartsOf(date);
                        if (parts) return AppendGeneralDate(*parts, locale_, out);
                        AppendGeneral(date.days, locale_, out);
                      },
                      [&](auto integer) { AppendGeneral(DecimalOf(integer), kDoubleDigits, locale_, out); }},
             value);
  return out.Take();
}

Converted<Decimal> Conversions::ToDecimal(const ConversionValue& value) {
  if (const auto* single = std::get_if<float>(&value)) {
    return std::isfinite(*single) ? Converted<Decimal>(DecimalOf(*single)) : kMismatch;
  }
  const Converted<double> number = ToDouble(value);
  if (!number) return number.status;
  return std::isfinite(number.value) ? Converted<Decimal>(DecimalOf(number.value)) : kMismatch;
}

const ParsedFormat& Conversions::Parsed(std::string_view format) {
  KnownFormat& known = known_formats_[std::hash<std::string_view>()(format) % known_formats_.size()];
  if (known.text != format) {
    known.parsed = ParseFormat(format);
    known.text = format;
  }
  return known.parsed;
}

bool Conversions::FormatAs(const ParsedFormat& format, const ConversionValue& value, int first_day,
                           int first_week, TextBuilder& out) {
  if (format.kind == FormatKind::kText) {
    FormatText(GeneralText(value), format, out);
    return true;
  }
  if (format.kind == FormatKind::kDate) {
    const Converted<Date> date = ToDate(value);
    if (date) FormatDate(*calendar::PartsOf(date.value), format, locale_, first_day, first_week, out);
    return static_cast<bool>(date);
  }
  if (format.kind == FormatKind::kGeneral) return false;
  const Converted<Decimal> number = ToDecimal(value);
  if (!number) return false;
  if (format.kind == FormatKind::kNumber) {
    FormatNumber(number.value, format, locale_, out);
  } else if (format.kind == FormatKind::kCurrency) {
    FormatCurrency(number.value, locale_, out);
  } else {
    AppendGeneral(number.value, std::holds_alternative<float>(value) ? kSingleDigits : kDoubleDigits, locale_,
                  out);
  }
  return true;
}

Converted<std::string> Conversions::Format(const ConversionValue& value, std::string_view format,
                                           int first_day, int first_week) {
  if (!IsWithin(first_day, kSystemDay, kSaturday) || !IsWithin(first_week, kSystemWeek, kFirstFullWeek)) {
    return kInvalid;
  }
  if (format.empty()) return GeneralText(value);
  const ParsedFormat& parsed = Parsed(format);
  if (!parsed.valid) return kInvalid;
  TextBuilder out;
  if (std::holds_alternative<NullValue>(value)) {
    if (parsed.kind == FormatKind::kNumber) FormatNull(parsed, locale_, out);
    if (parsed.kind == FormatKind::kText && parsed.sections[1].given) FormatText({}, parsed, out);
    return out.Take();
  }
  const int day = first_day == kSystemDay ? locale_.first_day : first_day;
  const int week = first_week == kSystemWeek ? locale_.first_week : first_week;
  if (!FormatAs(parsed, value, day, week, out)) return GeneralText(value);
  return out.Take();
}

// --- The calendar ----------------------------------------------------------------------------

Converted<Date> Conversions::DateAdd(std::string_view interval, double number, Date date) {
  return calendar::AddToDate(interval, number, date);
}

Converted<DateParts> Conversions::SplitDate(Date date) {
  const std::optional<DateParts> parts = calendar::PartsOf(date);
  return parts ? Converted<DateParts>(*parts) : kInvalid;
}

Converted<int> Conversions::Weekday(Date date, int first_day) {
  const std::optional<calendar::Moment> moment = calendar::MomentOf(date);
  if (!moment || !IsWithin(first_day, kSystemDay, kSaturday)) return kInvalid;
  return calendar::WeekdayOf(moment->day, first_day == kSystemDay ? locale_.first_day : first_day);
}

Converted<std::string> Conversions::MonthName(int month, bool abbreviated) {
  if (!IsWithin(month, 1, 12)) return kInvalid;
  return std::string(MonthNameOf(locale_, month, abbreviated));
}

Converted<std::string> Conversions::WeekdayName(int weekday, bool abbreviated, int first_day) {
  if (!IsWithin(weekday, 1, 7) || !IsWithin(first_day, kSystemDay, kSaturday)) return kInvalid;
  const int first = first_day == kSystemDay ? locale_.first_day : first_day;
  return std::string(DayNameOf(locale_, (first - 1 + weekday - 1) % 7 + 1, abbreviated));
}

std::string Conversions::UpperCase(std::string_view text) {
  std::string upper;
  upper.reserve(text.size());
  while (!text.empty()) {
    const char32_t character = text::TakeCharacter(text);
    const char32_t capital = text::UpperCase(character);
    text::AppendCharacter(capital == character || IsInCodePage(capital) ? capital : character, upper);
  }
  return upper;
}

bool Conversions::IsInCodePage(char32_t character) {
  std::string text;
  text::AppendCharacter(character, text);
  return FromCodePage(ToCodePage(text)) == text;
}

std::string Conversions::ToCodePage(std::string_view text) {
  return code_page_ ? code_page_->ToCodePage(text) : std::string(text);
}

std::string Conversions::FromCodePage(std::string_view bytes) {
  return code_page_ ? code_page_->FromCodePage(bytes) : std::string(bytes);
}

bool Conversions::IsDBCSLeadByte(char byte) { return code_page_ && code_page_->IsLeadByte(byte); }

}  // namespace levelwidgets::conversions
