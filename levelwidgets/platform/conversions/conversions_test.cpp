#include <levelwidgets/platform/conversions/conversions.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include <levelwidgets/platform/text/calendar.h>
#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets::conversions {
namespace {

constexpr Date kToday{45427};  // 15 May 2024

Conversions Of(std::string_view locale) {
  return Conversions(LocaleOrDefault(locale), [] { return kToday; });
}

Date On(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  return calendar::DateOf(DateParts{year, month, day, hour, minute, second}).value();
}

class ConversionsTest : public ::testing::Test {
 protected:
  std::string Format(const ConversionValue& value, std::string_view format) {
    return conversions.Format(value, format).value;
  }
  Date Added(std::string_view interval, double number, Date date) {
    const Converted<Date> sum = conversions.DateAdd(interval, number, date);
    EXPECT_TRUE(sum) << interval << " " << number;
    return sum.value;
  }

  Conversions conversions = Of("en-US");
};

// --- Formats of halves of the day and of texts -----------------------------------------------

TEST_F(ConversionsTest, AmPmIsWrittenInLatinLettersOnEveryLocaleAndAMPMInTheLocalesWords) {
  const Date morning = On(2024, 5, 15, 10, 30);
  const Date evening = On(2024, 5, 15, 22, 30);
  const std::tuple<std::string_view, std::string_view, std::string_view> rows[] = {
      {"en-US", "AM", "PM"}, {"en-GB", "AM", "PM"}, {"de-DE", "AM", "PM"},
      {"fr-FR", "AM", "PM"}, {"sv-SE", "fm", "em"}, {"ja-JP", "午前", "午後"}};
  for (const auto& [name, am, pm] : rows) {
    const auto of_locale = [&, name = name](Date date, std::string_view format) {
      return Of(name).Format(date, format).value;
    };
    EXPECT_EQ(of_locale(morning, "h AM/PM"), "10 AM") << name;
    EXPECT_EQ(of_locale(evening, "h AM/PM"), "10 PM") << name;
    EXPECT_EQ(of_locale(evening, "h am/pm"), "10 pm") << name;
    EXPECT_EQ(of_locale(morning, "h A/P"), "10 A") << name;
    EXPECT_EQ(of_locale(evening, "h a/p"), "10 p") << name;
    EXPECT_EQ(of_locale(morning, "AMPM"), am) << name;
    EXPECT_EQ(of_locale(evening, "AMPM"), pm) << name;
  }
}

TEST_F(ConversionsTest, AnExclamationMarkFillsFromTheLeftWhereverItStands) {
  EXPECT_EQ(Format(std::string_view("ab"), "@@@@"), "  ab");
  for (const std::string_view format : {"!@@@@", "@@@@!", "@@!@@"}) {
    EXPECT_EQ(Format(std::string_view("ab"), format), "ab  ") << format;
  }
}

// --- Types -----------------------------------------------------------------------------------

TEST_F(ConversionsTest, ValuesOtherThanTextConvertByTheirType) {
  EXPECT_EQ(conversions.ToDouble(EmptyValue{}).value, 0);
  EXPECT_EQ(conversions.ToDouble(true).value, -1);
  EXPECT_EQ(conversions.ToDouble(std::int16_t{-7}).value, -7);
  EXPECT_EQ(conversions.ToDouble(Date{2.5}).value, 2.5);
  EXPECT_EQ(conversions.ToDouble(NullValue{}).status, ConversionStatus::kMismatch);
  EXPECT_EQ(conversions.ToDate(2.5).value, Date{2.5});
  EXPECT_EQ(conversions.ToDate(3e6).status, ConversionStatus::kOutOfRange);
  EXPECT_EQ(conversions.ToDate(std::numeric_limits<double>::quiet_NaN()).status,
            ConversionStatus::kOutOfRange);
  EXPECT_EQ(conversions.ToText(EmptyValue{}).value, "");
  EXPECT_EQ(conversions.ToText(false).value, "False");
  EXPECT_EQ(conversions.ToText(std::int32_t{-2147483647 - 1}).value, "-2147483648");
  EXPECT_EQ(conversions.ToText(NullValue{}).status, ConversionStatus::kMismatch);
}

TEST_F(ConversionsTest, ATextThatIsNoDateIsANumberOfDays) {
  EXPECT_EQ(conversions.ToDate(std::string_view("39697.11")).value, Date{39697.11});
  EXPECT_EQ(conversions.ToDate(std::string_view("12.5")).value, On(1899, 12, 30, 12, 5)) << "a time";
  EXPECT_EQ(conversions.ToDate(std::string_view("4000000")).status, ConversionStatus::kOutOfRange);
  EXPECT_EQ(conversions.ToDate(std::string_view("abc")).status, ConversionStatus::kMismatch);
}

TEST_F(ConversionsTest, EverythingThatConvertsToANumberIsNumericExceptDates) {
  EXPECT_TRUE(conversions.IsNumeric(EmptyValue{}));
  EXPECT_TRUE(conversions.IsNumeric(true));
  EXPECT_TRUE(conversions.IsNumeric(1.5F));
  EXPECT_TRUE(conversions.IsNumeric(std::string_view("($1,234.50)")));
  EXPECT_TRUE(conversions.IsNumeric(std::string_view("\t\n 5\v")));
  EXPECT_FALSE(conversions.IsNumeric(NullValue{}));
  EXPECT_FALSE(conversions.IsNumeric(kToday));
  EXPECT_FALSE(conversions.IsNumeric(std::string_view("")));
  EXPECT_FALSE(conversions.IsNumeric(std::string_view("1/2/2000")));
  EXPECT_FALSE(conversions.IsNumeric(std::string_view("1\0", 2)));
}

TEST_F(ConversionsTest, DatesAndTextsOfDatesAreDates) {
  EXPECT_TRUE(conversions.IsDate(kToday));
  EXPECT_TRUE(conversions.IsDate(std::string_view("5/31/2024")));
  EXPECT_FALSE(conversions.IsDate(5.0));
  EXPECT_FALSE(conversions.IsDate(std::string_view("12.25.2010")));
  EXPECT_FALSE(conversions.IsDate(EmptyValue{}));
}

// --- Format ----------------------------------------------------------------------------------

TEST_F(ConversionsTest, FormatRefusesUnknownDaysWeeksAndFormats) {
  for (int first_day : {-1, 8}) {
    EXPECT_EQ(conversions.Format(1.0, "0", first_day).status, ConversionStatus::kInvalid);
  }
  for (int first_week : {-1, 4}) {
    EXPECT_EQ(conversions.Format(1.0, "0", kSunday, first_week).status, ConversionStatus::kInvalid);
  }
  EXPECT_EQ(conversions.Format(1.0, "0;0;0;0;0").status, ConversionStatus::kInvalid);
  EXPECT_TRUE(conversions.Format(1.0, "0;0;0;\";;;\""));
}

TEST_F(ConversionsTest, NumbersThatAreNotFiniteKeepTheirGeneralForm) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(Format(infinity, "0.00"), "1.#INF");
  EXPECT_EQ(Format(-infinity, ""), "-1.#INF");
  EXPECT_EQ(Format(std::numeric_limits<float>::quiet_NaN(), "yyyy"), "1.#QNAN");
}

TEST_F(ConversionsTest, NumbersMayBeOfAnyLength) {
  EXPECT_EQ(Format(1e300, "0"), "1" + std::string(300, '0'));
  EXPECT_EQ(Format(1e300, "#,##0").size(), 401u);
  EXPECT_EQ(Format(1.0, "0." + std::string(400, '0')), "1." + std::string(400, '0'));
  EXPECT_EQ(Format(1.0, '"' + std::string(1000, 'x') + "\"0"), std::string(1000, 'x') + "1");
}

TEST_F(ConversionsTest, AnExponentHasAsManyDigitsAsItsFormatAsksFor) {
  for (const std::size_t digits : {1u, 2u, 9u, 10u, 11u, 16u, 17u, 1000u, 100'000u}) {
    const std::string exponent = std::string(digits - 1, '0') + "1";
    EXPECT_EQ(conversions.Format(12.5, "0E+" + std::string(digits, '0')).value, "1E+" + exponent) << digits;
    EXPECT_EQ(conversions.Format(0.125, "0.0e-" + std::string(digits, '0')).value, "1.3e-" + exponent)
        << digits;
  }
}

TEST_F(ConversionsTest, ManyFormatsInTurnDoNotMixUp) {
  for (int round = 0; round < 2; ++round) {
    for (int zeros = 1; zeros < 100; ++zeros) {
      const std::string format(static_cast<std::size_t>(zeros), '0');
      EXPECT_EQ(Format(7.0, format), std::string(static_cast<std::size_t>(zeros - 1), '0') + "7");
    }
  }
}

TEST_F(ConversionsTest, TheSystemsFirstDayAndWeekAreThoseOfTheLocale) {
  Conversions german = Of("de-DE");
  const Date first = On(2023, 1, 1);  // a Sunday
  EXPECT_EQ(conversions.Format(first, "w ww", kSystemDay, kSystemWeek).value, "1 1");
  EXPECT_EQ(german.Format(first, "w ww", kSystemDay, kSystemWeek).value, "7 52");
  EXPECT_EQ(german.Weekday(first, kSystemDay).value, 7);
  EXPECT_EQ(german.WeekdayName(1, false, kSystemDay).value, "Montag");
}

// --- The calendar ----------------------------------------------------------------------------

TEST_F(ConversionsTest, DateAddKnowsEachInterval) {
  const Date date = On(2024, 5, 15, 10, 30);
  EXPECT_EQ(Added("yyyy", 1, date), On(2025, 5, 15, 10, 30));
  EXPECT_EQ(Added("q", 1, date), On(2024, 8, 15, 10, 30));
  EXPECT_EQ(Added("m", -5, date), On(2023, 12, 15, 10, 30));
  for (std::string_view day : {"d", "y", "w", "D"}) EXPECT_EQ(Added(day, 17, date), On(2024, 6, 1, 10, 30));
  EXPECT_EQ(Added("ww", -2, date), On(2024, 5, 1, 10, 30));
  EXPECT_EQ(Added("h", 14, date), On(2024, 5, 16, 0, 30));
  EXPECT_EQ(Added("n", -631, date), On(2024, 5, 14, 23, 59));
  EXPECT_EQ(Added("s", 86401, date), On(2024, 5, 16, 10, 30, 1));
}

TEST_F(ConversionsTest, DateAddEndsInAShorterMonthOnItsLastDay) {
  EXPECT_EQ(Added("m", 1, On(2024, 1, 31)), On(2024, 2, 29));
  EXPECT_EQ(Added("m", 1, On(2023, 1, 31)), On(2023, 2, 28));
  EXPECT_EQ(Added("m", -1, On(2024, 3, 31, 8)), On(2024, 2, 29, 8));
  EXPECT_EQ(Added("q", 1, On(2024, 8, 31)), On(2024, 11, 30));
  EXPECT_EQ(Added("yyyy", 1, On(2024, 2, 29)), On(2025, 2, 28));
  EXPECT_EQ(Added("yyyy", -124, On(2024, 2, 29)), On(1900, 2, 28)) << "1900 was no leap year";
}

TEST_F(ConversionsTest, DateAddKeepsTheTimeAcrossDayZero) {
  EXPECT_EQ(Added("d", -2, On(1899, 12, 31, 6)), On(1899, 12, 29, 6));
  EXPECT_EQ(Added("d", 2, On(1899, 12, 29, 18)), On(1899, 12, 31, 18));
  EXPECT_EQ(Added("h", -7, On(1899, 12, 30, 6)), On(1899, 12, 29, 23));
  EXPECT_EQ(On(1899, 12, 29, 23).days, -1 - 23.0 / 24);
}

TEST_F(ConversionsTest, DateAddRoundsItsNumberTiesToEven) {
  EXPECT_EQ(Added("d", 1.5, kToday), Date{kToday.days + 2});
  EXPECT_EQ(Added("d", 2.5, kToday), Date{kToday.days + 2});
  EXPECT_EQ(Added("d", -0.4, kToday), kToday);
}

TEST_F(ConversionsTest, DateAddRefusesOtherIntervalsAndYears) {
  for (std::string_view interval : {"", "x", "yy", "mm", "dd", "months"}) {
    EXPECT_EQ(conversions.DateAdd(interval, 1, kToday).status, ConversionStatus::kInvalid) << interval;
  }
  for (std::string_view interval : {"yyyy", "q", "m", "d", "ww", "h", "n", "s"}) {
    for (double number : {1e12, -1e12, 1e300, std::numeric_limits<double>::quiet_NaN()}) {
      EXPECT_EQ(conversions.DateAdd(interval, number, kToday).status, ConversionStatus::kInvalid);
    }
  }
  EXPECT_EQ(conversions.DateAdd("d", 1, On(9999, 12, 31)).status, ConversionStatus::kInvalid);
  EXPECT_EQ(conversions.DateAdd("m", -1, On(100, 1, 31)).status, ConversionStatus::kInvalid);
  EXPECT_EQ(conversions.DateAdd("d", 0, Date{1e9}).status, ConversionStatus::kInvalid);
}

TEST_F(ConversionsTest, PartsOfADateAreToTheNearestSecond) {
  const Date late{45427 + 86399.6 / 86400};
  EXPECT_EQ(conversions.SplitDate(late).value, (DateParts{2024, 5, 16, 0, 0, 0}));
  EXPECT_EQ(conversions.SplitDate({-1.75}).value, (DateParts{1899, 12, 29, 18, 0, 0}));
  EXPECT_EQ(conversions.Year(late).value, 2024);
  EXPECT_EQ(conversions.Day(On(2024, 2, 29, 1, 2, 3)).value, 29);
  EXPECT_EQ(conversions.Second(On(2024, 2, 29, 1, 2, 3)).value, 3);
  for (double outside : {-657435.0, 2958466.0, 2958465.9999999}) {
    EXPECT_EQ(conversions.Month({outside}).status, ConversionStatus::kInvalid) << outside;
  }
}

TEST_F(ConversionsTest, WeekdaysCountFromAnyDay) {
  EXPECT_EQ(conversions.Weekday(On(2024, 5, 15)).value, 4) << "a Wednesday";
  EXPECT_EQ(conversions.Weekday(On(2024, 5, 15), kMonday).value, 3);
  EXPECT_EQ(conversions.Weekday(On(2024, 5, 15), 4).value, 1);
  EXPECT_EQ(conversions.Weekday(On(1899, 12, 30)).value, kSaturday);
  EXPECT_EQ(conversions.Weekday(On(1899, 12, 29, 23)).value, 6);
  EXPECT_EQ(conversions.Weekday(On(100, 1, 1)).value, 6) << "a Friday";
  EXPECT_EQ(conversions.Weekday(kToday, 8).status, ConversionStatus::kInvalid);
}

// --- Names and letters -----------------------------------------------------------------------

TEST_F(ConversionsTest, MonthsAndDaysHaveTheLocalesNames) {
  EXPECT_EQ(conversions.MonthName(5).value, "May");
  EXPECT_EQ(Of("fr-FR").MonthName(2).value, "février");
  EXPECT_EQ(Of("fr-FR").MonthName(7, true).value, "juil.");
  EXPECT_EQ(Of("ja-JP").MonthName(12).value, "12月");
  EXPECT_EQ(Of("sv-SE").WeekdayName(1, true).value, "sön");
  EXPECT_EQ(Of("sv-SE").WeekdayName(7, false, kMonday).value, "söndag");
  for (int month : {0, 13, -1}) {
    EXPECT_EQ(conversions.MonthName(month).status, ConversionStatus::kInvalid);
  }
  EXPECT_EQ(conversions.WeekdayName(0).status, ConversionStatus::kInvalid);
  EXPECT_EQ(conversions.WeekdayName(8).status, ConversionStatus::kInvalid);
}

TEST_F(ConversionsTest, EachBuiltInLocaleIsComplete) {
  for (std::string_view name : {"en-US", "en-GB", "de-DE", "fr-FR", "sv-SE", "ja-JP"}) {
    const Locale* locale = FindLocale(name);
    ASSERT_NE(locale, nullptr) << name;
    EXPECT_EQ(locale->name, name);
    for (const auto& month : locale->months) EXPECT_FALSE(month.empty()) << name;
    for (const auto& month : locale->short_months) EXPECT_FALSE(month.empty()) << name;
    for (const auto& day : locale->days) EXPECT_FALSE(day.empty()) << name;
    for (const auto& day : locale->short_days) EXPECT_FALSE(day.empty()) << name;
    EXPECT_NE(locale->decimal, locale->thousands);
    EXPECT_FALSE(locale->am.empty() || locale->pm.empty());
  }
  EXPECT_EQ(FindLocale("EN-gb"), FindLocale("en-GB"));
  EXPECT_EQ(FindLocale("xx-XX"), nullptr);
  EXPECT_EQ(LocaleOrDefault("xx-XX").name, "en-US");
}

// A code page of the characters below U+0100.
class Latin1 final : public CodePageCoder {
 public:
  bool IsLeadByte(char) const override { return false; }
  std::string ToCodePage(std::string_view text) const override {
    std::string bytes;
    while (!text.empty()) {
      const char32_t character = text::TakeCharacter(text);
      bytes += character < 0x100 ? static_cast<char>(character) : '?';
    }
    return bytes;
  }
  std::string FromCodePage(std::string_view bytes) const override {
    std::string text;
    for (const char byte : bytes) text::AppendCharacter(static_cast<unsigned char>(byte), text);
    return text;
  }
};

TEST_F(ConversionsTest, TextsGoThroughTheCodePageAndBack) {
  const Latin1 latin1;
  Conversions narrow(
      LocaleOrDefault("fr-FR"), [] { return kToday; }, &latin1);
  EXPECT_EQ(narrow.ToCodePage("\xC3\xA9\xC5\x93"), "\xE9?");
  EXPECT_EQ(narrow.FromCodePage("\xE9"), "\xC3\xA9");
  EXPECT_EQ(conversions.ToCodePage("\xC5\x93"), "\xC5\x93") << "UTF-8 where there is no other";
}

TEST_F(ConversionsTest, TextsOfBooleansCountInAnyCaseAndNumbersByWhetherTheyAreZero) {
  const auto boolean = [&](const ConversionValue& value) { return conversions.ToBoolean(value); };
  for (std::string_view text : {"True", "TRUE", "true", "#TRUE#", "1", "-0.5", "&H10"}) {
    EXPECT_EQ(boolean(text), Converted<bool>(true)) << text;
  }
  for (std::string_view text : {"False", "FALSE", "#false#", "0", "0.0"}) {
    EXPECT_EQ(boolean(text), Converted<bool>(false)) << text;
  }
  EXPECT_EQ(boolean(std::string_view("yes")).status, ConversionStatus::kMismatch);
  EXPECT_EQ(boolean(std::string_view("")).status, ConversionStatus::kMismatch);
  EXPECT_EQ(boolean(NullValue{}).status, ConversionStatus::kMismatch);
  EXPECT_EQ(boolean(2.5), Converted<bool>(true));
  EXPECT_EQ(boolean(EmptyValue{}), Converted<bool>(false));
}

TEST_F(ConversionsTest, ALetterWithoutACapitalInTheCodePageStays) {
  EXPECT_EQ(conversions.UpperCase("May 2024, août straße ÿ"), "MAY 2024, AOÛT STRAßE Ÿ");
  const Latin1 latin1;
  Conversions narrow(
      LocaleOrDefault("fr-FR"), [] { return kToday; }, &latin1);
  EXPECT_EQ(narrow.UpperCase("éÿœ"), "Éÿœ");
  EXPECT_EQ(conversions.UpperCase("\xE9 \xC3"), "\xE9 \xC3") << "ill-formed bytes stay";
}

// --- Properties ------------------------------------------------------------------------------

double RandomDouble(std::mt19937_64& random) {
  const double mantissa = std::uniform_real_distribution<double>(-10, 10)(random);
  return std::ldexp(mantissa, std::uniform_int_distribution<int>(-200, 200)(random));
}

TEST_F(ConversionsTest, ANumbersTextConvertsBackToItsFifteenDigits) {
  std::mt19937_64 random(1);
  for (std::string_view name : {"en-US", "de-DE", "fr-FR"}) {
    Conversions local = Of(name);
    for (int i = 0; i < 3000; ++i) {
      const double number = RandomDouble(random);
      const std::string text = local.ToText(number).value;
      const double back = local.ToDouble(std::string_view(text)).value;
      EXPECT_NEAR(back, number, std::fabs(number) * 0.6e-14) << text;
      EXPECT_EQ(local.ToText(back).value, text);
    }
  }
}

TEST_F(ConversionsTest, AGeneralDateConvertsBack) {
  std::mt19937_64 random(2);
  std::uniform_int_distribution<int> days(-657434, 2958465);
  std::uniform_int_distribution<int> seconds(0, calendar::kSecondsPerDay - 1);
  for (std::string_view name : {"en-US", "en-GB", "de-DE", "fr-FR", "sv-SE", "ja-JP"}) {
    Conversions local = Of(name);
    for (int i = 0; i < 2000; ++i) {
      const Date date = calendar::DateOf(calendar::Moment{days(random), i % 3 == 0 ? 0 : seconds(random)});
      const std::string text = local.ToText(date).value;
      // Years below 100 do not exist, those of two digits are never written.
      EXPECT_EQ(local.ToDate(std::string_view(text)).value, date) << text;
      EXPECT_TRUE(local.IsDate(std::string_view(text))) << text;
    }
  }
}

TEST_F(ConversionsTest, EverySecondOfADayComesBackFromItsDate) {
  for (int day : {-657434, -1, 0, 1, 45427, 2958465}) {
    for (int second = 0; second < calendar::kSecondsPerDay; second += 7) {
      const std::optional<calendar::Moment> moment =
          calendar::MomentOf(calendar::DateOf(calendar::Moment{day, second}));
      ASSERT_TRUE(moment);
      ASSERT_EQ(moment->day, day);
      ASSERT_EQ(moment->second, second);
    }
  }
}

TEST_F(ConversionsTest, TwoDecimalsAreTheNumbersOwn) {
  std::mt19937_64 random(3);
  std::uniform_int_distribution<int> cents(-99999999, 99999999);
  for (int i = 0; i < 5000; ++i) {
    const int amount = cents(random);
    char expected[32];
    std::snprintf(expected, sizeof expected, "%s%d.%02d", amount < 0 ? "-" : "", std::abs(amount) / 100,
                  std::abs(amount) % 100);
    EXPECT_EQ(Format(amount / 100.0, "0.00"), expected);
  }
}

}  // namespace
}  // namespace levelwidgets::conversions
