// How a grid is said to look.
#pragma once

#include <levelwidgets/frame/member_type.h>

namespace levelwidgets {

enum ksxAppearanceConstants : std::int32_t { ksxFlat = 0, ksx3D = 1 };

inline constexpr EnumerationItem kAppearances[] = {{"ksxFlat", ksxFlat}, {"ksx3D", ksx3D}};
template <>
inline constexpr EnumerationInfo kEnumerationOf<ksxAppearanceConstants>{"ksxAppearanceConstants",
                                                                        kAppearances};

}  // namespace levelwidgets
