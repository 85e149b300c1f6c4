// What a date edit control holds while it is typed in, picked and left.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <levelwidgets/frame/variant.h>
#include <levelwidgets/platform/conversion.h>

namespace levelwidgets {

// Null, the empty string, a date, or between keystrokes the typed text of a date; never other text.
class CalendarValue {
 public:
  // `conversions` outlives it.
  explicit CalendarValue(ConversionApi& conversions) : conversions_(conversions) {}

  const Variant& Value() const { return value_; }
  // The value as a date, when it is one or the text of one.
  std::optional<Date> SelectedDate() const;

  // Format in which a date is committed; the general form when it is empty or invalid.
  const std::string& DateFormat() const { return date_format_; }
  void SetDateFormat(std::string format) { date_format_ = std::move(format); }

  // Takes Null, what equals the empty string, or a date or the text of one, which becomes a date; returns the
  // text that the edit box takes. Raises 13 (type mismatch) for anything else, and changes nothing then.
  std::string Assign(const Variant& value);
  // The user has changed the edit box to `text`.
  void Typed(std::string_view text);

  // Whether the edit box's `text` is to be assigned when it is validated, and when the control is left.
  bool CommitsOnValidate(std::string_view text) const { return conversions_.IsDate(text); }
  bool CommitsOnExit(std::string_view text) const;

 private:
  std::string Formatted(const Variant& date) const;

  ConversionApi& conversions_;
  Variant value_ = "";
  std::string date_format_;
};

}  // namespace levelwidgets
