// Horizontal alignment of text, shared by several controls.
#pragma once

#include <levelwidgets/frame/member_type.h>
#include <levelwidgets/platform/constants.h>

namespace levelwidgets {

enum ksxAlignmentConstants : std::int32_t { ksxLeft = 0, ksxRight = 1, ksxCenter = 2 };

inline constexpr EnumerationItem kAlignments[] = {
    {"ksxLeft", ksxLeft}, {"ksxRight", ksxRight}, {"ksxCenter", ksxCenter}};
template <>
inline constexpr EnumerationInfo kEnumerationOf<ksxAlignmentConstants>{"ksxAlignmentConstants", kAlignments};

// The DrawTextA flag of an alignment; any value but ksxRight and ksxCenter draws left-aligned.
constexpr std::uint32_t DrawTextAlignment(ksxAlignmentConstants alignment) {
  switch (alignment) {
    case ksxCenter: return kDtCenter;
    case ksxRight: return kDtRight;
    default: return kDtLeft;
  }
}

}  // namespace levelwidgets
