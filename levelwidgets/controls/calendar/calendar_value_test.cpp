#include <levelwidgets/controls/calendar/calendar_value.h>

#include <gtest/gtest.h>

#include <levelwidgets/platform/conversions/conversions.h>
#include <levelwidgets/testing/error_of.h>

namespace levelwidgets {
namespace {

constexpr Date kMay31{45443};  // 31 May 2024

class CalendarValueTest : public ::testing::Test {
 protected:
  conversions::Conversions conversions_{conversions::LocaleOrDefault("en-US"), [] { return Date{45427}; }};
  CalendarValue value_{conversions_};
};

TEST_F(CalendarValueTest, StartsAsTheEmptyString) {
  EXPECT_EQ(value_.Value(), Variant(""));
  EXPECT_EQ(value_.DateFormat(), "");
  EXPECT_EQ(value_.SelectedDate(), std::nullopt);
}

TEST_F(CalendarValueTest, TakesNullTheEmptyStringAndDates) {
  const struct {
    Variant given;
    std::string format;
    Variant value;
    std::string text;
  } rows[] = {
      {Null{}, "", Null{}, ""},
      {"", "", "", ""},
      {Variant(), "", "", ""},  // empty equals the empty string
      {kMay31, "", kMay31, "5/31/2024"},
      {kMay31, "yyyy-mm-dd", kMay31, "2024-05-31"},
      {kMay31, "Long Date", kMay31, "Friday, May 31, 2024"},
      {Date{kMay31.days + 0.5}, "", Date{kMay31.days + 0.5}, "5/31/2024 12:00:00 PM"},
      {"5/31/2024", "yyyy-mm-dd", kMay31, "2024-05-31"},
      {"31 May 2024", "Short Date", kMay31, "5/31/2024"},
      {"May 31, 2024", "", kMay31, "May 31, 2024"},  // as given: a text has no other general form
      {Null{}, "yyyy", Null{}, ""},
      {"", "yyyy", "", ""},
  };
  for (const auto& row : rows) {
    value_.Assign(Date{1});
    value_.SetDateFormat(row.format);
    EXPECT_EQ(value_.Assign(row.given), row.text) << Describe(row.given);
    EXPECT_EQ(value_.Value(), row.value) << Describe(row.given);
  }
}

TEST_F(CalendarValueTest, RefusesAnythingElseWith13AndChangesNothing) {
  for (const Variant& before : {Variant(kMay31), Variant(Null{}), Variant("")}) {
    value_.Assign(before);
    for (const Variant& given : {Variant("abc"), Variant("5/32/2024"), Variant(" "), Variant(45443),
                                 Variant(2.5), Variant(true), Variant(FontRef()), Variant(ObjectRef())}) {
      EXPECT_EQ(ErrorOf([&] { value_.Assign(given); }), 13) << Describe(given);
      EXPECT_EQ(value_.Value(), before);
    }
  }
}

TEST_F(CalendarValueTest, WithAnInvalidFormatADateIsShownInTheGeneralForm) {
  value_.SetDateFormat("0;0;0;0;0");
  ASSERT_FALSE(conversions_.Format(kMay31, value_.DateFormat()));
  EXPECT_EQ(value_.Assign(kMay31), "5/31/2024");
  EXPECT_EQ(value_.Value(), Variant(kMay31));
  EXPECT_FALSE(value_.CommitsOnExit("5/31/2024"));
  EXPECT_TRUE(value_.CommitsOnExit("5/30/2024"));
}

TEST_F(CalendarValueTest, TypingHoldsTheTextOfADateAndNullOtherwise) {
  const std::pair<std::string, Variant> rows[] = {
      {"5/31/2024", "5/31/2024"},
      {"5/31/2024x", Null{}},
      {"May 31, 2024", "May 31, 2024"},
      {"", Null{}},
      {"5/", Null{}},
      {"abc", Null{}},
      {"12:30", "12:30"},
      {"5", Null{}},
      {"5/31", "5/31"},
  };
  for (const auto& [text, value] : rows) {
    value_.Assign(kMay31);
    value_.Typed(text);
    EXPECT_EQ(value_.Value(), value) << text;
  }
}

TEST_F(CalendarValueTest, TypedTextIsADateThatCanBeSelected) {
  value_.Typed("5/31/2024");
  EXPECT_EQ(value_.SelectedDate(), kMay31);
  value_.Typed("5/31/2024x");
  EXPECT_EQ(value_.SelectedDate(), std::nullopt);
  value_.Assign(kMay31);
  EXPECT_EQ(value_.SelectedDate(), kMay31);
}

TEST_F(CalendarValueTest, ValidationCommitsDatesOnly) {
  EXPECT_TRUE(value_.CommitsOnValidate("5/31/2024"));
  EXPECT_FALSE(value_.CommitsOnValidate("abc"));
  EXPECT_FALSE(value_.CommitsOnValidate(""));
}

TEST_F(CalendarValueTest, LeavingCommitsADateThatIsNotCommittedYet) {
  const struct {
    Variant value;
    bool typed;  // `value` came by typing it
    std::string format;
    std::string text;
    bool commits;
  } rows[] = {
      {kMay31, false, "", "5/31/2024", false},  // committed, and shown so
      {kMay31, false, "yyyy-mm-dd", "2024-05-31", false},
      {kMay31, false, "yyyy-mm-dd", "5/31/2024", true},  // the same day, shown otherwise
      {kMay31, false, "", "6/1/2024", true},
      {Null{}, false, "", "5/31/2024", true},
      {"", false, "", "5/31/2024", true},
      {"5/31/2024", true, "", "5/31/2024", true},  // typed text is not committed yet
      {"5/31/2024", true, "yyyy-mm-dd", "5/31/2024", true},
      {kMay31, false, "", "abc", false},  // text that is no date is left as it is
      {Null{}, false, "", "abc", false},
      {"", false, "", "", false},
  };
  for (const auto& row : rows) {
    value_.SetDateFormat(row.format);
    if (row.typed) {
      value_.Typed(ToText(row.value));
    } else {
      value_.Assign(row.value);
    }
    EXPECT_EQ(value_.CommitsOnExit(row.text), row.commits) << Describe(row.value) << " " << row.text;
  }
}

// A date typed, spoilt by one more character, and left.
TEST_F(CalendarValueTest, ASpoiltDateLeavesNullAndTheTextAsTyped) {
  value_.Typed("5/31/2024");
  value_.Typed("5/31/2024z");
  EXPECT_TRUE(value_.Value().IsNull());
  EXPECT_FALSE(value_.CommitsOnValidate("5/31/2024z"));
  EXPECT_FALSE(value_.CommitsOnExit("5/31/2024z"));
}

TEST_F(CalendarValueTest, ACommittedTextNeedsNoSecondCommit) {
  value_.SetDateFormat("dd.mm.yyyy");
  value_.Typed("5/31/2024");
  ASSERT_TRUE(value_.CommitsOnValidate("5/31/2024"));
  const std::string text = value_.Assign("5/31/2024");
  EXPECT_EQ(text, "31.05.2024");
  EXPECT_EQ(value_.Value(), Variant(kMay31));
}

}  // namespace
}  // namespace levelwidgets
