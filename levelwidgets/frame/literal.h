// Values in constant data, and the defaults of properties made of them.
#pragma once

#include <string_view>

#include <levelwidgets/frame/variant.h>

namespace levelwidgets {

class Literal {
 public:
  constexpr Literal() = default;  // empty
  constexpr Literal(Null) : type_(VariantType::kNull) {}
  constexpr Literal(bool value) : type_(VariantType::kBoolean), number_(value ? 1 : 0) {}
  constexpr Literal(std::int16_t value) : type_(VariantType::kInt16), number_(value) {}
  constexpr Literal(std::int32_t value) : type_(VariantType::kInt32), number_(value) {}
  constexpr Literal(float value) : type_(VariantType::kSingle), number_(static_cast<double>(value)) {}
  constexpr Literal(double value) : type_(VariantType::kDouble), number_(value) {}
  constexpr Literal(Date value) : type_(VariantType::kDate), number_(value.days) {}
  constexpr Literal(std::string_view value) : type_(VariantType::kString), text_(value) {}
  constexpr Literal(const char* value) : Literal(std::string_view(value)) {}
  constexpr Literal(Color value) : Literal(value.value) {}
  constexpr Literal(Twips value) : Literal(value.value) {}
  // A font as a new one is.
  static constexpr Literal NewFont() {
    Literal literal;
    literal.type_ = VariantType::kFont;
    return literal;
  }

  constexpr VariantType Type() const { return type_; }
  Variant Value() const;

 private:
  VariantType type_ = VariantType::kEmpty;
  double number_ = 0;  // holds every number of the types above exactly
  std::string_view text_;
};

// A property's default: a fixed value, or one that the container gives.
struct DefaultValue {
  enum class Kind : std::uint8_t {
    kNone,
    kFixed,
    kAmbientFont,
    kDisplayName,
    kAmbientBackColor,
    kAmbientForeColor
  };

  constexpr DefaultValue() = default;
  constexpr DefaultValue(Kind from) : kind(from) {}
  template <typename T>
  requires std::constructible_from<Literal, T>
  constexpr DefaultValue(T fixed) : kind(Kind::kFixed), literal(fixed) {}

  // Empty unless fixed.
  Variant Value() const { return literal.Value(); }

  Kind kind = Kind::kNone;
  Literal literal;
};
inline constexpr DefaultValue::Kind kAmbientFont = DefaultValue::Kind::kAmbientFont;
inline constexpr DefaultValue::Kind kDisplayName = DefaultValue::Kind::kDisplayName;
inline constexpr DefaultValue::Kind kAmbientBackColor = DefaultValue::Kind::kAmbientBackColor;
inline constexpr DefaultValue::Kind kAmbientForeColor = DefaultValue::Kind::kAmbientForeColor;

// The three defaults differ in places, on purpose.
struct Defaults {
  DefaultValue when_new;      // what a newly placed instance has
  DefaultValue when_read;     // what a loaded instance takes where nothing was saved
  DefaultValue when_written;  // the value that is not saved
};

constexpr Defaults Always(const DefaultValue& value) { return {value, value, value}; }
inline constexpr Defaults kNoDefault{};

}  // namespace levelwidgets
