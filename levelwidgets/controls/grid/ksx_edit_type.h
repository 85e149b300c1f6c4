// Which editor opens on a cell of a column.
#pragma once

#include <levelwidgets/frame/member_type.h>

namespace levelwidgets {

enum ksxEditTypeConstants : std::int32_t {
  ksxEditNone = 0,        // the cell cannot be edited
  ksxEditText = 1,        // a plain edit box
  ksxEditCalculator = 2,  // FlatCalculator
  ksxEditCalendar = 3,    // FlatCalendar
  ksxEditDropDown = 4     // FlatDropDown with the column's ValueList
};

inline constexpr EnumerationItem kEditTypes[] = {{"ksxEditNone", ksxEditNone},
                                                 {"ksxEditText", ksxEditText},
                                                 {"ksxEditCalculator", ksxEditCalculator},
                                                 {"ksxEditCalendar", ksxEditCalendar},
                                                 {"ksxEditDropDown", ksxEditDropDown}};
template <>
inline constexpr EnumerationInfo kEnumerationOf<ksxEditTypeConstants>{"ksxEditTypeConstants", kEditTypes};

}  // namespace levelwidgets
