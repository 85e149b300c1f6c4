#include <charconv>
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

std::string TextOf(double number) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.15G", number);
  return buffer;
}

double NumberOf(const std::string& text) {
  const auto first = text.find_first_not_of(" \t");
  const auto last = text.find_last_not_of(" \t");
  if (first == std::string::npos) throw Error(kTypeMismatch);
  const char* begin = text.data() + first + (text[first] == '+' ? 1 : 0);
  const char* end = text.data() + last + 1;
  double number = 0;
  const auto [stop, status] = std::from_chars(begin, end, number);
  if (status == std::errc::result_out_of_range) throw Error(kOverflow);
  if (status != std::errc() || stop != end || !std::isfinite(number)) throw Error(kTypeMismatch);
  return number;
}

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

bool ToBoolean(const Variant& value) {
  if (value.Type() == VariantType::kString) {
    const std::string& text = std::get<std::string>(value.Get());
    if (text == "True" || text == "true") return true;
    if (text == "False" || text == "false") return false;
  }
  return ToDouble(value) != 0;
}

std::int16_t ToInt16(const Variant& value) { return ToInteger<std::int16_t>(value); }
std::int32_t ToInt32(const Variant& value) { return ToInteger<std::int32_t>(value); }

float ToSingle(const Variant& value) {
  const double number = ToDouble(value);
  if (std::fabs(number) > static_cast<double>(std::numeric_limits<float>::max())) throw Error(kOverflow);
  return static_cast<float>(number);
}

double ToDouble(const Variant& value) {
  return std::visit(
      Overload{[](Empty) { return 0.0; }, [](bool truth) { return truth ? -1.0 : 0.0; },
               [](std::int16_t number) { return static_cast<double>(number); },
               [](std::int32_t number) { return static_cast<double>(number); },
               [](float number) { return static_cast<double>(number); }, [](double number) { return number; },
               [](Date date) { return date.days; }, [](const std::string& text) { return NumberOf(text); },
               [](const auto&) -> double { throw Error(kTypeMismatch); }},
      value.Get());
}

std::string ToText(const Variant& value) {
  return std::visit(
      Overload{[](Empty) { return std::string(); },
               [](bool truth) { return std::string(truth ? "True" : "False"); },
               [](std::int16_t number) { return std::to_string(number); },
               [](std::int32_t number) { return std::to_string(number); },
               [](float number) {
                 char buffer[32];
                 std::snprintf(buffer, sizeof buffer, "%.7G", static_cast<double>(number));
                 return std::string(buffer);
               },
               [](double number) { return TextOf(number); }, [](Date date) { return TextOf(date.days); },
               [](const std::string& text) { return text; },
               [](const auto&) -> std::string { throw Error(kTypeMismatch); }},
      value.Get());
}

FontRef ToFont(const Variant& value) {
  const FontRef* font = std::get_if<FontRef>(&value.Get());
  if (!font || !*font) throw Error(kTypeMismatch);
  return *font;
}

Date ToDate(const Variant& value) {
  if (const Date* date = std::get_if<Date>(&value.Get())) return *date;
  return {ToDouble(value)};
}

Variant ConvertTo(VariantType type, Variant value) {
  if (value.Type() == type || type == VariantType::kEmpty) return value;
  switch (type) {
    case VariantType::kBoolean: return ToBoolean(value);
    case VariantType::kInt16: return ToInt16(value);
    case VariantType::kInt32: return ToInt32(value);
    case VariantType::kSingle: return ToSingle(value);
    case VariantType::kDouble: return ToDouble(value);
    case VariantType::kDate: return ToDate(value);
    case VariantType::kString: return ToText(value);
    case VariantType::kFont: return ToFont(value);
    default: throw Error(kTypeMismatch);
  }
}

std::string Describe(const Variant& value) {
  switch (value.Type()) {
    case VariantType::kEmpty: return "Empty";
    case VariantType::kNull: return "Null";
    case VariantType::kString: return '"' + ToText(value) + '"';
    case VariantType::kFont: {
      const FontRef& font = std::get<FontRef>(value.Get());
      return font ? font->Description().name + " " + TextOf(font->Description().size) : "no font";
    }
    case VariantType::kObject: return "an object";
    default: return ToText(value);
  }
}

}  // namespace levelwidgets
