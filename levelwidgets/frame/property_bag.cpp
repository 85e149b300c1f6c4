#include <levelwidgets/frame/property_bag.h>

#include <algorithm>

namespace levelwidgets {

// Past the last entry when the name is unknown.
std::size_t PropertyBag::PositionOf(std::string_view name) const {
  if (positions_.empty()) {
    return static_cast<std::size_t>(std::ranges::find(entries_, name, &Entry::name) - entries_.begin());
  }
  const auto found = positions_.find(name);
  return found == positions_.end() ? entries_.size() : found->second;
}

const Variant* PropertyBag::Find(std::string_view name) const {
  const std::size_t position = PositionOf(name);
  return position == entries_.size() ? nullptr : &entries_[position].value;
}

Variant PropertyBag::ReadProperty(std::string_view name, const Variant& default_value) const {
  const Variant* saved = Find(name);
  return saved ? *saved : default_value;
}

void PropertyBag::WriteProperty(std::string_view name, const Variant& value, const Variant& default_value) {
  if (const std::size_t position = PositionOf(name); position != entries_.size()) {
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(position));
    positions_.clear();
  }
  if (value == default_value) return;
  entries_.push_back({std::string(name), value});
  if (!positions_.empty()) {
    positions_.emplace(name, entries_.size() - 1);
  } else if (entries_.size() > kSearched) {
    List();
  }
}

void PropertyBag::List() {
  for (std::size_t i = 0; i < entries_.size(); ++i) positions_.emplace(entries_[i].name, i);
}

}  // namespace levelwidgets
