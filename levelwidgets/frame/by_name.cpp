#include <algorithm>
#include <numeric>

#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/frame/enumerator.h>
#include <levelwidgets/frame/error.h>
#include <levelwidgets/frame/known_members.h>

namespace levelwidgets {

namespace {

// Letters that were added, left out, mistaken or swapped with their neighbour (the optimal string alignment
// distance), compared without case.
std::size_t EditDistance(std::string_view a, std::string_view b) {
  const auto same = [](char x, char y) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return lower(x) == lower(y);
  };
  std::vector<std::size_t> before;
  std::vector<std::size_t> last(b.size() + 1);
  std::iota(last.begin(), last.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::vector<std::size_t> row{i + 1};
    for (std::size_t j = 0; j < b.size(); ++j) {
      std::size_t edits = std::min({last[j] + (same(a[i], b[j]) ? 0 : 1), last[j + 1] + 1, row[j] + 1});
      const bool swapped = i > 0 && j > 0 && same(a[i], b[j - 1]) && same(a[i - 1], b[j]);
      if (swapped) edits = std::min(edits, before[j - 1] + 1);
      row.push_back(edits);
    }
    before = std::exchange(last, std::move(row));
  }
  return last.back();
}

std::string NameOfMember(const ClassInfo& info, std::string_view member) {
  return std::string(info.Name()) + "." + std::string(member);
}

[[noreturn]] void RaiseWrongNumber(const ClassInfo& info, std::string_view member,
                                   const std::string& because) {
  throw Error(kWrongNumberOfArguments, info.QualifiedName(), NameOfMember(info, member) + because);
}

// What a message quotes of a value: the beginning of a long text.
std::string Quoted(const Variant& value) {
  constexpr std::size_t kMost = 200;  // bytes
  std::string text = Describe(value);
  if (text.size() <= kMost) return text;
  std::size_t end = kMost;
  while ((static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;  // not within a character
  return text.substr(0, end) + "...";
}

// Runs a conversion; its error is raised again with the member's name in front.
template <typename Conversion>
auto NamingMember(const ClassInfo& info, std::string_view member, const MemberType& type,
                  const Variant& value, Conversion convert) {
  try {
    return convert();
  } catch (const Error& error) {
    throw Error(error.Number(), info.QualifiedName(),
                NameOfMember(info, member) + " is of type " + std::string(type.Name()) + "; " +
                    Quoted(value) + " does not convert to it: " + error.Description());
  }
}

// Empty is no object; a class has no descendants with tables of their own.
Variant ObjectFrom(const MemberType& type, const Variant& value) {
  if (value.IsEmpty()) return ObjectRef();
  const Variant converted = ConvertTo(VariantType::kObject, value);
  const ObjectRef& object = std::get<ObjectRef>(converted.Get());
  const bool fits = !object || !type.object_class || &type.object_class() == &object->Class();
  if (!fits) throw Error(kTypeMismatch);
  return converted;
}

Variant ConvertedTo(const ClassInfo& info, std::string_view member, const MemberType& type, Variant value,
                    const TextConversions& texts) {
  if (IsOfType(type, value)) return value;
  if (type.kind == TypeKind::kObject) {
    return NamingMember(info, member, type, value, [&] { return ObjectFrom(type, value); });
  }
  return NamingMember(info, member, type, value, [&] { return ConvertTo(type.type, value, texts); });
}

Variant ZeroOf(const MemberType& type) {
  switch (type.type) {
    case VariantType::kEmpty: return {};
    case VariantType::kFont: return FontRef();
    case VariantType::kObject: return ObjectRef();
    default: return ConvertTo(type.type, {});
  }
}

// What an argument is that goes in as `given`, which is empty when it was left out.
Variant GivenArgument(const ClassInfo& info, std::string_view method, const ArgumentInfo& argument,
                      const Variant& given, const TextConversions& texts) {
  if (argument.output) return ZeroOf(argument.type);
  if (!given.IsEmpty()) return ConvertedTo(info, method, argument.type, given, texts);
  if (argument.default_value) return argument.default_value->Value();
  RaiseWrongNumber(info, method, " needs the argument " + std::string(argument.name));
}

const PropertyInfo& Known(const ClassInfo& info, std::string_view property) {
  const PropertyInfo* found = info.FindProperty(property);
  if (!found) RaiseNoSuchMember(info.Name(), property, info.MemberNames());
  return *found;
}

void CheckWritable(const ClassInfo& info, const PropertyInfo& property) {
  if (!property.ReadOnly()) return;
  throw Error(kPropertyIsReadOnly, info.QualifiedName(), NameOfMember(info, property.name) + " is read-only");
}

void ConvertIndices(const ClassInfo& info, const PropertyInfo& property, std::span<Variant> indices,
                    const TextConversions& texts) {
  if (indices.size() != property.indices.size()) {
    RaiseWrongNumber(info, property.name,
                     " takes " + std::to_string(property.indices.size()) + " indices, not " +
                         std::to_string(indices.size()));
  }
  for (std::size_t i = 0; i < indices.size(); ++i) {
    const ArgumentInfo index = property.indices[i];
    if (IsOfType(index.type, indices[i])) continue;
    const std::string name = std::string(property.name) + "'s " + std::string(index.name);
    indices[i] = ConvertedTo(info, name, index.type, std::move(indices[i]), texts);
  }
}

}  // namespace

std::string_view NearestName(std::string_view name, std::span<const std::string_view> candidates) {
  std::string_view nearest;
  // In short names every letter counts: only their case may differ.
  const std::size_t most = name.size() < 3    ? 0
                           : name.size() == 3 ? 1
                                              : std::max<std::size_t>(2, name.size() / 3);
  std::size_t fewest = most + 1;
  for (const std::string_view candidate : candidates) {
    if (candidate == name) continue;
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
    names += (names.empty() ? "" : ", ") + std::string(index.name);
  }
  RaiseWrongNumber(info, property, " needs its indices: " + names);
}

Variant GetByName(const Object& object, std::string_view property) {
  const PropertyInfo& found = Known(object.Class(), property);
  if (found.Indexed()) RaiseNeedsIndices(object, property);
  return found.get(object);
}

void SetByName(Object& object, std::string_view property, const Variant& value,
               const TextConversions& texts) {
  SetKnown(object, Known(object.Class(), property), value, texts);
}

void SetKnown(Object& object, const PropertyInfo& property, Variant value, const TextConversions& texts) {
  const ClassInfo& info = object.Class();
  CheckWritable(info, property);
  if (property.Indexed()) RaiseNeedsIndices(object, property.name);
  property.set(object, ConvertedTo(info, property.name, property.type, std::move(value), texts));
}

Variant GetIndexedByName(const Object& object, std::string_view property, std::span<const Variant> indices,
                         const TextConversions& texts) {
  std::vector<Variant> at(indices.begin(), indices.end());
  return GetKnownAt(object, Known(object.Class(), property), at, texts);
}

Variant GetKnownAt(const Object& object, const PropertyInfo& property, std::span<Variant> indices,
                   const TextConversions& texts) {
  ConvertIndices(object.Class(), property, indices, texts);
  return property.Indexed() ? property.get_at(object, indices) : property.get(object);
}

void SetIndexedByName(Object& object, std::string_view property, std::span<const Variant> indices,
                      const Variant& value, const TextConversions& texts) {
  std::vector<Variant> at(indices.begin(), indices.end());
  SetKnownAt(object, Known(object.Class(), property), at, value, texts);
}

void SetKnownAt(Object& object, const PropertyInfo& property, std::span<Variant> indices, Variant value,
                const TextConversions& texts) {
  const ClassInfo& info = object.Class();
  CheckWritable(info, property);
  ConvertIndices(info, property, indices, texts);
  const Variant converted = ConvertedTo(info, property.name, property.type, std::move(value), texts);
  if (property.Indexed()) {
    property.set_at(object, indices, converted);
  } else {
    property.set(object, converted);
  }
}

Variant InvokeByName(Object& object, std::string_view method, std::span<const Variant> arguments,
                     const TextConversions& texts) {
  std::vector<Variant> values(arguments.begin(), arguments.end());
  return InvokeByReference(object, method, values, texts);
}

Variant InvokeByReference(Object& object, std::string_view method, std::vector<Variant>& arguments,
                          const TextConversions& texts) {
  const ClassInfo& info = object.Class();
  const MethodInfo* found = info.FindMethod(method);
  if (!found) RaiseNoSuchMember(info.Name(), method, info.MemberNames());
  return InvokeKnown(object, *found, arguments, texts);
}

Variant InvokeKnown(Object& object, const MethodInfo& method, std::vector<Variant>& arguments,
                    const TextConversions& texts) {
  const ClassInfo& info = object.Class();
  const std::size_t count = method.arguments.size();
  if (arguments.size() > count) {
    RaiseWrongNumber(
        info, method.name,
        " takes " + std::to_string(count) + " arguments, not " + std::to_string(arguments.size()));
  }
  arguments.resize(count);
  for (std::size_t i = 0; i < count; ++i) {
    arguments[i] = GivenArgument(info, method.name, method.arguments[i], arguments[i], texts);
  }
  return method.invoke(object, arguments);
}

Subscription SubscribeByName(Object& object, std::string_view event, EventListener listener) {
  const ClassInfo& info = object.Class();
  const EventInfo* found = info.FindEvent(event);
  if (!found) RaiseNoSuchMember(info.Name(), event, info.MemberNames());
  return found->Subscribe(object, std::move(listener));
}

std::shared_ptr<Enumerator> Enumerate(const Object& object) {
  const ClassInfo& info = object.Class();
  if (info.EnumeratorMember().empty()) {
    throw Error(kNoSuchMember, info.QualifiedName(), std::string(info.Name()) + " is no collection");
  }
  const Variant enumerator = info.FindProperty(info.EnumeratorMember())->get(object);
  return std::static_pointer_cast<Enumerator>(std::get<ObjectRef>(enumerator.Get()));
}

}  // namespace levelwidgets
