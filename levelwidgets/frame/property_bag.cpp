#include <levelwidgets/frame/property_bag.h>

namespace levelwidgets {

const Variant* PropertyBag::Find(std::string_view name) const {
  const auto found = positions_.find(name);
  return found == positions_.end() ? nullptr : &entries_[found->second].value;
}

Variant PropertyBag::ReadProperty(std::string_view name, const Variant& default_value) const {
  const Variant* saved = Find(name);
  return saved ? *saved : default_value;
}

void PropertyBag::WriteProperty(std::string_view name, const Variant& value, const Variant& default_value) {
  if (const auto found = positions_.find(name); found != positions_.end()) {
    const std::size_t removed = found->second;
    positions_.erase(found);
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(removed));
    for (std::size_t i = removed; i < entries_.size(); ++i) positions_.find(entries_[i].name)->second = i;
  }
  if (value == default_value) return;
  positions_.emplace(name, entries_.size());
  entries_.push_back({std::string(name), value});
}

}  // namespace levelwidgets
