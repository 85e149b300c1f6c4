// Any object of the component interface as what a property page reads and writes.
#pragma once

#include <memory>
#include <string_view>

#include <levelwidgets/activex/com/com_ptr.h>
#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/activex/object/runtime.h>
#include <levelwidgets/pages/page_target.h>

namespace levelwidgets::activex {

// By late binding: whoever made the object, it has members of these names or it has not. What the object
// answers is raised as an error with the object's own number, source and description.
class DispatchTarget : public PageTarget {
 public:
  DispatchTarget(std::shared_ptr<Runtime> runtime, ComPtr<IDispatch> object)
      : runtime_(std::move(runtime)), object_(std::move(object)) {}

  Variant Get(std::string_view property, std::span<const Variant> indices) override;
  void Set(std::string_view property, std::span<const Variant> indices, const Variant& value) override;
  Variant Call(std::string_view method, std::span<const Variant> arguments) override;
  PageTargetRef Inner(std::string_view property, std::span<const Variant> indices) override;

  // The object's own number of the member; DISPID_UNKNOWN when it has none of that name.
  DISPID NumberOf(std::string_view member) const;

 private:
  void Invoke(std::string_view member, WORD flags, std::span<const Variant> arguments, const Variant* value,
              VARIANT* result);

  const std::shared_ptr<Runtime> runtime_;
  const ComPtr<IDispatch> object_;
};

}  // namespace levelwidgets::activex
