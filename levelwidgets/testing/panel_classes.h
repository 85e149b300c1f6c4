// The tests that run for each of the controls around an edit box with a panel of fixed size.
#pragma once

#include <levelwidgets/controls/calculator/flat_calculator.h>
#include <levelwidgets/controls/calendar/flat_calendar.h>
#include <levelwidgets/testing/panel_fixture.h>

namespace levelwidgets::testing {

struct ClassNames {
  template <typename T>
  static std::string GetName(int) {
    return std::string(T::Table().Name());
  }
};
using PanelClasses = ::testing::Types<FlatCalculator, FlatCalendar>;

}  // namespace levelwidgets::testing
