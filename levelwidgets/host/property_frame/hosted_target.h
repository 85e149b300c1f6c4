// A control of a form as what property pages read and write.
#pragma once

#include <memory>
#include <string>

#include <levelwidgets/host/form/hosted_control.h>
#include <levelwidgets/pages/page_target.h>

namespace levelwidgets {

// Does not keep the control: each operation, those of its inner objects included, raises 5 once it has been
// removed, or its form closed.
class HostedTarget : public PageTarget {
 public:
  explicit HostedTarget(const std::shared_ptr<HostedControl>& control)
      : control_(control), class_(control->ControlClass()), name_(control->Name()) {}

  Variant Get(std::string_view property, std::span<const Variant> indices) override;
  void Set(std::string_view property, std::span<const Variant> indices, const Variant& value) override;
  Variant Call(std::string_view method, std::span<const Variant> arguments) override;
  PageTargetRef Inner(std::string_view property, std::span<const Variant> indices) override;

  // The control as it is now; raises 5 when it is no longer there.
  PageTargetRef Present() const;

 private:
  const std::weak_ptr<HostedControl> control_;
  const ClassInfo& class_;
  const std::string name_;
};

}  // namespace levelwidgets
