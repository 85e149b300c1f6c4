#include <levelwidgets/platform/win32/win32_conversions.h>

#include <windows.h>

#include <oleauto.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include <levelwidgets/platform/text/calendar.h>
#include <levelwidgets/platform/text/letter_case.h>
#include <levelwidgets/platform/win32/win32_text.h>

namespace levelwidgets::win32 {
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

ConversionStatus StatusOf(HRESULT result) {
  if (SUCCEEDED(result)) return ConversionStatus::kOk;
  if (result == DISP_E_OVERFLOW) return kOutOfRange;
  return result == DISP_E_TYPEMISMATCH ? kMismatch : kInvalid;
}

// A text that the automation layer hands out.
class OwnedText {
 public:
  OwnedText() = default;
  OwnedText(const OwnedText&) = delete;
  OwnedText& operator=(const OwnedText&) = delete;
  ~OwnedText() { ::SysFreeString(text_); }

  BSTR* Address() { return &text_; }
  std::string Utf8() const { return FromWide({text_ ? text_ : L"", ::SysStringLen(text_)}); }
  Converted<std::string> As(HRESULT result) const {
    return SUCCEEDED(result) ? Converted<std::string>(Utf8()) : StatusOf(result);
  }

 private:
  BSTR text_ = nullptr;
};

class OwnedVariant {
 public:
  explicit OwnedVariant(const ConversionValue& value) {
    ::VariantInit(&variant_);
    std::visit(Overload{[](EmptyValue) {}, [this](NullValue) { V_VT(&variant_) = VT_NULL; },
                        [this](bool truth) {
                          Set(VT_BOOL, V_BOOL(&variant_), truth ? VARIANT_TRUE : VARIANT_FALSE);
                        },
                        [this](std::int16_t number) { Set(VT_I2, V_I2(&variant_), number); },
                        [this](std::int32_t number) { Set(VT_I4, V_I4(&variant_), number); },
                        [this](float number) { Set(VT_R4, V_R4(&variant_), number); },
                        [this](double number) { Set(VT_R8, V_R8(&variant_), number); },
                        [this](Date date) { Set(VT_DATE, V_DATE(&variant_), date.days); },
                        [this](std::string_view text) {
                          const std::wstring wide = ToWide(text);
                          Set(VT_BSTR, V_BSTR(&variant_),
                              ::SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size())));
                        }},
               value);
  }
  OwnedVariant(const OwnedVariant&) = delete;
  OwnedVariant& operator=(const OwnedVariant&) = delete;
  ~OwnedVariant() { ::VariantClear(&variant_); }

  VARIANT* Address() { return &variant_; }

 private:
  template <typename Member, typename T>
  void Set(VARTYPE type, Member& member, T value) {
    V_VT(&variant_) = type;
    member = static_cast<Member>(value);
  }

  VARIANT variant_;
};

Converted<double> DoubleOf(std::string_view text, LCID locale_id) {
  std::wstring wide = ToWide(text);
  double number = 0;
  const HRESULT result = ::VarR8FromStr(wide.data(), locale_id, 0, &number);
  return SUCCEEDED(result) ? Converted<double>(number) : StatusOf(result);
}

bool IsNamedNumberFormat(std::string_view format) {
  constexpr std::string_view kNames[] = {"General Number", "Currency", "Fixed",      "Standard", "Percent",
                                         "Scientific",     "Yes/No",   "True/False", "On/Off"};
  return std::any_of(std::begin(kNames), std::end(kNames),
                     [format](std::string_view name) { return text::EqualIgnoringCase(format, name); });
}

// What is handed to the system: not every version of it takes a date for its number in these formats.
ConversionValue ValueToFormat(const ConversionValue& value, std::string_view format) {
  const Date* const date = std::get_if<Date>(&value);
  return date && IsNamedNumberFormat(format) ? ConversionValue(date->days) : value;
}

// The locale's first day, 1 for Sunday.
int FirstDayOf(LCID locale_id) {
  DWORD from_monday = 0;
  ::GetLocaleInfoW(locale_id, LOCALE_IFIRSTDAYOFWEEK | LOCALE_RETURN_NUMBER,
                   reinterpret_cast<LPWSTR>(&from_monday), sizeof from_monday / sizeof(WCHAR));
  return static_cast<int>((from_monday + 1) % 7) + 1;
}

}  // namespace

std::string Win32Conversions::LocaleName() {
  WCHAR name[LOCALE_NAME_MAX_LENGTH] = {};
  ::LCIDToLocaleName(locale_id_, name, LOCALE_NAME_MAX_LENGTH, 0);
  return FromWide(name);
}

Converted<double> Win32Conversions::ToDouble(const ConversionValue& value) {
  if (const auto* text = std::get_if<std::string_view>(&value)) return DoubleOf(*text, locale_id_);
  OwnedVariant variant(value);
  const HRESULT result = ::VariantChangeTypeEx(variant.Address(), variant.Address(), locale_id_, 0, VT_R8);
  return SUCCEEDED(result) ? Converted<double>(V_R8(variant.Address())) : StatusOf(result);
}

Converted<Date> Win32Conversions::TextToDate(std::string_view text) {
  std::wstring wide = ToWide(text);
  Date date;
  const HRESULT result = ::VarDateFromStr(wide.data(), locale_id_, 0, &date.days);
  return SUCCEEDED(result) ? Converted<Date>(date) : StatusOf(result);
}

Converted<Date> Win32Conversions::ToDate(const ConversionValue& value) {
  if (const auto* text = std::get_if<std::string_view>(&value)) {
    if (const Converted<Date> date = TextToDate(*text)) return date;
  }
  const Converted<double> days = ToDouble(value);
  if (!days) return days.status;
  return SplitDate({days.value}) ? Converted<Date>(Date{days.value}) : kOutOfRange;
}

Converted<std::string> Win32Conversions::ToText(const ConversionValue& value) {
  OwnedVariant variant(value);
  VARIANT* const address = variant.Address();
  const HRESULT result = ::VariantChangeTypeEx(address, address, locale_id_, VARIANT_ALPHABOOL, VT_BSTR);
  if (FAILED(result)) return StatusOf(result);
  return FromWide({V_BSTR(address), ::SysStringLen(V_BSTR(address))});
}

Converted<bool> Win32Conversions::ToBoolean(const ConversionValue& value) {
  OwnedVariant variant(value);
  VARIANT* const address = variant.Address();
  const HRESULT result = ::VariantChangeTypeEx(address, address, locale_id_, 0, VT_BOOL);
  return SUCCEEDED(result) ? Converted<bool>(V_BOOL(address) != VARIANT_FALSE) : StatusOf(result);
}

bool Win32Conversions::IsNumeric(const ConversionValue& value) {
  return !std::holds_alternative<Date>(value) && ToDouble(value);
}

bool Win32Conversions::IsDate(const ConversionValue& value) {
  if (const auto* text = std::get_if<std::string_view>(&value)) return static_cast<bool>(TextToDate(*text));
  return std::holds_alternative<Date>(value);
}

Converted<std::string> Win32Conversions::Format(const ConversionValue& value, std::string_view format,
                                                int first_day, int first_week) {
  std::wstring wide = ToWide(format);
  // More than the tokens of any format take, but their lengths are single bytes.
  std::vector<BYTE> tokens(wide.size() * 8 + 256);
  const HRESULT tokenized =
      ::VarTokenizeFormatString(wide.data(), tokens.data(), static_cast<int>(tokens.size()), first_day,
                                first_week, locale_id_, nullptr);
  if (FAILED(tokenized)) return kInvalid;
  OwnedVariant variant(ValueToFormat(value, format));
  OwnedText text;
  return text.As(
      ::VarFormatFromTokens(variant.Address(), wide.data(), tokens.data(), 0, text.Address(), locale_id_));
}

// The automation layer adds no dates: its clients always did so themselves.
Converted<Date> Win32Conversions::DateAdd(std::string_view interval, double number, Date date) {
  return calendar::AddToDate(interval, number, date);
}

Converted<DateParts> Win32Conversions::SplitDate(Date date) {
  UDATE parts = {};
  if (FAILED(::VarUdateFromDate(date.days, 0, &parts))) return kInvalid;
  const SYSTEMTIME& time = parts.st;
  return DateParts{time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

Converted<int> Win32Conversions::Weekday(Date date, int first_day) {
  const Converted<DateParts> parts = SplitDate(date);
  if (!parts || first_day < kSystemDay || first_day > kSaturday) return kInvalid;
  const int number = calendar::DayNumber(parts.value.year, parts.value.month, parts.value.day);
  return calendar::WeekdayOf(number, first_day == kSystemDay ? FirstDayOf(locale_id_) : first_day);
}

Converted<std::string> Win32Conversions::MonthName(int month, bool abbreviated) {
  OwnedText name;
  return name.As(::VarMonthName(month, abbreviated, 0, name.Address()));
}

Converted<std::string> Win32Conversions::WeekdayName(int weekday, bool abbreviated, int first_day) {
  OwnedText name;
  return name.As(::VarWeekdayName(weekday, abbreviated, first_day, 0, name.Address()));
}

std::string Win32Conversions::UpperCase(std::string_view text) {
  const std::wstring wide = ToWide(text);
  if (wide.empty()) return {};
  std::wstring upper(wide.size(), L'\0');
  const int length = static_cast<int>(wide.size());
  ::LCMapStringW(locale_id_, LCMAP_UPPERCASE, wide.data(), length, upper.data(), length);
  for (std::size_t i = 0; i < upper.size(); ++i) {
    const std::string capital = FromWide({&upper[i], 1});
    if (upper[i] != wide[i] && win32::FromCodePage(win32::ToCodePage(capital)) != capital) upper[i] = wide[i];
  }
  return FromWide(upper);
}

std::string Win32Conversions::ToCodePage(std::string_view text) { return win32::ToCodePage(text); }

std::string Win32Conversions::FromCodePage(std::string_view bytes) { return win32::FromCodePage(bytes); }

bool Win32Conversions::IsDBCSLeadByte(char byte) {
  return ::IsDBCSLeadByte(static_cast<BYTE>(byte)) != FALSE;
}

}  // namespace levelwidgets::win32
