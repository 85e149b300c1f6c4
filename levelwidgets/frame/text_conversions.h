// From a value of one type to another, texts included.
#pragma once

#include <functional>
#include <utility>

#include <levelwidgets/frame/variant.h>

namespace levelwidgets {

class ConversionApi;

// Which conversions there are between texts and other values: a platform's, one that is found when the first
// value needs it, or none; then a text is no number and a number no text (13). Everything that works by name
// takes them from its caller, whose locale it is.
class TextConversions {
 public:
  using Finder = std::function<ConversionApi&()>;

  TextConversions() = default;
  TextConversions(ConversionApi& platforms) : api_(&platforms) {}
  TextConversions(Finder find) : find_(std::move(find)) {}

  // Null for none.
  ConversionApi* Get() const { return api_ || !find_ ? api_ : &find_(); }

 private:
  ConversionApi* api_ = nullptr;
  Finder find_;
};

// `value` as one of `type`; kEmpty, the type of a property that takes any, leaves it as it is. Raises 13 or 6
// as the conversions of Variant do.
Variant ConvertTo(VariantType type, Variant value, const TextConversions& texts = {});

}  // namespace levelwidgets
