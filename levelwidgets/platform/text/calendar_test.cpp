#include <levelwidgets/platform/text/calendar.h>

#include <gtest/gtest.h>

namespace levelwidgets::calendar {
namespace {

TEST(CalendarTest, TheTimeCountsForwardInFrontOfDayZeroToo) {
  EXPECT_EQ(DateOf(2, 0.25), Date{2.25});
  EXPECT_EQ(DateOf(-2, 0.25), Date{-2.25});
  EXPECT_EQ(DayOf(Date{-2.25}), Date{-2});
  EXPECT_EQ(DayOf(Date{2.75}), Date{2});
  EXPECT_EQ(*PartsOf(Date{-2.25}), (DateParts{1899, 12, 28, 6, 0, 0}));
}

TEST(CalendarTest, DaysCountFromTheLastButOneOf1899) {
  EXPECT_EQ(DateOf(DateParts{1899, 12, 30})->days, 0);
  EXPECT_EQ(DateOf(DateParts{1900, 1, 1})->days, 2);
  EXPECT_EQ(DateOf(DateParts{2024, 5, 15, 10, 30, 0})->days, 45427.4375);
}

TEST(CalendarTest, DaysAndTimesThatDoNotExistAreRefused) {
  EXPECT_TRUE(DateOf(DateParts{2024, 2, 29}));
  for (const DateParts& parts : {DateParts{2023, 2, 29},
                                 {2024, 13, 1},
                                 {2024, 0, 1},
                                 {99, 1, 1},
                                 {10000, 1, 1},
                                 {2024, 1, 1, 24},
                                 {2024, 1, 1, 0, 60},
                                 {2024, 1, 1, 0, 0, -1}}) {
    EXPECT_FALSE(DateOf(parts)) << parts.year << " " << parts.month << " " << parts.day << " " << parts.hour;
  }
}

TEST(CalendarTest, PartsAreToTheNearestSecond) {
  EXPECT_EQ(*PartsOf(Date{45427 + 86399.7 / 86400}), (DateParts{2024, 5, 16, 0, 0, 0}));
  EXPECT_EQ(PartsOf(Date{3e6}), std::nullopt);
}

TEST(CalendarTest, AnEarlierMomentIsBeforeALaterOne) {
  EXPECT_TRUE(IsBefore({-2.25}, {-2.75}));  // 6:00 and 18:00 of one day
  EXPECT_FALSE(IsBefore({-2.75}, {-2.25}));
  EXPECT_TRUE(IsBefore({-2.75}, {-1.25}));
  EXPECT_TRUE(IsBefore({2.25}, {2.75}));
  EXPECT_FALSE(IsBefore({2.25}, {2.25}));
}

}  // namespace
}  // namespace levelwidgets::calendar
