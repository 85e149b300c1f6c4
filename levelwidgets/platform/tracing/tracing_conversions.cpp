#include <levelwidgets/platform/tracing/parts.h>

namespace levelwidgets::tracing {
namespace {

class TracingConversions final : public ConversionApi {
 public:
  TracingConversions(ConversionApi& target, CallLog& log) : target_(target), log_(log) {}

  std::string LocaleName() override { return log_.Pass("LocaleName", target_, &ConversionApi::LocaleName); }
  Converted<double> ToDouble(const ConversionValue& value) override {
    return log_.Pass("ToDouble", target_, &ConversionApi::ToDouble, value);
  }
  Converted<Date> ToDate(const ConversionValue& value) override {
    return log_.Pass("ToDate", target_, &ConversionApi::ToDate, value);
  }
  Converted<std::string> ToText(const ConversionValue& value) override {
    return log_.Pass("ToText", target_, &ConversionApi::ToText, value);
  }
  Converted<bool> ToBoolean(const ConversionValue& value) override {
    return log_.Pass("ToBoolean", target_, &ConversionApi::ToBoolean, value);
  }
  bool IsNumeric(const ConversionValue& value) override {
    return log_.Pass("IsNumeric", target_, &ConversionApi::IsNumeric, value);
  }
  bool IsDate(const ConversionValue& value) override {
    return log_.Pass("IsDate", target_, &ConversionApi::IsDate, value);
  }
  Converted<std::string> Format(const ConversionValue& value, std::string_view format, int first_day,
                                int first_week) override {
    return log_.Pass("Format", target_, &ConversionApi::Format, value, format, first_day, first_week);
  }
  Converted<Date> DateAdd(std::string_view interval, double number, Date date) override {
    return log_.Pass("DateAdd", target_, &ConversionApi::DateAdd, interval, number, date);
  }
  Converted<DateParts> SplitDate(Date date) override {
    return log_.Pass("SplitDate", target_, &ConversionApi::SplitDate, date);
  }
  Converted<int> Weekday(Date date, int first_day) override {
    return log_.Pass("Weekday", target_, &ConversionApi::Weekday, date, first_day);
  }
  Converted<std::string> MonthName(int month, bool abbreviated) override {
    return log_.Pass("MonthName", target_, &ConversionApi::MonthName, month, abbreviated);
  }
  Converted<std::string> WeekdayName(int weekday, bool abbreviated, int first_day) override {
    return log_.Pass("WeekdayName", target_, &ConversionApi::WeekdayName, weekday, abbreviated, first_day);
  }
  std::string UpperCase(std::string_view text) override {
    return log_.Pass("UpperCase", target_, &ConversionApi::UpperCase, text);
  }
  std::string ToCodePage(std::string_view text) override {
    return log_.Pass("ToCodePage", target_, &ConversionApi::ToCodePage, text);
  }
  std::string FromCodePage(std::string_view bytes) override {
    return log_.Pass("FromCodePage", target_, &ConversionApi::FromCodePage, bytes);
  }
  bool IsDBCSLeadByte(char byte) override {
    return log_.Pass("IsDBCSLeadByte", target_, &ConversionApi::IsDBCSLeadByte, byte);
  }

 private:
  ConversionApi& target_;
  CallLog& log_;
};

}  // namespace

std::unique_ptr<ConversionApi> Trace(ConversionApi& target, CallLog& log) {
  return std::make_unique<TracingConversions>(target, log);
}

}  // namespace levelwidgets::tracing
