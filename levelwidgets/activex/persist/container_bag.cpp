#include <levelwidgets/activex/persist/container_bag.h>

#include <levelwidgets/activex/com/com_text.h>
#include <levelwidgets/activex/object/values.h>
#include <levelwidgets/frame/error.h>

namespace levelwidgets::activex {

namespace {

// The types to ask a container for, one after the other: what the property is saved as, then whatever there
// is.
std::vector<VARTYPE> WantedTypes(const ClassInfo& info, std::string_view name) {
  const PersistedKey key = info.FindPersisted(name);
  if (key.stored_as == VariantType::kFont) return {VT_DISPATCH, VT_UNKNOWN, VT_EMPTY};
  const VARTYPE type = TypeOf({TypeKind::kPlain, key.stored_as});
  if (type == VT_VARIANT) return {VT_EMPTY};
  return {type, VT_EMPTY};
}

}  // namespace

const Variant* ContainerBag::Find(std::string_view name) const {
  if (const auto known = found_.find(name); known != found_.end()) return &known->second;
  const OwnedText wide(name);
  for (const VARTYPE type : WantedTypes(info_, name)) {
    OwnedVariant value;
    value.vt = type;
    if (FAILED(bag_->Read(wide.Get(), &value, log_.Get())) || value.vt == VT_EMPTY) continue;
    const bool no_object = (value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN) && !value.punkVal;
    if (no_object) continue;
    return &found_.emplace(name, FromComponent(runtime_, value)).first->second;
  }
  return nullptr;
}

void WriteTo(Runtime& runtime, IPropertyBag& container, const PropertyBag& bag) {
  for (const PropertyBag::Entry& entry : bag.Entries()) {
    OwnedVariant value;
    ToComponent(runtime, entry.value, value);
    const HRESULT result = container.Write(OwnedText(entry.name).Get(), &value);
    if (FAILED(result))
      throw Error(result, "LevelWidgets", "The container did not save \"" + entry.name + "\"");
  }
}

}  // namespace levelwidgets::activex
