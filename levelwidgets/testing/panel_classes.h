// The classes that the shared tests of controls with a panel run for.
#pragma once

#include <levelwidgets/controls/calculator/flat_calculator.h>
#include <levelwidgets/controls/calendar/flat_calendar.h>
#include <levelwidgets/controls/dropdown/flat_drop_down.h>
#include <levelwidgets/testing/panel_fixture.h>

namespace levelwidgets::testing {

struct ClassNames {
  template <typename T>
  static std::string GetName(int) {
    return std::string(T::Table().Name());
  }
};
using PanelClasses = ::testing::Types<FlatDropDown, FlatCalculator, FlatCalendar>;
// Those whose panel has a size of its own.
using FixedPanelClasses = ::testing::Types<FlatCalculator, FlatCalendar>;

}  // namespace levelwidgets::testing
