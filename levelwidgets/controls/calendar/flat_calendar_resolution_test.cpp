// FlatCalendar: its month view on a display whose pixels are not 15 by 15 twips.
#include <levelwidgets/controls/calendar/flat_calendar_fixture.h>
#include <levelwidgets/testing/other_screen.h>

namespace levelwidgets::testing {
namespace {

using OblongCalendarTest = OnOtherScreen<FlatCalendarTest, OblongScreen>;

TEST_F(OblongCalendarTest, ThePanelIsMeasuredByBothMeasures) {
  Open();
  EXPECT_EQ(PanelRect().width(), 2320 / 15);
  EXPECT_EQ(PanelRect().height(), 2260 / 20);
  EXPECT_EQ(PanelRect().left, ControlRect().left);
  EXPECT_EQ(PanelRect().top, ControlRect().bottom);
}

TEST_F(OblongCalendarTest, EveryCellPicksItsOwnDate) {
  const double first = kMay31.days - 33;
  for (const int cell : {0, 6, 7, 20, 35, 41}) {
    OpenAt(kMay31);
    ClickOn(OnDay(cell));
    EXPECT_EQ(Calendar().Value(), Variant(Date{first + cell})) << cell;
  }
}

TEST_F(OblongCalendarTest, ArrowsHeaderAndMonthsAreClickedWhereTheyAreDrawn) {
  OpenAt(kMay31);
  ClickOn(OnArrow(0));
  EXPECT_EQ(Header(), "A P R   2 0 2 4 ");
  ClickOn(OnHead());
  EXPECT_TRUE(Months().MonthsFrame().Visible());
  ClickOn(OnMonth(11));
  EXPECT_FALSE(Months().MonthsFrame().Visible());
  EXPECT_EQ(Header(), "D E C   2 0 2 4 ");
}

TEST_F(OblongCalendarTest, LinesAndViewsAreDrawnByBothMeasures) {
  Open();
  for (const MonthLine& line : kMonthBorder) {
    EXPECT_EQ(PixelOnPanel(static_cast<int>(line.end.x.value), static_cast<int>(line.end.y.value)),
              Concrete(Calendar().CalBorderColor()));
  }
  EXPECT_EQ(PixelOnPanel(240, 360), Concrete(Calendar().CalHeaderBackColor()));
  EXPECT_EQ(PixelOnPanel(240, 340), Concrete(Calendar().CalBackColor()));
}

}  // namespace
}  // namespace levelwidgets::testing
