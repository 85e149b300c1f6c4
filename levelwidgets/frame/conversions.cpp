#include <levelwidgets/frame/conversions.h>

namespace levelwidgets {

namespace {

struct ToPlatform {
  ConversionValue operator()(Empty) const { return EmptyValue{}; }
  ConversionValue operator()(Null) const { return NullValue{}; }
  ConversionValue operator()(const std::string& text) const { return std::string_view(text); }
  ConversionValue operator()(const FontRef&) const { throw Error(kTypeMismatch); }
  ConversionValue operator()(const ObjectRef&) const { throw Error(kTypeMismatch); }
  template <typename T>
  ConversionValue operator()(T number) const {
    return number;
  }
};

ConversionApi& Needed(const TextConversions& texts) {
  if (ConversionApi* api = texts.Get()) return *api;
  throw Error(kTypeMismatch);
}

// A text as a number, a boolean or a date; what a number becomes in its type is the same for all numbers.
Variant FromText(VariantType type, const std::string& text, ConversionApi& conversions) {
  switch (type) {
    case VariantType::kBoolean: return ResultOf(conversions.ToBoolean(text));
    case VariantType::kDate: return ResultOf(conversions.ToDate(text));
    default: return ResultOf(conversions.ToDouble(text));
  }
}

bool IsScalar(VariantType type) { return type >= VariantType::kBoolean && type <= VariantType::kDate; }

// Neither is a text.
Variant WithoutText(VariantType type, const Variant& value) {
  switch (type) {
    case VariantType::kBoolean: return ToBoolean(value);
    case VariantType::kInt16: return ToInt16(value);
    case VariantType::kInt32: return ToInt32(value);
    case VariantType::kSingle: return ToSingle(value);
    case VariantType::kDouble: return ToDouble(value);
    case VariantType::kDate: return ToDate(value);
    case VariantType::kString: return ToText(value);
    case VariantType::kFont: return ToFont(value);
    case VariantType::kObject:
      if (value.Type() == VariantType::kFont) return ObjectRef(std::get<FontRef>(value.Get()));
      throw Error(kTypeMismatch);
    default: throw Error(kTypeMismatch);
  }
}

}  // namespace

Variant ConvertTo(VariantType type, Variant value, const TextConversions& texts) {
  if (value.Type() == type || type == VariantType::kEmpty) return value;
  if (value.Type() == VariantType::kString && IsScalar(type)) {
    value = FromText(type, std::get<std::string>(value.Get()), Needed(texts));
  } else if (IsScalar(value.Type()) && type == VariantType::kString) {
    return ResultOf(Needed(texts).ToText(ToConversionValue(value)));
  }
  return value.Type() == type ? value : WithoutText(type, value);
}

ConversionValue ToConversionValue(const Variant& value) { return std::visit(ToPlatform(), value.Get()); }

}  // namespace levelwidgets
