// FlatCalendar: where everything is in the month view, and in which colours.
#include <cmath>

#include <levelwidgets/controls/calendar/flat_calendar_fixture.h>
#include <levelwidgets/testing/contrast.h>

namespace levelwidgets::testing {
namespace {

// --- Layout ------------------------------------------------------------------------------------------

TEST(MonthLayout, HasItsPartsInTheirPlaces) {
  EXPECT_EQ(kMonthHead.position, (TwipPoint{Twips(600), Twips(90)}));
  EXPECT_EQ(kMonthHead.size.width, Twips(1215));
  EXPECT_EQ(kMonthArrows[0].position, (TwipPoint{Twips(240), Twips(120)}));
  EXPECT_EQ(kMonthArrows[1].position, (TwipPoint{Twips(1800), Twips(120)}));
  EXPECT_EQ(kMonthFrame.position, (TwipPoint{Twips(240), Twips(360)}));
  EXPECT_EQ(kMonthFrame.size, (TwipSize{Twips(1935), Twips(1695)}));
  const int columns[] = {0, 255, 525, 780, 1035, 1305, 1560};
  for (int i = 0; i < kWeekdays; ++i) {
    EXPECT_EQ(WeekdayHead(i).position, (TwipPoint{Twips(columns[i]), Twips(0)}));
    EXPECT_EQ(WeekdayHead(i).size, (TwipSize{Twips(265), Twips(210)}));
  }
  const int borders[4][4] = {
      {60, 60, 2220, 60}, {60, 2160, 2220, 2160}, {60, 60, 60, 2160}, {2220, 60, 2220, 2160}};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(kMonthBorder[i].start, (TwipPoint{Twips(borders[i][0]), Twips(borders[i][1])})) << i;
    EXPECT_EQ(kMonthBorder[i].end, (TwipPoint{Twips(borders[i][2]), Twips(borders[i][3])})) << i;
  }
  const int rules[] = {480, 720, 960, 1200, 1440};
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(kWeekRules[i].start, (TwipPoint{Twips(0), Twips(rules[i])}));
    EXPECT_EQ(kWeekRules[i].end, (TwipPoint{Twips(1800), Twips(rules[i])}));
  }
  const int lefts[] = {0, 450, 900, 1350};
  const int tops[] = {240, 720, 1200};
  for (int i = 0; i < kMonthCells; ++i) {
    EXPECT_EQ(MonthLabel(i).position, (TwipPoint{Twips(lefts[i % 4]), Twips(tops[i / 4])})) << i;
    EXPECT_EQ(MonthLabel(i).size, (TwipSize{Twips(495), Twips(495)})) << i;
  }
  EXPECT_EQ(kMonthsTitle.position, TwipPoint{});
  EXPECT_EQ(kMonthsTitle.size, (TwipSize{Twips(1935), Twips(210)}));
}

TEST(MonthLayout, CellsFillTheColumnsOfTheirHeadsAndTheRowsBetweenTheRules) {
  for (int cell = 0; cell < kDayCells; ++cell) {
    EXPECT_EQ(DayPlace(cell).position.x, WeekdayHead(cell % 7).position.x) << cell;
    EXPECT_EQ(DayPlace(cell).size, (TwipSize{Twips(265), Twips(240)})) << cell;
    EXPECT_EQ(DayPlace(cell).position.y, Twips(240 + cell / 7 * 240)) << cell;
  }
}

TEST_F(FlatCalendarTest, TheWeekdaysAreEnglishWhateverTheLocale) {
  Open();
  std::string heads;
  for (int i = 0; i < kWeekdays; ++i) heads += Months().WeekdayHeadOf(i).Caption();
  EXPECT_EQ(heads, "SuMoTuWeThFrSa");
}

TEST_F(FlatCalendarTest, TheDaysOfTheMonthStandUnderTheirWeekdays) {
  OpenAt("5/31/2019");  // a Friday; the month begins on a Wednesday
  EXPECT_EQ(Months().Day(3).Caption(), "1");
  EXPECT_EQ(Months().Day(33).Caption(), "31");
  EXPECT_EQ(Months().Day(0).Caption(), "28");
  EXPECT_EQ(Months().Day(41).Caption(), "8");
  const FlatCalendar& calendar = Calendar();
  for (int cell = 0; cell < kDayCells; ++cell) {
    const bool inside = cell >= 3 && cell <= 33;
    EXPECT_EQ(Months().Day(cell).ForeColor(), inside ? calendar.CalForeColor() : calendar.CalDisabledColor())
        << cell;
    EXPECT_EQ(Months().Day(cell).BackColor(),
              cell == 33 ? calendar.CalSelectBackColor() : calendar.CalBackColor())
        << cell;
  }
}

TEST_F(FlatCalendarTest, AMonthThatBeginsOnASundayBeginsInTheFirstCell) {
  OpenAt("9/10/2024");
  EXPECT_EQ(Months().Day(0).Caption(), "1");
}

TEST_F(FlatCalendarTest, AMonthThatBeginsOnASaturdayHasSixDaysOfTheOneBefore) {
  OpenAt("6/10/2024");
  EXPECT_EQ(Months().Day(5).Caption(), "31");
  EXPECT_EQ(Months().Day(6).Caption(), "1");
}

TEST_F(FlatCalendarTest, TodayIsMarkedInItsMonth) {
  const Date today{std::floor(Tracer().Clock().Now().days)};
  OpenAt("");
  int marked = 0;
  for (int cell = 0; cell < kDayCells; ++cell) {
    if (Months().Day(cell).BackColor() == Calendar().CalTodayBackColor()) ++marked;
  }
  EXPECT_EQ(marked, 1);
  Driver().Key(kKeyEscape);
  // Today wins over the selection.
  Calendar().SetCalTodayBackColor(Color(0x00123456));
  OpenAt(today);
  for (int cell = 0; cell < kDayCells; ++cell) {
    EXPECT_NE(Months().Day(cell).BackColor(), Calendar().CalSelectBackColor()) << cell;
  }
}

TEST_F(FlatCalendarTest, TheSelectedDayIsMarkedAmongThoseOfTheMonthBefore) {
  OpenAt("3/31/2024");
  ClickOn(OnArrow(kMoveForward));
  EXPECT_EQ(Header(), "A P R   2 0 2 4 ");
  EXPECT_EQ(Months().Day(0).Caption(), "31");
  EXPECT_EQ(Months().Day(0).BackColor(), Calendar().CalSelectBackColor());
}

class MonthViewColors : public FlatCalendarTest {
 protected:
  void Set(std::uint32_t shade) {
    Calendar().SetCalBackColor(Color(0x00101112 + shade));
    Calendar().SetCalBorderColor(Color(0x00202122 + shade));
    Calendar().SetCalHeaderBackColor(Color(0x00303132 + shade));
    Calendar().SetCalForeColor(Color(0x00F0E1D2 + shade));
    Calendar().SetCalMouseOverColor(Color(0x00505152 + shade));
  }
  // On the open panel, in the view of days.
  void ExpectShown() {
    const FlatCalendar& calendar = Calendar();
    for (const MonthLine& line : kMonthBorder) {
      EXPECT_EQ(PixelOnPanel(static_cast<int>(line.start.x.value), static_cast<int>(line.start.y.value)),
                Concrete(calendar.CalBorderColor()));
      EXPECT_EQ(PixelOnPanel(static_cast<int>(line.end.x.value), static_cast<int>(line.end.y.value)),
                Concrete(calendar.CalBorderColor()));
    }
    EXPECT_EQ(PixelOnPanel(30, 30), Concrete(calendar.CalBackColor()));
    EXPECT_EQ(PixelOnPanel(240, 360), Concrete(calendar.CalHeaderBackColor()));
    EXPECT_EQ(PixelOnPanel(240, 360 + 225), Concrete(calendar.CalBackColor()));
    EXPECT_EQ(PixelOnPanel(615, 105), Concrete(calendar.CalBackColor()));
    for (const MonthLine& rule : kWeekRules) {
      EXPECT_EQ(PixelOnPanel(240, 360 + static_cast<int>(rule.start.y.value)), ColorRef{0x004A5052});
      EXPECT_EQ(PixelOnPanel(240 + 1800, 360 + static_cast<int>(rule.start.y.value)), ColorRef{0x004A5052});
    }
    ExpectFrame();
    for (const int direction : {kMoveBack, kMoveForward}) {
      EXPECT_EQ(Months().Arrow(direction).BackColorMouseOver(), calendar.CalMouseOverColor());
    }
    EXPECT_EQ(Months().Month(0).BackColorMouseOver(), calendar.CalMouseOverColor());
    Driver().MovePointer(OnArrow(kMoveBack));
    EXPECT_EQ(PixelOnPanel(240 + 15, 120 + 15), Concrete(calendar.CalMouseOverColor()));
    Driver().MovePointer({5, 5});
    Watched();
  }
  // Right of the cells and below the months nothing covers the frame of the view.
  void ExpectFrame() {
    EXPECT_EQ(PixelOnPanel(240 + 1890, 360 + 900), Concrete(Calendar().CalBackColor()));
    EXPECT_EQ(PixelOnPanel(240 + 1890, 360 + 1680), Concrete(Calendar().CalBackColor()));
  }
  // On the open panel, in the view of months.
  void ExpectMonthsShown() {
    const FlatCalendar& calendar = Calendar();
    ExpectFrame();
    EXPECT_EQ(PixelOnPanel(240 + 15, 360 + 15), Concrete(calendar.CalBackColor()));
    std::int64_t color = -1;
    std::vector<std::string> titles;
    for (const TracedCall& call : CallsNamed({"DrawTextA", "SetTextColor"}, [this] {
           Windows().InvalidateRect(Months().MonthsFrame().hWnd());
           Driver().Settle();
         })) {
      if (call.name == "SetTextColor") color = std::get<std::int64_t>(call.arguments[1]);
      if (call.name != "DrawTextA") continue;
      titles.push_back(std::get<std::string>(call.arguments[1]));
      EXPECT_EQ(color, std::int64_t{Concrete(calendar.CalForeColor()).value}) << call.ToString();
    }
    EXPECT_THAT(titles, ::testing::ElementsAre("Select a Month"));
  }
};

TEST_F(MonthViewColors, ThoseOfANewControlAreShown) {
  OpenAt("5/31/2019");
  ExpectShown();
  ClickOn(OnHead());
  ExpectMonthsShown();
}

TEST_F(MonthViewColors, ThoseSetBeforeTheFirstOpeningAreShown) {
  Set(0x08);
  OpenAt("5/31/2019");
  ExpectShown();
  ClickOn(OnHead());
  ExpectMonthsShown();
}

TEST_F(MonthViewColors, ThoseSetWhileThePanelIsOpenAreShownAtOnce) {
  OpenAt("5/31/2019");
  for (const std::uint32_t shade : {0x04u, 0x0Cu}) {
    Set(shade);
    ExpectShown();
  }
  ClickOn(OnHead());
  Set(0x02);
  ExpectMonthsShown();
}

TEST_F(FlatCalendarTest, TheArrowsAreTheSymbolsOfTheSystem) {
  Open();
  EXPECT_EQ(Months().Arrow(kMoveBack).Caption(), "3");
  EXPECT_EQ(Months().Arrow(kMoveForward).Caption(), "4");
  for (const int direction : {kMoveBack, kMoveForward}) {
    const FontDescription font = Months().Arrow(direction).GetFont()->Description();
    EXPECT_EQ(font.name, "Marlett");
    EXPECT_EQ(font.charset, 2);
  }
}

// --- Colours -----------------------------------------------------------------------------------------

TEST_F(FlatCalendarTest, ColoursOfSingleDaysWaitForTheNextFill) {
  OpenAt("5/31/2019");
  Calendar().SetCalSelectBackColor(Color(0x00111111));
  Calendar().SetCalDisabledColor(Color(0x00222222));
  EXPECT_EQ(Months().Day(33).BackColor(), Color(0x006B7C6D));
  EXPECT_EQ(Months().Day(0).ForeColor(), Color(0x80000011));
  ClickOn(OnArrow(kMoveForward));
  ClickOn(OnArrow(kMoveBack));
  EXPECT_EQ(Months().Day(33).BackColor(), Color(0x00111111));
  EXPECT_EQ(Months().Day(0).ForeColor(), Color(0x00222222));
  Driver().Key(kKeyEscape);
  OpenAt("");
  Calendar().SetCalTodayBackColor(Color(0x00333333));
  const auto marked = [this] {
    int count = 0;
    for (int cell = 0; cell < kDayCells; ++cell) count += Months().Day(cell).BackColor() == Color(0x00333333);
    return count;
  };
  EXPECT_EQ(marked(), 0);
  Driver().Key(kKeyEscape);
  Open();
  EXPECT_EQ(marked(), 1);
}

TEST_F(FlatCalendarTest, TheFirstTwoColoursOverwriteTheMarksOfDaysUntilTheNextFill) {
  OpenAt(kMay31);
  Calendar().SetCalBackColor(Color(0x00808080));
  Calendar().SetCalForeColor(Color(0x00010101));
  for (int cell = 0; cell < kDayCells; ++cell) {
    EXPECT_EQ(Months().Day(cell).BackColor(), Color(0x00808080)) << cell;
    EXPECT_EQ(Months().Day(cell).ForeColor(), Color(0x00010101)) << cell;
  }
  for (int i = 0; i < kWeekdays; ++i) {
    EXPECT_EQ(Months().WeekdayHeadOf(i).ForeColor(), Color(0x00010101));
    EXPECT_EQ(Months().WeekdayHeadOf(i).BackColor(), Calendar().CalHeaderBackColor());
  }
  for (const int direction : {kMoveBack, kMoveForward}) {
    EXPECT_EQ(Months().Arrow(direction).ForeColor(), Color(0x00010101));
    EXPECT_EQ(Months().Arrow(direction).BackColor(), Color(0x00808080));
  }
  for (int i = 0; i < kMonthCells; ++i) {
    EXPECT_EQ(Months().Month(i).ForeColor(), Color(0x00010101));
    EXPECT_EQ(Months().Month(i).BackColor(), Color(0x00808080));
  }
  EXPECT_EQ(Months().Head().BackColor(), Color(0x00808080));
}

TEST_F(FlatCalendarTest, TheHeaderAndWhatHoversCanBeReadOnLightAndDarkMonthViews) {
  const struct {
    std::uint32_t back;
    std::uint32_t fore;
    std::uint32_t over;
  } rows[] = {{0x000000, 0xFFFFFF, 0x9CDFF7}, {0xFFFFFF, 0x000000, 0x9CDFF7}, {0xFFFFFF, 0x202020, 0x303030}};
  Open();
  for (const auto& row : rows) {
    Calendar().SetCalBackColor(Color(row.back));
    Calendar().SetCalForeColor(Color(row.fore));
    Calendar().SetCalMouseOverColor(Color(row.over));
    const FlatLabel& head = Months().Head();
    EXPECT_GE(Contrast(Concrete(head.ForeColor()), Concrete(head.BackColor())), 4.5);
    EXPECT_GE(Contrast(Concrete(head.ForeColorMouseOver()), Concrete(head.BackColorMouseOver())), 4.5);
    for (const FlatLabel* label : {&Months().Arrow(kMoveBack), &Months().Month(3)}) {
      EXPECT_GE(Contrast(Concrete(label->ForeColorMouseOver()), Concrete(label->BackColorMouseOver())), 4.5);
      EXPECT_GE(Contrast(Concrete(label->ForeColorPushed()), Concrete(label->BackColorPushed())), 4.5);
    }
  }
}

}  // namespace
}  // namespace levelwidgets::testing
