#pragma once

#include <cstdint>

#include <levelwidgets/platform/conversion.h>

namespace levelwidgets::win32 {

inline constexpr std::uint32_t kUserLocale = 0x0400;

// OLE automation's conversions.
class Win32Conversions final : public ConversionApi {
 public:
  // Names of months and days are those of the user's locale whatever the `locale_id`.
  explicit Win32Conversions(std::uint32_t locale_id = kUserLocale) : locale_id_(locale_id) {}

  std::string LocaleName() override;
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
  Converted<Date> TextToDate(std::string_view text);

  std::uint32_t locale_id_;
};

}  // namespace levelwidgets::win32
