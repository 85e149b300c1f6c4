#include <cmath>
#include <cstdio>
#include <limits>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/frame/variant.h>

namespace levelwidgets {

namespace {

template <typename... Functions>
struct Overload : Functions... {
  using Functions::operator()...;
};
template <typename... Functions>
Overload(Functions...) -> Overload<Functions...>;

// For messages: the same in every locale.
std::string Rendered(double number, int digits) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.*G", digits, number);
  return buffer;
}
constexpr int kSingleDigits = 7;
constexpr int kDoubleDigits = 15;

bool IsNumber(const Variant& value) {
  return value.Type() >= VariantType::kBoolean && value.Type() <= VariantType::kDouble;
}

template <typename Integer>
Integer ToInteger(const Variant& value) {
  const double whole = std::nearbyint(ToDouble(value));
  if (!(whole >= std::numeric_limits<Integer>::min() && whole <= std::numeric_limits<Integer>::max())) {
    throw Error(kOverflow);
  }
  return static_cast<Integer>(whole);
}

}  // namespace

std::string_view NameOf(VariantType type) {
  switch (type) {
    case VariantType::kEmpty: return "Empty";
    case VariantType::kNull: return "Null";
    case VariantType::kBoolean: return "Boolean";
    case VariantType::kInt16: return "Integer";
    case VariantType::kInt32: return "Long";
    case VariantType::kSingle: return "Single";
    case VariantType::kDouble: return "Double";
    case VariantType::kDate: return "Date";
    case VariantType::kString: return "String";
    case VariantType::kFont: return "Font";
    case VariantType::kObject: return "Object";
  }
  return "Unknown";
}

bool operator==(const Variant& a, const Variant& b) {
  if (IsNumber(a) && IsNumber(b)) return ToDouble(a) == ToDouble(b);
  if (a.Type() != b.Type()) return false;
  if (a.Type() == VariantType::kFont) {
    const auto& font_a = std::get<FontRef>(a.Get());
    const auto& font_b = std::get<FontRef>(b.Get());
    if (!font_a || !font_b) return font_a == font_b;
    return font_a->Description() == font_b->Description();
  }
  return a.value_ == b.value_;
}

bool ToBoolean(const Variant& value) { return ToDouble(value) != 0; }

std::int16_t ToInt16(const Variant& value) { return ToInteger<std::int16_t>(value); }
std::int32_t ToInt32(const Variant& value) { return ToInteger<std::int32_t>(value); }

float ToSingle(const Variant& value) {
  const double number = ToDouble(value);
  if (std::fabs(number) > static_cast<double>(std::numeric_limits<float>::max())) throw Error(kOverflow);
  return static_cast<float>(number);
}

double ToDouble(const Variant& value) {
  return std::visit(Overload{[](Empty) { return 0.0; }, [](bool truth) { return truth ? -1.0 : 0.0; },
                             [](std::int16_t number) { return static_cast<double>(number); },
                             [](std::int32_t number) { return static_cast<double>(number); },
                             [](float number) { return static_cast<double>(number); },
                             [](double number) { return number; }, [](Date date) { return date.days; },
                             [](const auto&) -> double { throw Error(kTypeMismatch); }},
                    value.Get());
}

std::string ToText(const Variant& value) {
  if (value.IsEmpty()) return {};
  if (const auto* text = std::get_if<std::string>(&value.Get())) return *text;
  throw Error(kTypeMismatch);
}

FontRef ToFont(const Variant& value) {
  FontRef font;
  if (const FontRef* held = std::get_if<FontRef>(&value.Get())) font = *held;
  if (const ObjectRef* object = std::get_if<ObjectRef>(&value.Get())) {
    font = std::dynamic_pointer_cast<Font>(*object);
  }
  if (!font) throw Error(kTypeMismatch);
  return font;
}

Date ToDate(const Variant& value) {
  if (const Date* date = std::get_if<Date>(&value.Get())) return *date;
  return {ToDouble(value)};
}

std::string Describe(const Variant& value) {
  return std::visit(
      Overload{[](Empty) { return std::string("Empty"); }, [](Null) { return std::string("Null"); },
               [](bool truth) { return std::string(truth ? "True" : "False"); },
               [](std::int16_t number) { return std::to_string(number); },
               [](std::int32_t number) { return std::to_string(number); },
               [](float number) { return Rendered(number, kSingleDigits); },
               [](double number) { return Rendered(number, kDoubleDigits); },
               [](Date date) { return Rendered(date.days, kDoubleDigits); },
               [](const std::string& text) { return '"' + text + '"'; },
               [](const FontRef& font) {
                 if (!font) return std::string("no font");
                 return font->Description().name + " " + Rendered(font->Description().size, kDoubleDigits);
               },
               [](const ObjectRef&) { return std::string("an object"); }},
      value.Get());
}

}  // namespace levelwidgets
