// What the tests of FlatCalendar have in common. Not for use outside this folder.
#pragma once

#include <levelwidgets/controls/calendar/flat_calendar.h>
#include <levelwidgets/controls/calendar/month_panel.h>
#include <levelwidgets/testing/panel_fixture.h>

namespace levelwidgets::testing {

inline constexpr Date kMay31{45443};  // 31 May 2024

class FlatCalendarTest : public PanelTest<FlatCalendar> {
 protected:
  FlatCalendar& Calendar() { return Subject(); }
  const MonthPanel& Months() { return *Subject().Months(); }
  std::string TextShown() { return Subject().ActiveEdit().Text(); }

  // Opens the month of `value`.
  void OpenAt(const Variant& value) {
    Calendar().SetValue(value);
    Open();
  }
  // Screen pixels of the middle of a part of the open panel.
  PixelPoint MiddleOf(const MonthPlace& place, TwipPoint origin = {}) {
    return OnPanel(static_cast<int>(origin.x.value + place.position.x.value + place.size.width.value / 2),
                   static_cast<int>(origin.y.value + place.position.y.value + place.size.height.value / 2));
  }
  PixelPoint OnArrow(int direction) { return MiddleOf(kMonthArrows[static_cast<std::size_t>(direction)]); }
  PixelPoint OnHead() { return MiddleOf(kMonthHead); }
  PixelPoint OnDay(int cell) { return MiddleOf(DayPlace(cell), kMonthFrame.position); }
  PixelPoint OnMonth(int index) { return MiddleOf(MonthLabel(index), kMonthFrame.position); }
  void ClickOn(PixelPoint at) { ClickApart(at); }
  std::string Header() { return Months().Head().Caption(); }
};

}  // namespace levelwidgets::testing
