#include <levelwidgets/controls/calendar/month_model.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include <levelwidgets/platform/conversions/conversions.h>
#include <levelwidgets/testing/error_of.h>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;

// Days counted by the standard library, apart from the conversions.
Date On(int year, unsigned month, unsigned day) {
  using namespace std::chrono;
  const sys_days date = std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day);
  constexpr sys_days kDay0 = std::chrono::year(1899) / December / std::chrono::day(30);
  return {static_cast<double>((date - kDay0).count())};
}

std::chrono::year_month_day DayOf(Date date) {
  using namespace std::chrono;
  constexpr sys_days kDay0 = std::chrono::year(1899) / December / std::chrono::day(30);
  return year_month_day(kDay0 + days(static_cast<int>(date.days)));
}

class MonthModelTest : public ::testing::Test {
 protected:
  explicit MonthModelTest(std::string_view locale = "en-US")
      : conversions_(conversions::LocaleOrDefault(locale), [this] { return now_; }) {}

  std::string Captions(int first, int count) const {
    std::string captions;
    for (int i = first; i < first + count; ++i) captions += (i == first ? "" : " ") + Cell(i).caption;
    return captions;
  }
  const DayCell& Cell(int index) const { return model_.Days()[static_cast<std::size_t>(index)]; }
  // The cells with that background.
  std::vector<int> CellsWith(DayBack back) const {
    std::vector<int> cells;
    for (int i = 0; i < kDayCells; ++i) {
      if (Cell(i).back == back) cells.push_back(i);
    }
    return cells;
  }
  int CellsOfShownMonth() const {
    return static_cast<int>(std::ranges::count(model_.Days(), DayText::kShownMonth, &DayCell::text));
  }
  std::vector<int> MarkedMonths() const {
    std::vector<int> marked;
    for (int i = 0; i < kMonthCells; ++i) {
      if (model_.Months()[static_cast<std::size_t>(i)].shown) marked.push_back(i);
    }
    return marked;
  }

  Date now_{On(2024, 5, 15).days + 0.4375};  // 10:30
  conversions::Conversions conversions_;
  CalendarValue value_{conversions_};
  MonthModel model_{conversions_, [this] { return now_; }, value_};
};

// --- Days of a month ---------------------------------------------------------------------------

TEST(DaysInMonth, TakesEveryFourthYearForALeapYearEvenAtCenturies) {
  const std::tuple<int, int, int> rows[] = {
      {1, 2023, 31},  {3, 2023, 31},  {5, 2023, 31}, {7, 2023, 31}, {8, 2023, 31},  {10, 2023, 31},
      {12, 2023, 31}, {4, 2023, 30},  {6, 2023, 30}, {9, 2023, 30}, {11, 2023, 30}, {2, 2023, 28},
      {2, 2024, 29},  {2, 2000, 29},  {2, 1900, 29}, {2, 2100, 29}, {2, 1901, 28},  {0, 2024, 30},
      {13, 2024, 30}, {-1, 2024, 30}, {2, -4, 29},   {2, 0, 29},
  };
  for (const auto& [month, year, days] : rows)
    EXPECT_EQ(DaysInMonth(month, year), days) << month << "/" << year;
}

// --- Days view ---------------------------------------------------------------------------------

TEST_F(MonthModelTest, AMonthStandsBetweenDaysOfItsNeighbours) {
  model_.FillMonth(5, 2024);  // begins on a Wednesday
  EXPECT_EQ(model_.ShownMonth(), 5);
  EXPECT_EQ(model_.ShownYear(), 2024);
  EXPECT_EQ(Captions(0, 7), "28 29 30 1 2 3 4");
  EXPECT_EQ(Captions(28, 14), "26 27 28 29 30 31 1 2 3 4 5 6 7 8");
  EXPECT_EQ(Cell(0).date, On(2024, 4, 28));
  EXPECT_EQ(Cell(41).date, On(2024, 6, 8));
  for (int i = 0; i < kDayCells; ++i) {
    EXPECT_EQ(Cell(i).text, i >= 3 && i <= 33 ? DayText::kShownMonth : DayText::kAdjacentMonth) << i;
  }
}

TEST_F(MonthModelTest, TheFirstDayStandsUnderItsWeekday) {
  const std::tuple<int, int, int> rows[] = {
      {9, 2024, 0},  // a Sunday: no days of the previous month
      {6, 2024, 6},  // a Saturday: six of them
      {4, 2024, 1}, {10, 2024, 2}, {5, 2024, 3}, {8, 2024, 4}, {3, 2024, 5},
  };
  for (const auto& [month, year, lead] : rows) {
    model_.FillMonth(month, year);
    EXPECT_EQ(Cell(lead).caption, "1") << month;
    EXPECT_EQ(Cell(lead).text, DayText::kShownMonth) << month;
    EXPECT_EQ(Cell(lead).date, On(year, static_cast<unsigned>(month), 1));
    if (lead > 0) {
      EXPECT_EQ(Cell(lead - 1).text, DayText::kAdjacentMonth) << month;
    }
  }
}

TEST_F(MonthModelTest, AMonthAlwaysFillsSixRows) {
  model_.FillMonth(2, 2015);  // 28 days from a Sunday on: fourteen days of the next month
  EXPECT_EQ(CellsOfShownMonth(), 28);
  EXPECT_EQ(Captions(28, 14), "1 2 3 4 5 6 7 8 9 10 11 12 13 14");
  EXPECT_EQ(Cell(28).text, DayText::kAdjacentMonth);
}

TEST_F(MonthModelTest, February1900Shows29DaysOfWhichTheLastIsTheFirstOfMarch) {
  model_.FillMonth(2, 1900);
  EXPECT_EQ(CellsOfShownMonth(), 29);
  EXPECT_EQ(Captions(30, 4), "27 28 1 2");
  EXPECT_EQ(Cell(32).date, On(1900, 3, 1));
  EXPECT_EQ(Cell(32).text, DayText::kShownMonth);
  EXPECT_EQ(Cell(33).date, On(1900, 3, 2));
  EXPECT_EQ(Cell(33).text, DayText::kAdjacentMonth);
}

TEST_F(MonthModelTest, ACellsTagIsItsDateAsText) {
  model_.FillMonth(5, 2024);
  EXPECT_EQ(model_.Tag(0), "4/28/2024");
  EXPECT_EQ(model_.Tag(3), "5/1/2024");
  EXPECT_EQ(model_.Tag(41), "6/8/2024");
  EXPECT_EQ(ErrorOf([&] { model_.Tag(42); }), 9);
  EXPECT_EQ(ErrorOf([&] { model_.Tag(-1); }), 9);
}

TEST_F(MonthModelTest, TheTagOfDay0IsItsTimeBecauseDatesOfThatDayAreTimes) {
  model_.FillMonth(12, 1899);
  EXPECT_EQ(Cell(33).date, Date{-1});
  EXPECT_EQ(model_.Tag(33), "12/29/1899");
  EXPECT_EQ(Cell(34).date, Date{0});
  EXPECT_EQ(model_.Tag(34), "12:00:00 AM");
  EXPECT_EQ(model_.Tag(35), "12/31/1899");
}

TEST_F(MonthModelTest, PickingACellsTagSelectsItsDate) {
  model_.FillMonth(5, 2024);
  value_.Assign(model_.Tag(0));
  EXPECT_EQ(value_.Value(), Variant(On(2024, 4, 28)));
  EXPECT_TRUE(CellsWith(DayBack::kSelected).empty()) << "until the next fill";
  model_.FillMonth(5, 2024);
  EXPECT_THAT(CellsWith(DayBack::kSelected), ElementsAre(0));
}

// --- Marks -------------------------------------------------------------------------------------

TEST_F(MonthModelTest, TodayIsMarkedInItsOwnMonthOnly) {
  now_ = On(2024, 5, 31);
  const std::tuple<int, std::vector<int>> rows[] = {
      {5, {33}},
      {6, {}},  // 31 May stands in cell 5
      {4, {}},
  };
  for (const auto& [month, cells] : rows) {
    model_.FillMonth(month, 2024);
    EXPECT_EQ(CellsWith(DayBack::kToday), cells) << month;
  }
  model_.FillMonth(6, 2024);
  EXPECT_EQ(Cell(5).date, now_);
  model_.FillMonth(5, 2023);
  EXPECT_TRUE(CellsWith(DayBack::kToday).empty());
}

TEST_F(MonthModelTest, TheTimeOfDayDoesNotMatterForToday) {
  for (const double time : {0.0, 0.5, 0.999}) {
    now_ = {On(2024, 5, 15).days + time};
    model_.FillMonth(5, 2024);
    EXPECT_THAT(CellsWith(DayBack::kToday), ElementsAre(17)) << time;
  }
  // Before day 0 the time of day is counted away from it.
  now_ = {On(1899, 5, 15).days - 0.75};
  model_.FillMonth(5, 1899);
  EXPECT_EQ(CellsWith(DayBack::kToday).size(), 1u);
  EXPECT_EQ(Cell(CellsWith(DayBack::kToday).front()).caption, "15");
}

TEST_F(MonthModelTest, TheSelectedDayIsMarkedWhereverItIsShown) {
  value_.Assign(On(2024, 3, 31));
  model_.FillMonth(3, 2024);
  EXPECT_THAT(CellsWith(DayBack::kSelected), ElementsAre(35));
  model_.FillMonth(4, 2024);  // among the days of the previous month
  EXPECT_THAT(CellsWith(DayBack::kSelected), ElementsAre(0));
  EXPECT_EQ(Cell(0).text, DayText::kAdjacentMonth);
  model_.FillMonth(5, 2024);
  EXPECT_TRUE(CellsWith(DayBack::kSelected).empty());
}

TEST_F(MonthModelTest, TodayWinsOverTheSelection) {
  value_.Assign(On(2024, 5, 15));
  model_.FillMonth(5, 2024);
  EXPECT_THAT(CellsWith(DayBack::kToday), ElementsAre(17));
  EXPECT_TRUE(CellsWith(DayBack::kSelected).empty());
  // Where today is not marked, the selection is.
  now_ = On(2024, 5, 31);
  value_.Assign(now_);
  model_.FillMonth(6, 2024);
  EXPECT_THAT(CellsWith(DayBack::kSelected), ElementsAre(5));
}

TEST_F(MonthModelTest, OnlyAValueThatIsADateIsSelected) {
  const std::pair<Variant, std::size_t> rows[] = {
      {On(2024, 5, 2), 1}, {Null{}, 0}, {"", 0}, {Date{On(2024, 5, 2).days + 0.25}, 0},  // no cell has a time
  };
  for (const auto& [value, cells] : rows) {
    value_.Assign(value);
    model_.FillMonth(5, 2024);
    EXPECT_EQ(CellsWith(DayBack::kSelected).size(), cells) << Describe(value);
  }
  value_.Typed("5/3/2024");
  model_.FillMonth(5, 2024);
  EXPECT_THAT(CellsWith(DayBack::kSelected), ElementsAre(5)) << "typed text of a date is one";
}

// --- Header ------------------------------------------------------------------------------------

TEST_F(MonthModelTest, TheHeaderIsSpacedOutInCapitals) {
  const std::tuple<int, int, std::string> rows[] = {
      {5, 2024, "M A Y   2 0 2 4 "}, {2, 1000, "F E B   1 0 0 0 "}, {12, 9998, "D E C   9 9 9 8 "}};
  for (const auto& [month, year, header] : rows) {
    model_.FillMonth(month, year);
    EXPECT_EQ(model_.Header(), header);
  }
  model_.FillMonths(2024);
  EXPECT_EQ(model_.Header(), "2 0 2 4 ");
}

// --- Months view -------------------------------------------------------------------------------

TEST_F(MonthModelTest, TheMonthsViewMarksTheShownMonth) {
  model_.FillMonth(5, 2024);
  model_.FillMonths(2025);
  EXPECT_EQ(model_.ShownYear(), 2025);
  EXPECT_EQ(model_.ShownMonth(), 5);
  std::string captions;
  for (const MonthCell& month : model_.Months()) captions += month.caption + " ";
  EXPECT_EQ(captions, "Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec ");
  EXPECT_THAT(MarkedMonths(), ElementsAre(4));
}

// --- Navigation --------------------------------------------------------------------------------

TEST_F(MonthModelTest, OpensAtTheValueOrToday) {
  const std::tuple<Variant, int, int> rows[] = {
      {On(2020, 2, 29), 2, 2020},
      {Date{On(1999, 12, 31).days + 0.9}, 12, 1999},
      {Null{}, 5, 2024},
      {"", 5, 2024},
  };
  for (const auto& [value, month, year] : rows) {
    model_.Toggle();  // whatever was shown
    value_.Assign(value);
    model_.Open();
    EXPECT_EQ(model_.ShownView(), MonthModel::View::kDays);
    EXPECT_EQ(model_.ShownMonth(), month) << Describe(value);
    EXPECT_EQ(model_.ShownYear(), year) << Describe(value);
  }
  value_.Typed("7/4/1976");
  model_.Open();
  EXPECT_EQ(model_.ShownYear(), 1976);
}

TEST_F(MonthModelTest, EachOpeningBeginsAnew) {
  value_.Assign(On(2024, 5, 2));
  model_.Open();
  model_.Move(kMoveForward);
  model_.Open();
  EXPECT_EQ(model_.ShownMonth(), 5);
}

TEST_F(MonthModelTest, TheArrowsStepMonthsAndYears) {
  const struct {
    bool months_view;
    int month;
    int year;
    int direction;
    int to_month;
    int to_year;
  } rows[] = {
      {false, 5, 2024, kMoveForward, 6, 2024},  {false, 5, 2024, kMoveBack, 4, 2024},
      {false, 12, 2024, kMoveForward, 1, 2025}, {false, 1, 2024, kMoveBack, 12, 2023},
      {true, 5, 2024, kMoveForward, 5, 2025},   {true, 5, 2024, kMoveBack, 5, 2023},
      {true, 12, 2024, kMoveForward, 12, 2025}, {true, 1, 2024, kMoveBack, 1, 2023},
  };
  for (const auto& row : rows) {
    model_.Open();
    model_.FillMonth(row.month, row.year);
    if (row.months_view) model_.Toggle();
    model_.Move(row.direction);
    EXPECT_EQ(model_.ShownMonth(), row.to_month);
    EXPECT_EQ(model_.ShownYear(), row.to_year);
    EXPECT_EQ(model_.ShownView() == MonthModel::View::kMonths, row.months_view);
  }
}

TEST_F(MonthModelTest, AMoveFillsTheView) {
  model_.Open();
  model_.Move(kMoveForward);
  EXPECT_EQ(model_.Header(), "J U N   2 0 2 4 ");
  EXPECT_EQ(Captions(0, 7), "26 27 28 29 30 31 1");
  model_.Toggle();
  model_.Move(kMoveBack);
  EXPECT_EQ(model_.Header(), "2 0 2 3 ");
  EXPECT_EQ(Captions(0, 7), "26 27 28 29 30 31 1") << "the days are not shown";
  model_.Toggle();
  EXPECT_EQ(model_.Header(), "J U N   2 0 2 3 ");
  EXPECT_EQ(Captions(0, 7), "28 29 30 31 1 2 3");
}

TEST_F(MonthModelTest, PickingAMonthShowsItsDaysInTheShownYear) {
  model_.Open();
  model_.Toggle();
  model_.Move(kMoveForward);
  for (const auto& [index, header] : {std::pair<int, std::string>{0, "J A N   2 0 2 5 "},
                                      {11, "D E C   2 0 2 5 "},
                                      {4, "M A Y   2 0 2 5 "}}) {
    model_.PickMonth(index);
    EXPECT_EQ(model_.ShownView(), MonthModel::View::kDays);
    EXPECT_EQ(model_.ShownMonth(), index + 1);
    EXPECT_EQ(model_.Header(), header);
    model_.Toggle();
    EXPECT_THAT(MarkedMonths(), ElementsAre(index));
  }
  EXPECT_EQ(ErrorOf([&] { model_.PickMonth(12); }), 9);
  EXPECT_EQ(ErrorOf([&] { model_.PickMonth(-1); }), 9);
}

// --- The ends of the calendar ------------------------------------------------------------------

TEST_F(MonthModelTest, BeyondTheLastYearTheConversionsErrorPassesThroughAndTheMonthIsKept) {
  model_.FillMonth(11, 9999);
  EXPECT_EQ(ErrorOf([&] { model_.Move(kMoveForward); }), 5) << "there is no day after 31 December 9999";
  EXPECT_EQ(model_.ShownMonth(), 12);
  EXPECT_EQ(model_.Header(), "N O V   9 9 9 9 ");
  EXPECT_EQ(ErrorOf([&] { model_.Move(kMoveForward); }), 13);
  EXPECT_EQ(model_.ShownYear(), 10000);
  EXPECT_EQ(ErrorOf([&] { model_.Move(kMoveBack); }), 5);
  model_.Move(kMoveBack);
  EXPECT_EQ(model_.Header(), "N O V   9 9 9 9 ");
}

TEST_F(MonthModelTest, BeforeTheFirstYearTheConversionsErrorPassesThroughToo) {
  model_.FillMonth(2, 100);
  EXPECT_EQ(ErrorOf([&] { model_.Move(kMoveBack); }), 5) << "January 100 begins with days of December 99";
  EXPECT_EQ(model_.ShownMonth(), 1);
}

TEST_F(MonthModelTest, AYearOfTwoDigitsIsReadAsTheLocaleReadsIt) {
  model_.FillMonth(5, 24);
  EXPECT_EQ(model_.Header(), "M A Y   2 0 2 4 ");
  EXPECT_EQ(model_.ShownYear(), 24);
}

TEST_F(MonthModelTest, AYearOfMoreThan16BitsRaises6AndChangesNothing) {
  model_.FillMonth(5, 2024);
  EXPECT_EQ(ErrorOf([&] { model_.FillMonth(5, 32768); }), 6);
  EXPECT_EQ(ErrorOf([&] { model_.FillMonth(32768, 2023); }), 6);
  EXPECT_EQ(ErrorOf([&] { model_.FillMonths(-32769); }), 6);
  EXPECT_EQ(model_.ShownMonth(), 5);
  EXPECT_EQ(model_.ShownYear(), 2024);
}

// --- Other locales -----------------------------------------------------------------------------

class GermanMonthModelTest : public MonthModelTest {
 protected:
  GermanMonthModelTest() : MonthModelTest("de-DE") {}
};

TEST_F(GermanMonthModelTest, TheFirstOfTheMonthIsReadInTheLocalesOrder) {
  model_.FillMonth(5, 2024);  // 5/1/2024 is the fifth of January there
  EXPECT_EQ(model_.ShownMonth(), 5);
  EXPECT_EQ(model_.Header(), "J A N   2 0 2 4 ");
  EXPECT_EQ(Cell(5).date, On(2024, 1, 5));  // a Friday
  EXPECT_EQ(CellsOfShownMonth(), 31);
}

TEST_F(GermanMonthModelTest, MonthNamesAreCutByCharacters) {
  model_.FillMonth(3, 2024);
  model_.FillMonths(2024);
  EXPECT_EQ(model_.Months()[2].caption, "Mär");
  EXPECT_EQ(model_.Months()[9].caption, "Okt");
  EXPECT_EQ(model_.Tag(0), conversions_.ToText(Cell(0).date).value);
}

class FrenchMonthModelTest : public MonthModelTest {
 protected:
  FrenchMonthModelTest() : MonthModelTest("fr-FR") {}
};

TEST_F(FrenchMonthModelTest, LettersWithAccentsAreCapitalsToo) {
  model_.FillMonth(1, 2024);
  now_ = On(2024, 1, 1);
  model_.Toggle();
  EXPECT_EQ(model_.Months()[1].caption, "fév");
  EXPECT_EQ(model_.Months()[7].caption, "aoû");
  model_.FillMonth(1, 2024);
  EXPECT_EQ(model_.Header().find("é"), std::string::npos);
}

// --- 400 years ---------------------------------------------------------------------------------

TEST_F(MonthModelTest, FourHundredYearsAgreeWithAnIndependentCountOfDays) {
  using namespace std::chrono;
  value_.Assign(On(1850, 1, 1));
  for (int year = 1801; year <= 2200; ++year) {
    for (int month = 1; month <= 12; ++month) {
      model_.FillMonth(month, year);
      const year_month_day first{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                 day(1)};
      const auto lead = static_cast<int>(weekday(sys_days(first)).c_encoding());
      const auto length =
          static_cast<int>(static_cast<unsigned>((first.year() / first.month() / std::chrono::last).day()));
      const bool longer = month == 2 && year % 100 == 0 && year % 400 != 0;
      for (int i = 0; i < kDayCells; ++i) {
        const year_month_day expected = sys_days(first) + days(i - lead);
        ASSERT_EQ(DayOf(Cell(i).date), expected);
        ASSERT_EQ(Cell(i).caption, std::to_string(static_cast<unsigned>(expected.day())));
        const bool inside = i >= lead && i < lead + length + (longer ? 1 : 0);
        ASSERT_EQ(Cell(i).text == DayText::kShownMonth, inside) << month << "/" << year << " cell " << i;
        ASSERT_EQ(Cell(i).back == DayBack::kSelected, Cell(i).date == On(1850, 1, 1));
      }
    }
  }
}

}  // namespace
}  // namespace levelwidgets
