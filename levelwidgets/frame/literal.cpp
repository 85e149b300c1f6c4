#include <levelwidgets/frame/literal.h>

namespace levelwidgets {

Variant Literal::Value() const {
  switch (type_) {
    case VariantType::kNull: return Null{};
    case VariantType::kBoolean: return number_ != 0;
    case VariantType::kInt16: return static_cast<std::int16_t>(number_);
    case VariantType::kInt32: return static_cast<std::int32_t>(number_);
    case VariantType::kSingle: return static_cast<float>(number_);
    case VariantType::kDouble: return number_;
    case VariantType::kDate: return Date{number_};
    case VariantType::kString: return text_;
    case VariantType::kFont: return MakeFont();
    default: return {};
  }
}

}  // namespace levelwidgets
