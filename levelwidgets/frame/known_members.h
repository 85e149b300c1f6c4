// Members of an object by their rows, for a caller that has looked a name up and keeps what it found.
#pragma once

#include <span>
#include <vector>

#include <levelwidgets/frame/class_info.h>

namespace levelwidgets {

// Each row is of the table of the object's class. Apart from the unknown name, errors are those of the
// functions by name in class_info.h, which call these.

// Whether the value is one of `type` as it is. Where all values of an access are, the row's own function may
// be called with them.
inline bool IsOfType(const MemberType& type, const Variant& value) {
  return type.kind == TypeKind::kAny || (type.kind != TypeKind::kObject && type.type == value.Type());
}

void SetKnown(Object& object, const PropertyInfo& property, Variant value, const TextConversions& texts = {});

// One value of an indexed property. `indices` are what they have been converted to afterwards.
Variant GetKnownAt(const Object& object, const PropertyInfo& property, std::span<Variant> indices,
                   const TextConversions& texts = {});
void SetKnownAt(Object& object, const PropertyInfo& property, std::span<Variant> indices, Variant value,
                const TextConversions& texts = {});

// As InvokeByReference.
Variant InvokeKnown(Object& object, const MethodInfo& method, std::vector<Variant>& arguments,
                    const TextConversions& texts = {});

}  // namespace levelwidgets
