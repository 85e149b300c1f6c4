// An object of this library as what a property page reads and writes.
#pragma once

#include <levelwidgets/frame/object.h>
#include <levelwidgets/frame/text_conversions.h>
#include <levelwidgets/pages/page_target.h>

namespace levelwidgets {

// By the rows of the object's class table. `texts` convert between texts and other values.
class ObjectTarget : public PageTarget {
 public:
  ObjectTarget(ObjectRef object, TextConversions texts)
      : object_(std::move(object)), texts_(std::move(texts)) {}

  Variant Get(std::string_view property, std::span<const Variant> indices) override;
  void Set(std::string_view property, std::span<const Variant> indices, const Variant& value) override;
  Variant Call(std::string_view method, std::span<const Variant> arguments) override;
  PageTargetRef Inner(std::string_view property, std::span<const Variant> indices) override;

 private:
  const ObjectRef object_;
  const TextConversions texts_;
};

}  // namespace levelwidgets
