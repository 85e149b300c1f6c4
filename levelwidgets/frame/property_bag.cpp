#include <algorithm>

#include <levelwidgets/frame/property_bag.h>

namespace levelwidgets {

const Variant* PropertyBag::Find(std::string_view name) const {
  const auto found = std::ranges::find(entries_, name, &Entry::name);
  return found == entries_.end() ? nullptr : &found->value;
}

Variant PropertyBag::ReadProperty(std::string_view name, const Variant& default_value) const {
  const Variant* saved = Find(name);
  return saved ? *saved : default_value;
}

void PropertyBag::WriteProperty(std::string_view name, const Variant& value, const Variant& default_value) {
  std::erase_if(entries_, [name](const Entry& entry) { return entry.name == name; });
  if (!(value == default_value)) entries_.push_back({std::string(name), value});
}

}  // namespace levelwidgets
