#include <levelwidgets/host/property_frame/hosted_target.h>

#include <levelwidgets/pages/object_target.h>

namespace levelwidgets {

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
  return Present()->Inner(property, indices);
}

}  // namespace levelwidgets
