#include <levelwidgets/controls/grid/ksx_edit_type.h>

namespace levelwidgets {

template <>
const EnumerationInfo& EnumerationOf<ksxEditTypeConstants>() {
  static const EnumerationInfo info{"ksxEditTypeConstants",
                                    {{"ksxEditNone", ksxEditNone},
                                     {"ksxEditText", ksxEditText},
                                     {"ksxEditCalculator", ksxEditCalculator},
                                     {"ksxEditCalendar", ksxEditCalendar},
                                     {"ksxEditDropDown", ksxEditDropDown}}};
  return info;
}

}  // namespace levelwidgets
