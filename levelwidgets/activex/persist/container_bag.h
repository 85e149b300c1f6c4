// Saved properties in a container's property bag.
#pragma once

#include <map>

#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/activex/object/runtime.h>
#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/frame/property_bag.h>

namespace levelwidgets::activex {

// Asks the container for each name when the control wants it. A name that it does not know, or fails for, was
// not saved.
class ContainerBag : public PropertyBag {
 public:
  ContainerBag(Runtime& runtime, const ClassInfo& info, IPropertyBag& bag, IErrorLog* log)
      : runtime_(runtime), info_(info), bag_(&bag), log_(log) {}

  const Variant* Find(std::string_view name) const override;

 private:
  Runtime& runtime_;
  const ClassInfo& info_;
  ComPtr<IPropertyBag> bag_;
  ComPtr<IErrorLog> log_;
  mutable std::map<std::string, Variant, std::less<>> found_;
};

// Raises what the container fails with.
void WriteTo(Runtime& runtime, IPropertyBag& container, const PropertyBag& bag);

}  // namespace levelwidgets::activex
