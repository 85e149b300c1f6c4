#include <levelwidgets/frame/alignment.h>

namespace levelwidgets {

template <>
const EnumerationInfo& EnumerationOf<ksxAlignmentConstants>() {
  static const EnumerationInfo info{"ksxAlignmentConstants",
                                    {{"ksxLeft", ksxLeft}, {"ksxRight", ksxRight}, {"ksxCenter", ksxCenter}}};
  return info;
}

}  // namespace levelwidgets
