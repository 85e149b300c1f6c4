#include <levelwidgets/controls/grid/grid_text.h>

#include <gtest/gtest.h>

#include <levelwidgets/platform/conversions/conversions.h>

namespace levelwidgets {
namespace {

std::string Shown(std::string_view text, std::string_view format) {
  static conversions::Conversions english(conversions::LocaleOrDefault("en-US"), [] { return Date{45427}; });
  return ShownText(english, text, format);
}

TEST(GridText, WithoutAFormatItIsTheCellsText) {
  EXPECT_EQ(Shown("17.5", ""), "17.5");
  EXPECT_EQ(Shown("", ""), "");
  EXPECT_EQ(Shown("Tom & Anna", ""), "Tom & Anna");
}

TEST(GridText, NumbersAndDatesAreFormatted) {
  EXPECT_EQ(Shown("17.5", "0.00"), "17.50");
  EXPECT_EQ(Shown("1234567", "#,##0"), "1,234,567");
  EXPECT_EQ(Shown("5/31/2024", "yyyy-mm-dd"), "2024-05-31");
  EXPECT_EQ(Shown("0.25", "Percent"), "25.00%");
}

TEST(GridText, TheWeekBeginsOnSundayAndTheFirstOneIsThatOf1January) {
  EXPECT_EQ(Shown("5/31/2024", "w"), "6") << "a Friday";
  EXPECT_EQ(Shown("1/1/2023", "ww"), "1") << "a Sunday";
  EXPECT_EQ(Shown("1/7/2023", "ww"), "1");
  EXPECT_EQ(Shown("1/8/2023", "ww"), "2");
}

TEST(GridText, ATextThatTheFormatDoesNotApplyToIsShownAsItIs) {
  EXPECT_EQ(Shown("to be announced", "0.00"), "to be announced");
  EXPECT_EQ(Shown("", "0.00"), "");
}

TEST(GridText, ABadFormatShowsTheCellsTextAsItIs) {
  EXPECT_EQ(Shown("17.5", "0;0;0;0;0"), "17.5");
  EXPECT_EQ(Shown("text", "0;0;0;0;0"), "text");
}

TEST(GridText, StandsOnOneLineInTheMiddleAlignedAsAsked) {
  EXPECT_EQ(GridTextFlags(ksxLeft), 36u);
  EXPECT_EQ(GridTextFlags(ksxCenter), 37u);
  EXPECT_EQ(GridTextFlags(ksxRight), 38u);
  EXPECT_EQ(GridTextFlags(static_cast<ksxAlignmentConstants>(17)), 36u);
  EXPECT_EQ(GridTextFlags(static_cast<ksxAlignmentConstants>(-1)), 36u);
}

}  // namespace
}  // namespace levelwidgets
