// What containers want to know of a control before they make it: flags of the component interface (OLEMISC_).
#pragma once

#include <cstdint>
#include <string_view>

namespace levelwidgets {

inline constexpr std::uint32_t kMiscRecomposeOnResize = 0x1;
inline constexpr std::uint32_t kMiscCantLinkInside = 0x10;
inline constexpr std::uint32_t kMiscInsideOut = 0x80;
inline constexpr std::uint32_t kMiscActivateWhenVisible = 0x100;
inline constexpr std::uint32_t kMiscActsLikeButton = 0x1000;
inline constexpr std::uint32_t kMiscSetClientSiteFirst = 0x20000;

// Of every control; the default or cancel button of a container is one that acts like a button.
constexpr std::uint32_t MiscStatusOf(std::string_view class_name) {
  constexpr std::uint32_t kControl = kMiscRecomposeOnResize | kMiscCantLinkInside | kMiscInsideOut |
                                     kMiscActivateWhenVisible | kMiscSetClientSiteFirst;
  return class_name == "FlatButton" ? kControl | kMiscActsLikeButton : kControl;
}

}  // namespace levelwidgets
