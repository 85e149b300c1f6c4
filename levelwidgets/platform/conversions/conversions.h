// The library's own conversions, for any locale on any system.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>

#include <levelwidgets/platform/conversion.h>
#include <levelwidgets/platform/conversions/decimal.h>
#include <levelwidgets/platform/conversions/format_parse.h>
#include <levelwidgets/platform/conversions/locale.h>
#include <levelwidgets/platform/conversions/text_builder.h>

namespace levelwidgets::conversions {

// The bytes of a code page and their texts; "?" for a character outside it. Outlives the conversions.
class CodePageCoder {
 public:
  virtual ~CodePageCoder() = default;
  virtual std::string ToCodePage(std::string_view text) const = 0;
  virtual std::string FromCodePage(std::string_view bytes) const = 0;
  virtual bool IsLeadByte(char byte) const = 0;
};

// Keeps the formats it has taken apart, so one thread at a time.
class Conversions final : public ConversionApi {
 public:
  // `now` gives the year of dates without one. Null for a system whose code page is UTF-8.
  Conversions(Locale locale, std::function<Date()> now, const CodePageCoder* code_page = nullptr);

  const Locale& GetLocale() const { return locale_; }

  std::string LocaleName() override { return locale_.name; }
  Converted<double> ToDouble(const ConversionValue& value) override;
  Converted<Date> ToDate(const ConversionValue& value) override;
  Converted<std::string> ToText(const ConversionValue& value) override;
  Converted<bool> ToBoolean(const ConversionValue& value) override;
  bool IsNumeric(const ConversionValue& value) override;
  bool IsDate(const ConversionValue& value) override;
  Converted<std::string> Format(const ConversionValue& value, std::string_view format,
                                int first_day = kSunday, int first_week = kWeekOfJanuary1) override;
  Converted<Date> DateAdd(std::string_view interval, double number, Date date) override;
  Converted<DateParts> SplitDate(Date date) override;
  Converted<int> Weekday(Date date, int first_day = kSunday) override;
  Converted<std::string> MonthName(int month, bool abbreviated = false) override;
  Converted<std::string> WeekdayName(int weekday, bool abbreviated = false, int first_day = kSunday) override;
  std::string UpperCase(std::string_view text) override;
  std::string ToCodePage(std::string_view text) override;
  std::string FromCodePage(std::string_view bytes) override;
  bool IsDBCSLeadByte(char byte) override;

 private:
  struct KnownFormat {
    std::string text;
    ParsedFormat parsed;
  };

  Converted<Date> TextToDate(std::string_view text);
  Converted<Decimal> ToDecimal(const ConversionValue& value);
  const ParsedFormat& Parsed(std::string_view format);
  // False when the format does not apply to the value.
  bool FormatAs(const ParsedFormat& format, const ConversionValue& value, int first_day, int first_week,
                TextBuilder& out);
  std::string GeneralText(const ConversionValue& value);
  bool IsInCodePage(char32_t character);

  Locale locale_;
  std::function<Date()> now_;
  const CodePageCoder* code_page_;
  std::array<KnownFormat, 32> known_formats_;
};

}  // namespace levelwidgets::conversions
