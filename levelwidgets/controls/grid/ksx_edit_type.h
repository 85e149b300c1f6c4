// Which editor opens on a cell of a column.
#pragma once

#include <levelwidgets/frame/class_info.h>

namespace levelwidgets {

enum ksxEditTypeConstants : std::int32_t {
  ksxEditNone = 0,        // the cell cannot be edited
  ksxEditText = 1,        // a plain edit box
  ksxEditCalculator = 2,  // FlatCalculator
  ksxEditCalendar = 3,    // FlatCalendar
  ksxEditDropDown = 4     // FlatDropDown with the column's ValueList
};

template <>
const EnumerationInfo& EnumerationOf<ksxEditTypeConstants>();

}  // namespace levelwidgets
