#include <algorithm>
#include <numeric>

#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/frame/enumerator.h>
#include <levelwidgets/frame/error.h>

namespace levelwidgets {

namespace {

template <typename Info>
const Info* FindNamed(const std::vector<Info>& members, std::string_view name) {
  const auto found = std::ranges::find(members, name, &Info::name);
  return found == members.end() ? nullptr : &*found;
}

// Levenshtein distance, letters compared without case.
std::size_t EditDistance(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i + 1;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t substitute = diagonal + (lower(a[i]) == lower(b[j]) ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({substitute, row[j] + 1, row[j + 1] + 1});
    }
  }
  return row.back();
}

// Runs a conversion; its error is told again with the member's name in front.
template <typename Conversion>
auto NamingMember(const ClassInfo& info, std::string_view member, const TypeName& type, const Variant& value,
                  Conversion convert) {
  try {
    return convert();
  } catch (const Error& error) {
    throw Error(error.Number(), info.QualifiedName(),
                info.Name() + "." + std::string(member) + " is of type " + type.name + "; " +
                    Describe(value) + " does not convert to it: " + error.Description());
  }
}

// Empty is no object; a class has no descendants with tables of their own.
Variant ConvertedToObject(const TypeName& type, const Variant& value) {
  if (value.IsEmpty()) return ObjectRef();
  const Variant converted = ConvertTo(VariantType::kObject, value);
  const ObjectRef& object = std::get<ObjectRef>(converted.Get());
  const bool fits =
      !object || type.name == NameOf(VariantType::kObject) || type.name == object->Class().Name();
  if (!fits) throw Error(kTypeMismatch);
  return converted;
}

Variant Converted(const ClassInfo& info, std::string_view member, const TypeName& type, const Variant& value,
                  const TextConversions& texts) {
  if (type.type == VariantType::kEmpty) return value;  // takes any
  if (type.type == VariantType::kObject) {
    return NamingMember(info, member, type, value, [&] { return ConvertedToObject(type, value); });
  }
  return NamingMember(info, member, type, value, [&] { return ConvertTo(type.type, value, texts); });
}

const PropertyInfo& Known(const ClassInfo& info, std::string_view property) {
  const PropertyInfo* found = info.FindProperty(property);
  if (!found) RaiseNoSuchMember(info.Name(), property, info.MemberNames());
  return *found;
}

const PropertyInfo& Writable(const ClassInfo& info, std::string_view property) {
  const PropertyInfo& found = Known(info, property);
  if (!found.ReadOnly()) return found;
  throw Error(kPropertyIsReadOnly, info.QualifiedName(),
              info.Name() + "." + std::string(property) + " is read-only");
}

std::vector<Variant> ConvertedIndices(const ClassInfo& info, const PropertyInfo& property,
                                      std::span<const Variant> indices, const TextConversions& texts) {
  if (indices.size() != property.indices.size()) {
    throw Error(kWrongNumberOfArguments, info.QualifiedName(),
                info.Name() + "." + property.name + " takes " + std::to_string(property.indices.size()) +
                    " indices, not " + std::to_string(indices.size()));
  }
  std::vector<Variant> converted;
  for (std::size_t i = 0; i < indices.size(); ++i) {
    const ArgumentInfo& index = property.indices[i];
    converted.push_back(Converted(info, property.name + "'s " + index.name, index.type, indices[i], texts));
  }
  return converted;
}

// The whole number from 1 that `digits` writes without leading zeros; 0 for anything else.
std::int32_t IndexOfDigits(std::string_view digits) {
  constexpr std::size_t kMostDigits = 9;
  if (digits.empty() || digits.size() > kMostDigits || digits[0] == '0') return 0;
  std::int32_t index = 0;
  for (const char c : digits) {
    if (c < '0' || c > '9') return 0;
    index = index * 10 + (c - '0');
  }
  return index;
}

}  // namespace

const PropertyInfo* ClassInfo::FindProperty(std::string_view name) const {
  return FindNamed(properties_, name);
}
const MethodInfo* ClassInfo::FindMethod(std::string_view name) const { return FindNamed(methods_, name); }
const EventInfo* ClassInfo::FindEvent(std::string_view name) const { return FindNamed(events_, name); }

PersistedKey ClassInfo::FindPersisted(std::string_view key) const {
  for (const PropertyInfo* property : persisted_) {
    if (!property->Indexed()) {
      if (key == property->name) return {property, 0};
    } else if (key.starts_with(property->name)) {
      if (const std::int32_t index = IndexOfDigits(key.substr(property->name.size())))
        return {property, index};
    }
  }
  return {};
}

std::vector<std::string_view> ClassInfo::MemberNames() const {
  std::vector<std::string_view> names;
  for (const auto& property : properties_) names.push_back(property.name);
  for (const auto& method : methods_) names.push_back(method.name);
  for (const auto& event : events_) names.push_back(event.name);
  return names;
}

std::shared_ptr<Control> ClassInfo::Create(std::shared_ptr<ControlSite> site) const {
  return create_ ? create_(std::move(site)) : nullptr;
}

std::string_view NearestName(std::string_view name, std::span<const std::string_view> candidates) {
  std::string_view nearest;
  std::size_t fewest = std::max<std::size_t>(2, name.size() / 3) + 1;
  for (const std::string_view candidate : candidates) {
    const std::size_t difference =
        std::max(name.size(), candidate.size()) - std::min(name.size(), candidate.size());
    if (difference >= fewest) continue;  // each takes an edit at least
    const std::size_t edits = EditDistance(name, candidate);
    if (edits < fewest) {
      fewest = edits;
      nearest = candidate;
    }
  }
  return nearest;
}

void RaiseNoSuchMember(std::string_view class_name, std::string_view member,
                       std::span<const std::string_view> candidates) {
  std::string text = std::string(class_name) + " has no member \"" + std::string(member) + "\"";
  const std::string_view nearest = NearestName(member, candidates);
  if (!nearest.empty()) text += "; did you mean \"" + std::string(nearest) + "\"?";
  throw Error(kNoSuchMember, "LevelWidgets." + std::string(class_name), text);
}

void RaiseNeedsIndices(const Object& object, std::string_view property) {
  const ClassInfo& info = object.Class();
  std::string names;
  for (const ArgumentInfo& index : info.FindProperty(property)->indices) {
    names += (names.empty() ? "" : ", ") + index.name;
  }
  throw Error(kWrongNumberOfArguments, info.QualifiedName(),
              info.Name() + "." + std::string(property) + " needs its indices: " + names);
}

Variant GetByName(const Object& object, std::string_view property) {
  return Known(object.Class(), property).get(object);
}

void SetByName(Object& object, std::string_view property, const Variant& value,
               const TextConversions& texts) {
  const ClassInfo& info = object.Class();
  const PropertyInfo& found = Writable(info, property);
  if (found.Indexed()) RaiseNeedsIndices(object, property);
  found.set(object, Converted(info, property, found.type, value, texts));
}

Variant GetIndexedByName(const Object& object, std::string_view property, std::span<const Variant> indices,
                         const TextConversions& texts) {
  const PropertyInfo& found = Known(object.Class(), property);
  const std::vector<Variant> at = ConvertedIndices(object.Class(), found, indices, texts);
  return found.Indexed() ? found.get_at(object, at) : found.get(object);
}

void SetIndexedByName(Object& object, std::string_view property, std::span<const Variant> indices,
                      const Variant& value, const TextConversions& texts) {
  const ClassInfo& info = object.Class();
  const PropertyInfo& found = Writable(info, property);
  const std::vector<Variant> at = ConvertedIndices(info, found, indices, texts);
  const Variant converted = Converted(info, property, found.type, value, texts);
  if (found.Indexed()) {
    found.set_at(object, at, converted);
  } else {
    found.set(object, converted);
  }
}

Variant InvokeByName(Object& object, std::string_view method, std::span<const Variant> arguments,
                     const TextConversions& texts) {
  const ClassInfo& info = object.Class();
  const MethodInfo* found = info.FindMethod(method);
  if (!found) RaiseNoSuchMember(info.Name(), method, info.MemberNames());
  std::vector<Variant> values;
  for (std::size_t i = 0; i < found->arguments.size(); ++i) {
    const ArgumentInfo& argument = found->arguments[i];
    if (i < arguments.size() && !arguments[i].IsEmpty()) {
      values.push_back(Converted(info, method, argument.type, arguments[i], texts));
    } else if (argument.default_value) {
      values.push_back(*argument.default_value);
    } else {
      throw Error(kWrongNumberOfArguments, info.QualifiedName(),
                  info.Name() + "." + std::string(method) + " needs the argument " + argument.name);
    }
  }
  if (arguments.size() > found->arguments.size()) {
    throw Error(kWrongNumberOfArguments, info.QualifiedName(),
                info.Name() + "." + std::string(method) + " takes " +
                    std::to_string(found->arguments.size()) + " arguments, not " +
                    std::to_string(arguments.size()));
  }
  return found->invoke(object, values);
}

Subscription SubscribeByName(Object& object, std::string_view event, EventListener listener) {
  const ClassInfo& info = object.Class();
  const EventInfo* found = info.FindEvent(event);
  if (!found) RaiseNoSuchMember(info.Name(), event, info.MemberNames());
  return found->subscribe(object, std::move(listener));
}

std::shared_ptr<Enumerator> Enumerate(const Object& object) {
  const ClassInfo& info = object.Class();
  if (info.EnumeratorMember().empty()) {
    throw Error(kNoSuchMember, info.QualifiedName(), info.Name() + " is no collection");
  }
  const Variant enumerator = info.FindProperty(info.EnumeratorMember())->get(object);
  return std::static_pointer_cast<Enumerator>(std::get<ObjectRef>(enumerator.Get()));
}

}  // namespace levelwidgets
