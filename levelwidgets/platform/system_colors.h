// The system's colours by their names, in the container's convention.
#pragma once

#include <levelwidgets/platform/types.h>

namespace levelwidgets {

inline constexpr Color kScrollTrack{0x80000000u};
inline constexpr Color kWindowBack{0x80000005u};
inline constexpr Color kWindowFrame{0x80000006u};
inline constexpr Color kWindowText{0x80000008u};
inline constexpr Color kHighlight{0x8000000Du};
inline constexpr Color kHighlightText{0x8000000Eu};
inline constexpr Color kButtonFace{0x8000000Fu};
inline constexpr Color kGrayText{0x80000011u};
inline constexpr Color kButtonText{0x80000012u};
inline constexpr Color kButtonHighlight{0x80000014u};

}  // namespace levelwidgets
