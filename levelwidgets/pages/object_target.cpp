#include <levelwidgets/pages/object_target.h>

#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/frame/error.h>

namespace levelwidgets {

Variant ObjectTarget::Get(std::string_view property, std::span<const Variant> indices) {
  const ObjectRef keep = object_;
  return indices.empty() ? GetByName(*keep, property) : GetIndexedByName(*keep, property, indices, texts_);
}

void ObjectTarget::Set(std::string_view property, std::span<const Variant> indices, const Variant& value) {
  const ObjectRef keep = object_;
  if (indices.empty()) return SetByName(*keep, property, value, texts_);
  SetIndexedByName(*keep, property, indices, value, texts_);
}

Variant ObjectTarget::Call(std::string_view method, std::span<const Variant> arguments) {
  const ObjectRef keep = object_;
  return InvokeByName(*keep, method, arguments, texts_);
}

PageTargetRef ObjectTarget::Inner(std::string_view property, std::span<const Variant> indices) {
  const Variant value = Get(property, indices);
  const ObjectRef* const object = std::get_if<ObjectRef>(&value.Get());
  if (!object || !*object) {
    throw Error(kTypeMismatch, object_->Class().QualifiedName(),
                std::string(object_->Class().Name()) + "." + std::string(property) + " is no object");
  }
  return std::make_shared<ObjectTarget>(*object, texts_);
}

}  // namespace levelwidgets
