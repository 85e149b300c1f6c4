#include <algorithm>
#include <stdexcept>

#include <levelwidgets/frame/class_table.h>

namespace levelwidgets {

void ClassTable::AddEnumeration(const EnumerationInfo& enumeration) {
  if (std::ranges::find(info_.enumerations_, &enumeration) == info_.enumerations_.end()) {
    info_.enumerations_.push_back(&enumeration);
  }
}

PropertyInfo& ClassTable::AddDescribed(std::string name, TypeName type, PropertyOptions options) {
  PropertyInfo property;
  property.name = std::move(name);
  property.type = std::move(type);
  property.stored_as = options.stored_as.value_or(property.type.type);
  property.defaults = options.default_at ? Always(options.default_at(1)) : std::move(options.defaults);
  property.default_at = std::move(options.default_at);
  property.help = std::move(options.help);
  info_.properties_.push_back(std::move(property));
  return info_.properties_.back();
}

PropertyInfo& ClassTable::Existing(std::string_view name) {
  const auto property = std::ranges::find(info_.properties_, name, &PropertyInfo::name);
  if (property == info_.properties_.end()) throw std::logic_error("no property " + std::string(name));
  return *property;
}

ClassInfo ClassTable::Build() {
  for (const std::string& name : persisted_names_) {
    PropertyInfo& property = Existing(name);
    if (property.Indexed() && (property.indices.size() > 1 || !property.count || !property.set_at)) {
      throw std::logic_error("no indices to persist " + name + " by");
    }
    property.persisted = true;
    info_.persisted_.push_back(&property);
  }
  const std::string& default_member = info_.default_member_;
  if (!default_member.empty() && !info_.FindMethod(default_member)) Existing(default_member);
  return std::move(info_);
}

}  // namespace levelwidgets
