#include <levelwidgets/platform/win32/win32_conversions.h>

#include <gtest/gtest.h>

#include <windows.h>

#include <cmath>

#include <levelwidgets/platform/conversions/conversion_cases.h>
#include <levelwidgets/platform/conversions/conversions.h>
#include <levelwidgets/platform/text/calendar.h>
#include <levelwidgets/platform/win32/win32_text.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets::win32 {
namespace {

using conversions::ConversionCase;
using conversions::Conversions;
using conversions::Locale;

std::string InfoOf(LCID id, LCTYPE type) {
  WCHAR text[128] = {};
  ::GetLocaleInfoW(id, type | LOCALE_NOUSEROVERRIDE, text, 128);
  return FromWide(text);
}

int NumberOf(LCID id, LCTYPE type) { return std::atoi(InfoOf(id, type).c_str()); }

// The data that the system has of a locale, which differ in places from one version to the next.
Locale SystemLocale(LCID id, const std::string& name) {
  Locale locale;
  locale.name = name;
  locale.decimal = InfoOf(id, LOCALE_SDECIMAL);
  locale.thousands = InfoOf(id, LOCALE_STHOUSAND);
  locale.currency = InfoOf(id, LOCALE_SCURRENCY);
  locale.currency_decimal = InfoOf(id, LOCALE_SMONDECIMALSEP);
  locale.currency_thousands = InfoOf(id, LOCALE_SMONTHOUSANDSEP);
  locale.currency_digits = NumberOf(id, LOCALE_ICURRDIGITS);
  locale.positive_currency = NumberOf(id, LOCALE_ICURRENCY);
  locale.negative_currency = NumberOf(id, LOCALE_INEGCURR);
  locale.date_order = static_cast<conversions::DateOrder>(NumberOf(id, LOCALE_IDATE));
  locale.short_date = InfoOf(id, LOCALE_SSHORTDATE);
  locale.long_date = InfoOf(id, LOCALE_SLONGDATE);
  locale.time = InfoOf(id, LOCALE_STIMEFORMAT);
  locale.date_separator = InfoOf(id, LOCALE_SDATE);
  locale.time_separator = InfoOf(id, LOCALE_STIME);
  locale.am = InfoOf(id, LOCALE_S1159);
  locale.pm = InfoOf(id, LOCALE_S2359);
  for (LCTYPE month = 0; month < 12; ++month) {
    locale.months[month] = InfoOf(id, LOCALE_SMONTHNAME1 + month);
    locale.short_months[month] = InfoOf(id, LOCALE_SABBREVMONTHNAME1 + month);
  }
  for (LCTYPE day = 0; day < 7; ++day) {  // the system's first is Monday
    locale.days[(day + 1) % 7] = InfoOf(id, LOCALE_SDAYNAME1 + day);
    locale.short_days[(day + 1) % 7] = InfoOf(id, LOCALE_SABBREVDAYNAME1 + day);
  }
  return locale;
}

Date Today() {
  SYSTEMTIME now;
  ::GetLocalTime(&now);
  return *calendar::DateOf(DateParts{now.wYear, now.wMonth, now.wDay});
}

// A locale with both conversions.
struct Pair {
  explicit Pair(const std::string& name)
      : id(::LocaleNameToLCID(ToWide(name).c_str(), 0)), own(SystemLocale(id, name), &Today), system(id) {}

  LCID id;
  Conversions own;
  Win32Conversions system;
};

// The system adds up hours, minutes and seconds, with an error in the last digits.
bool IsSameDate(const std::string& a, const std::string& b) {
  return a[0] != 'e' && b[0] != 'e' && std::fabs(std::stod(a) - std::stod(b)) < 1e-9;
}

// Those that differ only by the system's own bugs are listed with their reasons in the table.
TEST(Win32ConversionsTest, TheLibrarysOwnConversionsAgreeWithTheSystems) {
  const auto table = conversions::ReadConversionCases(SourceDir());
  std::map<std::string, std::unique_ptr<Pair>> pairs;
  std::map<std::string, int> differing;
  int agreeing = 0;
  for (const ConversionCase& c : table.cases) {
    auto& pair = pairs[c.locale];
    if (!pair) pair = std::make_unique<Pair>(c.locale);
    const std::string own = ResultOf(c, pair->own);
    const std::string system = ResultOf(c, pair->system);
    if (own == system || (c.operation == "date" && IsSameDate(own, system))) {
      ++agreeing;
    } else {
      ++differing[c.remark];
      EXPECT_NE(c.remark, "") << c.Describe() << "\n  own    " << own << "\n  system " << system;
    }
  }
  int known = 0;
  for (const auto& [remark, count] : differing) {
    known += remark.empty() ? 0 : count;
    if (!remark.empty()) std::printf("%5d %s: %s\n", count, remark.c_str(), table.remarks.at(remark).c_str());
  }
  std::printf("%d pairs compared, %d agree, %d differ for the reasons above\n",
              static_cast<int>(table.cases.size()), agreeing, known);
}

TEST(Win32ConversionsTest, ErrorsAreNumbered) {
  Win32Conversions conversions;
  EXPECT_EQ(conversions.ToDouble(std::string_view("abc")).status, ConversionStatus::kMismatch);
  EXPECT_EQ(conversions.ToDouble(std::string_view("1e400")).status, ConversionStatus::kOutOfRange);
  EXPECT_EQ(conversions.ToDate(3e6).status, ConversionStatus::kOutOfRange);
  EXPECT_EQ(conversions.ToText(NullValue{}).status, ConversionStatus::kMismatch);
  EXPECT_EQ(conversions.Format(1.0, "0", 8).status, ConversionStatus::kInvalid);
  EXPECT_EQ(conversions.MonthName(13).status, ConversionStatus::kInvalid);
  EXPECT_EQ(conversions.Weekday({0}, 8).status, ConversionStatus::kInvalid);
  EXPECT_EQ(conversions.SplitDate({3e6}).status, ConversionStatus::kInvalid);
}

TEST(Win32ConversionsTest, TheCalendarIsTheSame) {
  Win32Conversions system(MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT));
  Conversions own(conversions::LocaleOrDefault("en-US"), &Today);
  for (double days : {-657434.0, -36522.75, -1.5, -0.25, 0.0, 0.999999, 1.0, 60.0, 45427.4375, 2958465.5}) {
    EXPECT_EQ(system.SplitDate({days}), own.SplitDate({days})) << days;
    EXPECT_EQ(system.Weekday({days}), own.Weekday({days})) << days;
    EXPECT_EQ(system.DateAdd("m", 1, {days}), own.DateAdd("m", 1, {days})) << days;
  }
  EXPECT_EQ(system.LocaleName(), "en-US");
}

TEST(Win32ConversionsTest, TextsOfBooleansCountInAnyCase) {
  Win32Conversions system(MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT));
  Conversions own(conversions::LocaleOrDefault("en-US"), &Today);
  for (std::string_view text :
       {"True", "TRUE", "true", "#TRUE#", "1", "-0.5", "False", "#FALSE#", "0", "yes", ""}) {
    EXPECT_EQ(system.ToBoolean(text), own.ToBoolean(text)) << text;
  }
  EXPECT_EQ(system.ToBoolean(2.5), own.ToBoolean(2.5));
  EXPECT_EQ(system.ToBoolean(NullValue{}), own.ToBoolean(NullValue{}));
}

TEST(Win32ConversionsTest, NamesAndCapitalsAreTheUsersLocales) {
  Win32Conversions conversions;
  EXPECT_EQ(conversions.MonthName(5).value, InfoOf(LOCALE_USER_DEFAULT, LOCALE_SMONTHNAME5));
  EXPECT_EQ(conversions.MonthName(9, true).value, InfoOf(LOCALE_USER_DEFAULT, LOCALE_SABBREVMONTHNAME9));
  EXPECT_EQ(conversions.WeekdayName(1).value, InfoOf(LOCALE_USER_DEFAULT, LOCALE_SDAYNAME7));
  EXPECT_EQ(conversions.UpperCase("May 2024"), "MAY 2024");
  EXPECT_EQ(conversions.UpperCase("ab\xC3\xA4"), "AB\xC3\x84");
  EXPECT_EQ(conversions.UpperCase(""), "");
}

}  // namespace
}  // namespace levelwidgets::win32
