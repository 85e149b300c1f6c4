#include <levelwidgets/host/property_frame/hosted_target.h>

#include <levelwidgets/pages/object_target.h>

namespace levelwidgets {

namespace {

// An object of the control, as long as the control is there.
class PartTarget : public PageTarget {
 public:
  PartTarget(HostedTarget control, PageTargetRef part)
      : control_(std::move(control)), part_(std::move(part)) {}

  Variant Get(std::string_view property, std::span<const Variant> indices) override {
    return Present().Get(property, indices);
  }
  void Set(std::string_view property, std::span<const Variant> indices, const Variant& value) override {
    Present().Set(property, indices, value);
  }
  Variant Call(std::string_view method, std::span<const Variant> arguments) override {
    return Present().Call(method, arguments);
  }
  PageTargetRef Inner(std::string_view property, std::span<const Variant> indices) override {
    return std::make_shared<PartTarget>(control_, Present().Inner(property, indices));
  }

 private:
  PageTarget& Present() const {
    control_.Present();
    return *part_;
  }

  const HostedTarget control_;
  const PageTargetRef part_;
};

}  // namespace

PageTargetRef HostedTarget::Present() const {
  const auto hosted = control_.lock();
  const auto control = hosted ? hosted->GetControl() : nullptr;
  if (!control) throw Error(kInvalidCall, class_.QualifiedName(), name_ + " no longer exists");
  return std::make_shared<ObjectTarget>(control, hosted->GetPlatform().Conversions());
}

Variant HostedTarget::Get(std::string_view property, std::span<const Variant> indices) {
  return Present()->Get(property, indices);
}

void HostedTarget::Set(std::string_view property, std::span<const Variant> indices, const Variant& value) {
  Present()->Set(property, indices, value);
}

Variant HostedTarget::Call(std::string_view method, std::span<const Variant> arguments) {
  return Present()->Call(method, arguments);
}

PageTargetRef HostedTarget::Inner(std::string_view property, std::span<const Variant> indices) {
  return std::make_shared<PartTarget>(*this, Present()->Inner(property, indices));
}

}  // namespace levelwidgets
