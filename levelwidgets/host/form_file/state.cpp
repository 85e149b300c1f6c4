#include <levelwidgets/host/form_file/state.h>

#include <algorithm>

namespace levelwidgets {

namespace {

std::vector<const PropertyInfo*> Writable(const ClassInfo& table) {
  std::vector<const PropertyInfo*> keys;
  for (const PropertyInfo& property : table.Properties()) {
    if (!property.ReadOnly()) keys.push_back(&property);
  }
  return keys;
}

// A font is shared and may change later; its copy does not.
Variant Frozen(Variant value) {
  const FontRef* font = std::get_if<FontRef>(&value.Get());
  return font && *font ? Variant(MakeFont((*font)->Description())) : value;
}

std::vector<Variant> ValuesOf(const Object& object, const std::vector<const PropertyInfo*>& keys) {
  std::vector<Variant> values;
  values.reserve(keys.size());
  for (const PropertyInfo* key : keys) values.push_back(Frozen(key->get(object)));
  return values;
}

// A form that was not placed has no place to keep.
bool IsUnset(const Form& form, MemberFlags key) {
  return (Has(key, MemberFlags::kLeft) && !form.LeftIsSet()) ||
         (Has(key, MemberFlags::kTop) && !form.TopIsSet());
}

std::vector<Variant> ValuesOf(const Form& form) {
  std::vector<Variant> values = ValuesOf(form, FormKeys());
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (IsUnset(form, FormKeys()[i]->flags)) values[i] = {};
  }
  return values;
}

bool IsFont(const PropertyBag::Entry& entry) { return entry.value.Type() == VariantType::kFont; }

PropertyBag Frozen(PropertyBag bag) {
  if (std::ranges::none_of(bag.Entries(), IsFont)) return bag;
  PropertyBag frozen;
  for (const auto& [name, value] : bag.Entries()) frozen.WriteProperty(name, Frozen(value), {});
  return frozen;
}

}  // namespace

const std::vector<const PropertyInfo*>& FormKeys() {
  static const std::vector<const PropertyInfo*> keys = Writable(Form::Table());
  return keys;
}

const std::vector<const PropertyInfo*>& PlacementKeys() {
  static const std::vector<const PropertyInfo*> keys = Writable(HostedControl::Table());
  return keys;
}

FormState StateOf(const Form& form) {
  FormState state{form.Name(), ValuesOf(form), {}};
  state.controls.reserve(form.Controls().size());
  for (const auto& control : form.Controls()) {
    state.controls.push_back({&control->ControlClass(), control->Name(), ValuesOf(*control, PlacementKeys()),
                              Frozen(control->Properties())});
  }
  return state;
}

Variant FormDefault(const PropertyInfo& key) { return key.defaults.when_read.Value(); }

Variant PlacementDefault(const PropertyInfo& key, const ClassInfo& control_class, std::size_t position) {
  if (Has(key.flags, MemberFlags::kWidth)) return control_class.DefaultSize().width;
  if (Has(key.flags, MemberFlags::kHeight)) return control_class.DefaultSize().height;
  if (key.name == "TabIndex") return static_cast<std::int32_t>(position);
  return key.defaults.when_read.Value();
}

}  // namespace levelwidgets
