#include <gtest/gtest.h>

#include <levelwidgets/host/script/values/dates.h>

namespace levelwidgets {
namespace {

TEST(ScriptDates, CountFromTheLastButOneDayOf1899) {
  EXPECT_EQ(DateOf({1899, 12, 30})->days, 0);
  EXPECT_EQ(DateOf({1900, 1, 1})->days, 2);
  EXPECT_EQ(DateOf({2024, 5, 15, 10, 30, 0})->days, 45427.4375);
}

TEST(ScriptDates, TimeCountsForwardOnNegativeDays) {
  EXPECT_EQ(DateOf({1899, 12, 29, 6})->days, -1.25);
  const CalendarTime time = CalendarTimeOf({-1.25});
  EXPECT_EQ(time.day, 29);
  EXPECT_EQ(time.hour, 6);
  EXPECT_TRUE(IsBefore({-1.25}, {-1.5}));
  EXPECT_FALSE(IsBefore({-1.5}, {-1.25}));
  EXPECT_TRUE(IsBefore({-1.5}, {0.25}));
}

TEST(ScriptDates, DaysAndTimesThatThereAreNotAreRefused) {
  EXPECT_FALSE(DateOf({2023, 2, 29}));
  EXPECT_TRUE(DateOf({2024, 2, 29}));
  EXPECT_FALSE(DateOf({2024, 13, 1}));
  EXPECT_FALSE(DateOf({2024, 0, 1}));
  EXPECT_FALSE(DateOf({99, 1, 1}));
  EXPECT_FALSE(DateOf({10000, 1, 1}));
  EXPECT_FALSE(DateOf({2024, 1, 1, 24}));
  EXPECT_FALSE(DateOf({2024, 1, 1, 0, 60}));
  EXPECT_FALSE(DateOf({2024, 1, 1, 0, 0, -1}));
}

TEST(ScriptDates, LastHalfSecondOfADayIsTheNext) {
  const CalendarTime time = CalendarTimeOf({45427 + 86399.7 / 86400});
  EXPECT_EQ(time.day, 16);
  EXPECT_EQ(time.hour, 0);
}

TEST(ScriptDates, IsoTextsAreReadWhole) {
  EXPECT_EQ(DateOfIsoText("2024-05-15T10:30:00")->days, 45427.4375);
  EXPECT_EQ(DateOfIsoText("2024-05-15 10:30:00")->days, 45427.4375);
  EXPECT_EQ(DateOfIsoText("2024-05-15")->days, 45427);
  EXPECT_FALSE(DateOfIsoText("2024-05-15T10:30"));
  EXPECT_FALSE(DateOfIsoText("2024-05-15x10:30:00"));
  EXPECT_FALSE(DateOfIsoText("2024-05-15T10:30:00Z"));
  EXPECT_FALSE(DateOfIsoText("15.5.2024"));
  EXPECT_FALSE(DateOfIsoText(""));
}

}  // namespace
}  // namespace levelwidgets
