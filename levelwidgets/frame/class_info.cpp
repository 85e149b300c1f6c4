#include <algorithm>

#include <levelwidgets/frame/class_info.h>

namespace levelwidgets {

namespace {

template <typename Info>
const Info* FindNamed(std::span<const Info> members, std::span<const std::uint8_t> by_name,
                      std::string_view name) {
  const auto name_at = [&](std::uint8_t position) { return members[position].name; };
  const auto found = std::ranges::lower_bound(by_name, name, {}, name_at);
  return found == by_name.end() || name_at(*found) != name ? nullptr : &members[*found];
}

// Takes the whole number from 1 that `text` begins with, without leading zeros; 0 where there is none.
std::int32_t TakeIndex(std::string_view& text) {
  constexpr std::size_t kMostDigits = 9;
  const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
  if (digits == 0 || digits > kMostDigits || text[0] == '0') return 0;
  std::int32_t index = 0;
  for (const char c : text.substr(0, digits)) index = index * 10 + (c - '0');
  text.remove_prefix(digits);
  return index;
}

PersistedKey FindValue(const PropertyInfo& property, std::string_view key) {
  if (!key.starts_with(property.name)) return {};
  key.remove_prefix(property.name.size());
  const std::int32_t index = TakeIndex(key);
  if (index == 0 || !key.empty()) return {};
  return {&property, index, nullptr, property.type, property.stored_as};
}

// The key of a saved item, or of their number.
PersistedKey FindItem(const PropertyInfo& property, std::string_view key) {
  const SavedItems& items = *property.type.object_class().SavedItems();
  if (key == items.count_key) {
    return {&property, 0, nullptr, MemberTypeOf<std::int16_t>(), VariantType::kInt16};
  }
  if (!key.starts_with(items.prefix)) return {};
  key.remove_prefix(items.prefix.size());
  const std::int32_t index = TakeIndex(key);
  const PropertyInfo* field = index == 0 ? nullptr : items.item_class().FindPersisted(key).property;
  if (!field) return {};
  return {&property, index, field, field->type, field->stored_as};
}

void AddEnumeration(std::vector<const EnumerationInfo*>& found, const MemberType& type) {
  if (type.enumeration && std::ranges::find(found, type.enumeration) == found.end()) {
    found.push_back(type.enumeration);
  }
}

void AddEnumerations(std::vector<const EnumerationInfo*>& found, const ArgumentList& arguments) {
  for (const ArgumentInfo& argument : arguments) AddEnumeration(found, argument.type);
}

}  // namespace

std::string_view MemberType::Name() const {
  switch (kind) {
    case TypeKind::kNone: return "";
    case TypeKind::kAny: return "Variant";
    case TypeKind::kColor: return "Color";
    case TypeKind::kHandle: return "Handle";
    case TypeKind::kEnumeration: return enumeration->name;
    case TypeKind::kPlain:
    case TypeKind::kFont: return NameOf(type);
    case TypeKind::kObject: return object_class ? object_class().Name() : NameOf(type);
  }
  return "";
}

const PropertyInfo* ClassInfo::FindProperty(std::string_view name) const {
  return FindNamed(properties_, properties_by_name_, name);
}

const MethodInfo* ClassInfo::FindMethod(std::string_view name) const {
  return FindNamed(methods_, methods_by_name_, name);
}

const EventInfo* ClassInfo::FindEvent(std::string_view name) const {
  const auto found = std::ranges::find(events_, name, &EventInfo::name);
  return found == events_.end() ? nullptr : &*found;
}

PersistedKey ClassInfo::FindPersisted(std::string_view key) const {
  const PropertyInfo* named = FindProperty(key);
  if (named && named->persisted && !named->Indexed() && !named->is_collection) {
    return {named, 0, nullptr, named->type, named->stored_as};
  }
  const PropertyInfo* const written = head_.only_written;
  if (written && key == written->name) return {written, 0, nullptr, written->type, written->stored_as};
  for (const PropertyInfo* property : persisted_) {
    PersistedKey found;
    if (property->Indexed()) found = FindValue(*property, key);
    if (property->is_collection) found = FindItem(*property, key);
    if (found.property) return found;
  }
  return {};
}

std::vector<const EnumerationInfo*> ClassInfo::Enumerations() const {
  std::vector<const EnumerationInfo*> found;
  for (const PropertyInfo& property : properties_) {
    AddEnumeration(found, property.type);
    AddEnumerations(found, property.indices);
  }
  for (const MethodInfo& method : methods_) {
    AddEnumeration(found, method.result);
    AddEnumerations(found, method.arguments);
  }
  for (const EventInfo& event : events_) AddEnumerations(found, event.arguments);
  return found;
}

std::vector<std::string_view> ClassInfo::MemberNames() const {
  std::vector<std::string_view> names;
  for (const auto& property : properties_) names.push_back(property.name);
  for (const auto& method : methods_) names.push_back(method.name);
  for (const auto& event : events_) names.push_back(event.name);
  return names;
}

std::shared_ptr<Control> ClassInfo::Create(std::shared_ptr<ControlSite> site) const {
  return head_.create ? head_.create(std::move(site)) : nullptr;
}

}  // namespace levelwidgets
