// What the values of a member are.
#pragma once

#include <concepts>
#include <memory>
#include <span>
#include <string_view>
#include <type_traits>

#include <levelwidgets/frame/object.h>
#include <levelwidgets/frame/variant.h>

namespace levelwidgets {

class ClassInfo;

struct EnumerationItem {
  std::string_view name;
  std::int32_t value;
};

struct EnumerationInfo {
  std::string_view name;
  std::span<const EnumerationItem> items;
};

// Specialised beside each public enumeration, whose name and items it is.
template <typename E>
inline constexpr EnumerationInfo kEnumerationOf{};

enum class TypeKind : std::uint8_t {
  kNone,         // no value: the result of a method that returns nothing
  kAny,          // a value of any type
  kPlain,        // exactly what the VariantType says
  kColor,        // 32 bits, without a sign
  kHandle,       // 32 bits, without a sign
  kEnumeration,  // 32 bits: mostly one of the named numbers
  kFont,
  kObject,  // of one class, or of any
};

// Constant data, like everything in a class table.
struct MemberType {
  TypeKind kind = TypeKind::kNone;
  VariantType type = VariantType::kEmpty;
  const EnumerationInfo* enumeration = nullptr;  // of an enumeration
  // Of a font and an object; null for objects of any class. A function, because tables refer to each other.
  const ClassInfo& (*object_class)() = nullptr;

  // "Color", "Long", "ksxAlignmentConstants", a class; "" for none.
  std::string_view Name() const;
  bool IsUnsigned() const { return kind == TypeKind::kColor || kind == TypeKind::kHandle; }
};

namespace table {

template <typename T>
struct IsObjectPointer : std::false_type {};
template <typename T>
struct IsObjectPointer<std::shared_ptr<T>> : std::is_base_of<Object, T> {};
// A shared pointer to an object with a table.
template <typename T>
concept ObjectPointer = IsObjectPointer<T>::value;

// Of the types whose values are exactly what the VariantType says.
template <typename T>
constexpr VariantType PlainTypeOf() {
  if constexpr (std::same_as<T, bool>) return VariantType::kBoolean;
  if constexpr (std::same_as<T, std::int16_t>) return VariantType::kInt16;
  if constexpr (std::same_as<T, std::int32_t>) return VariantType::kInt32;
  if constexpr (std::same_as<T, float> || std::same_as<T, Twips>) return VariantType::kSingle;
  if constexpr (std::same_as<T, double>) return VariantType::kDouble;
  if constexpr (std::same_as<T, Date>) return VariantType::kDate;
  if constexpr (std::same_as<T, std::string> || std::same_as<T, std::string_view>) {
    return VariantType::kString;
  }
  return VariantType::kEmpty;
}

}  // namespace table

// The type of a member as its table shows it.
template <typename Declared>
constexpr MemberType MemberTypeOf() {
  using T = std::remove_cvref_t<Declared>;
  if constexpr (std::is_void_v<T>) {
    return {};
  } else if constexpr (std::is_enum_v<T>) {
    static_assert(!kEnumerationOf<T>.name.empty(), "specialise kEnumerationOf beside the enumeration");
    return {TypeKind::kEnumeration, VariantType::kInt32, &kEnumerationOf<T>};
  } else if constexpr (std::same_as<T, Color>) {
    return {TypeKind::kColor, VariantType::kInt32};
  } else if constexpr (std::same_as<T, WindowHandle>) {
    return {TypeKind::kHandle, VariantType::kInt32};
  } else if constexpr (std::same_as<T, Variant>) {
    return {TypeKind::kAny, VariantType::kEmpty};
  } else if constexpr (std::same_as<T, FontRef>) {
    return {TypeKind::kFont, VariantType::kFont, nullptr, &Font::Table};
  } else if constexpr (std::same_as<T, ObjectRef>) {
    return {TypeKind::kObject, VariantType::kObject};
  } else if constexpr (table::ObjectPointer<T>) {
    return {TypeKind::kObject, VariantType::kObject, nullptr, &T::element_type::Table};
  } else {
    constexpr VariantType type = table::PlainTypeOf<T>();
    static_assert(type != VariantType::kEmpty, "no value of a member has this type");
    return {TypeKind::kPlain, type};
  }
}

}  // namespace levelwidgets
