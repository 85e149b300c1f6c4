// What the tests of FlatCalendar have in common. Not for use outside this folder.
#pragma once

#include <levelwidgets/controls/calendar/flat_calendar.h>
#include <levelwidgets/controls/calendar/month_panel.h>
#include <levelwidgets/testing/panel_fixture.h>

namespace levelwidgets::testing {

inline constexpr Date kMay31{45443};  // 31 May 2024

class CalendarTest : public PanelTest<FlatCalendar> {
 protected:
  FlatCalendar& Calendar() { return Subject(); }
  std::string TextShown() { return Subject().ActiveEdit().Text(); }
  std::string Formatted(Date date, std::string_view format) {
    return Tracer().Conversions().Format(date, format).value;
  }

  std::shared_ptr<DesktopDriver> DriverInLocale(std::string_view name) {
    const auto driver = TestDriverInLocale(name);
    return driver ? driver : TestDriver();
  }
};

// Tests of the month view, which reads its month in the order of the locale: all of them are in en-US.
class FlatCalendarTest : public CalendarTest {
 protected:
  std::shared_ptr<DesktopDriver> MakeDriver() override { return DriverInLocale("en-US"); }
  void SetUp() override {
    CalendarTest::SetUp();
    if (Formatted(kMay31, "") != "5/31/2024" || Formatted(kMay31, "mmmm") != "May") {
      GTEST_SKIP() << "the user's locale is not en-US, and there is no other";
    }
  }

  const MonthPanel& Months() { return *Subject().Months(); }

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
