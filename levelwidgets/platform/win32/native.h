// Handles as the system's types. Names no type of the system, so that any file may include it.
#pragma once

#include <cstdint>

#include <levelwidgets/platform/types.h>

namespace levelwidgets::win32 {

// Handles of 64-bit Windows have 32 significant bits and are widened by their sign.
template <typename Native, typename Tag>
Native ToNative(Handle<Tag> handle) {
  return reinterpret_cast<Native>(static_cast<std::intptr_t>(static_cast<std::int32_t>(handle.value)));
}

template <typename SeamHandle, typename Native>
SeamHandle FromNative(Native* native) {
  return {static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(native))};
}

template <typename NativeRect>
NativeRect ToNative(const PixelRect& rect) {
  return {rect.left, rect.top, rect.right, rect.bottom};
}

template <typename NativeRect>
PixelRect FromNativeRect(const NativeRect& rect) {
  return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
          static_cast<int>(rect.bottom)};
}

template <typename NativePoint>
PixelPoint FromNativePoint(const NativePoint& point) {
  return {static_cast<int>(point.x), static_cast<int>(point.y)};
}

// A handle as a message parameter carries it.
inline std::intptr_t ToParameter(std::intptr_t handle_value) {
  return static_cast<std::int32_t>(handle_value);
}

}  // namespace levelwidgets::win32
