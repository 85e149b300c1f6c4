#include <algorithm>
#include <stdexcept>

#include <levelwidgets/frame/class_table.h>

namespace levelwidgets {

void ClassTable::AddEnumeration(const EnumerationInfo& enumeration) {
  if (std::ranges::find(info_.enumerations_, &enumeration) == info_.enumerations_.end()) {
    info_.enumerations_.push_back(&enumeration);
  }
}

ClassInfo ClassTable::Build() {
  for (const std::string& name : persisted_names_) {
    const auto property = std::ranges::find(info_.properties_, name, &PropertyInfo::name);
    if (property == info_.properties_.end()) throw std::logic_error("no property to persist: " + name);
    property->persisted = true;
    info_.persisted_.push_back(&*property);
  }
  return std::move(info_);
}

}  // namespace levelwidgets
