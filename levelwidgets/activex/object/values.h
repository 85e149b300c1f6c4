// Values of the library and of the component interface.
#pragma once

#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/activex/object/runtime.h>
#include <levelwidgets/frame/member_type.h>
#include <levelwidgets/frame/variant.h>

namespace levelwidgets::activex {

// Frees what it holds.
class OwnedVariant : public VARIANT {
 public:
  OwnedVariant() : VARIANT{} {}
  ~OwnedVariant() { ::VariantClear(this); }
  OwnedVariant(const OwnedVariant&) = delete;
  OwnedVariant& operator=(const OwnedVariant&) = delete;
};

// Leaves `value` in `result`, which holds nothing. An object becomes its component object.
void ToComponent(Runtime& runtime, const Variant& value, VARIANT& result);

// A value of any number, text, date, boolean or object, by reference or not; one that was left out is empty.
// The value of another object's default property stands for that object. Raises 13 for what no member takes,
// arrays among them.
Variant FromComponent(Runtime& runtime, const VARIANT& value);

// The type in which an event hands over a value of `type`, also by reference.
VARTYPE TypeOf(const MemberType& type);
// Stores `value` where `target`, which is by reference, points. Does nothing for a target that is not; raises
// 13 for a value that does not convert to the target's type.
void StoreByReference(Runtime& runtime, const Variant& value, const VARIANT& target);

}  // namespace levelwidgets::activex
