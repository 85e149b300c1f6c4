// Values of members as variants, and back.
#pragma once

#include <string>
#include <string_view>

#include <levelwidgets/frame/member_type.h>

namespace levelwidgets::table {

// Functions of their own, so that the many small ones made for the rows only call them.

Variant Box(bool value);
Variant Box(std::int16_t value);
Variant Box(std::int32_t value);
Variant Box(float value);
Variant Box(double value);
Variant Box(Date value);
Variant Box(std::string value);
Variant Box(std::string_view value);
Variant Box(FontRef value);
Variant Box(ObjectRef value);
inline Variant Box(const Variant& value) { return value; }
inline Variant Box(Color value) { return Box(value.value); }
inline Variant Box(Twips value) { return Box(value.value); }
inline Variant Box(WindowHandle value) { return Box(static_cast<std::int32_t>(value.value)); }
template <typename E>
requires std::is_enum_v<E> Variant Box(E value) { return Box(static_cast<std::int32_t>(value)); }
template <ObjectPointer T>
Variant Box(const T& value) {
  return Box(ObjectRef(value));
}

// What `value` holds. Raises 13 for a value of another type.
template <typename T>
const T& Held(const Variant& value);
extern template const bool& Held(const Variant&);
extern template const std::int16_t& Held(const Variant&);
extern template const std::int32_t& Held(const Variant&);
extern template const float& Held(const Variant&);
extern template const double& Held(const Variant&);
extern template const Date& Held(const Variant&);
extern template const std::string& Held(const Variant&);
extern template const FontRef& Held(const Variant&);
extern template const ObjectRef& Held(const Variant&);

// `value` has been converted to the type that MemberTypeOf<T> names.
template <typename T>
T Unbox(const Variant& value) {
  if constexpr (std::is_enum_v<T>) {
    return static_cast<T>(Held<std::int32_t>(value));
  } else if constexpr (std::same_as<T, Color>) {
    return Color(static_cast<std::uint32_t>(Held<std::int32_t>(value)));
  } else if constexpr (std::same_as<T, WindowHandle>) {
    return {static_cast<std::uint32_t>(Held<std::int32_t>(value))};
  } else if constexpr (std::same_as<T, Twips>) {
    return Twips(Held<float>(value));
  } else if constexpr (std::same_as<T, Variant>) {
    return value;
  } else if constexpr (std::same_as<T, std::string_view>) {
    return Held<std::string>(value);
  } else if constexpr (ObjectPointer<T> && !std::same_as<T, FontRef>) {
    return std::static_pointer_cast<typename T::element_type>(Held<ObjectRef>(value));
  } else {
    return Held<T>(value);
  }
}

}  // namespace levelwidgets::table
