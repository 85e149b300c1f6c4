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

}  // namespace

ConversionValue ToConversionValue(const Variant& value) { return std::visit(ToPlatform(), value.Get()); }

}  // namespace levelwidgets
