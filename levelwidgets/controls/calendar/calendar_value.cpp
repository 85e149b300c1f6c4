#include <levelwidgets/controls/calendar/calendar_value.h>

#include <levelwidgets/frame/conversions.h>

namespace levelwidgets {

namespace {

bool EqualsEmptyString(const Variant& value) {
  const auto* text = std::get_if<std::string>(&value.Get());
  return value.IsEmpty() || (text && text->empty());
}

}  // namespace

std::string CalendarValue::Formatted(const Variant& date) const {
  const ConversionValue value = ToConversionValue(date);
  const auto formatted = conversions_.Format(value, date_format_);
  return formatted ? formatted.value : ResultOf(conversions_.Format(value, ""));
}

std::optional<Date> CalendarValue::SelectedDate() const {
  const ConversionValue value = ToConversionValue(value_);
  if (!conversions_.IsDate(value)) return std::nullopt;
  return ResultOf(conversions_.ToDate(value));
}

std::string CalendarValue::Assign(const Variant& value) {
  if (value.IsNull() || EqualsEmptyString(value)) {
    value_ = value.IsNull() ? value : Variant("");
    return "";
  }
  const ConversionValue given = ToConversionValue(value);
  if (!conversions_.IsDate(given)) throw Error(kTypeMismatch);
  const Date date = ResultOf(conversions_.ToDate(given));
  std::string text = Formatted(value);  // of the value as given, not of the date
  value_ = date;
  return text;
}

void CalendarValue::Typed(std::string_view text) {
  value_ = conversions_.IsDate(text) ? Variant(text) : Variant(Null{});
}

bool CalendarValue::CommitsOnExit(std::string_view text) const {
  if (!conversions_.IsDate(text)) return false;
  const bool committed = value_.Type() == VariantType::kDate;  // not just typed
  return !committed || Formatted(value_) != text;
}

}  // namespace levelwidgets
