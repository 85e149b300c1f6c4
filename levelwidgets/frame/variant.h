// A value of any type that a property can hold.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include <levelwidgets/frame/font.h>
#include <levelwidgets/frame/units.h>
#include <levelwidgets/platform/types.h>

namespace levelwidgets {

class Object;
using ObjectRef = std::shared_ptr<Object>;

struct Empty {
  friend constexpr bool operator==(Empty, Empty) = default;
};
struct Null {
  friend constexpr bool operator==(Null, Null) = default;
};

// In the order of the alternatives of Variant::Value.
enum class VariantType {
  kEmpty,
  kNull,
  kBoolean,
  kInt16,
  kInt32,
  kSingle,
  kDouble,
  kDate,
  kString,
  kFont,
  kObject
};

std::string_view NameOf(VariantType type);

class Variant {
 public:
  using Value = std::variant<Empty, Null, bool, std::int16_t, std::int32_t, float, double, Date, std::string,
                             FontRef, ObjectRef>;

  Variant() = default;
  Variant(Null value) : value_(value) {}
  Variant(bool value) : value_(value) {}
  Variant(std::int16_t value) : value_(value) {}
  Variant(std::int32_t value) : value_(value) {}
  Variant(float value) : value_(value) {}
  Variant(double value) : value_(value) {}
  Variant(Date value) : value_(value) {}
  Variant(std::string value) : value_(std::move(value)) {}
  Variant(std::string_view value) : value_(std::string(value)) {}
  Variant(const char* value) : value_(std::string(value)) {}
  Variant(FontRef value) : value_(std::move(value)) {}
  Variant(ObjectRef value) : value_(std::move(value)) {}
  Variant(Color value) : value_(value.value) {}
  Variant(Twips value) : value_(value.value) {}
  Variant(WindowHandle value) : value_(static_cast<std::int32_t>(value.value)) {}

  VariantType Type() const { return static_cast<VariantType>(value_.index()); }
  bool IsEmpty() const { return Type() == VariantType::kEmpty; }
  bool IsNull() const { return Type() == VariantType::kNull; }
  const Value& Get() const { return value_; }

  // Equal when the types are equal and the values are, or both are numbers of the same value (booleans
  // count as -1 and 0). Fonts are equal when their descriptions are.
  friend bool operator==(const Variant& a, const Variant& b);

 private:
  Value value_;
};

// The value in another type, as far as no locale has a part in it: between numbers, booleans and dates. Each
// raises 13 (type mismatch) for what has no such value, a text among them, and 6 (overflow) for a number
// outside the type's range. Fractions are rounded to the nearest whole number, ties to even; true is -1;
// empty is 0, "" or false. Between texts and all others the platform converts: ConvertTo in
// frame/text_conversions.h.
bool ToBoolean(const Variant& value);
std::int16_t ToInt16(const Variant& value);
std::int32_t ToInt32(const Variant& value);
float ToSingle(const Variant& value);
double ToDouble(const Variant& value);
FontRef ToFont(const Variant& value);
Date ToDate(const Variant& value);
// Of texts and empty only.
std::string ToText(const Variant& value);

// A short rendering for messages, the same in every locale: "Save", 12.5, True, Null, Tahoma 8.25.
std::string Describe(const Variant& value);

}  // namespace levelwidgets
