// Controls that save everything they can, for tests of what is saved.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include <levelwidgets/frame/control.h>
#include <levelwidgets/frame/error.h>
#include <levelwidgets/frame/property_bag.h>

namespace levelwidgets {

// As Describe, and all of a font: Arial 11.25 bold italic, character set 0.
inline std::string DescribeSaved(const Variant& value) {
  std::string text = Describe(value);
  const FontRef* const font = std::get_if<FontRef>(&value.Get());
  if (!font || !*font) return text;
  const FontDescription& description = (*font)->Description();
  if (description.bold) text += " bold";
  if (description.italic) text += " italic";
  if (description.underline) text += " underline";
  if (description.strikethrough) text += " strikethrough";
  return text + ", character set " + std::to_string(description.charset);
}

// A line for each entry, in the order written: Caption = "Save" (String).
inline std::vector<std::string> SavedLines(const PropertyBag& bag) {
  std::vector<std::string> lines;
  for (const PropertyBag::Entry& entry : bag.Entries()) {
    lines.push_back(entry.name + " = " + DescribeSaved(entry.value) + " (" +
                    std::string(NameOf(entry.value.Type())) + ")");
  }
  return lines;
}

inline PropertyBag SavedOf(const Control& control) {
  PropertyBag bag;
  control.OnWriteProperties(bag);
  return bag;
}

// Values that a property of the type may have, none of which is much of a default.
inline std::vector<Variant> UnusualValuesOf(const PropertyInfo& property) {
  if (property.type.kind == TypeKind::kEnumeration) {
    std::vector<Variant> values;
    for (const EnumerationItem& item : property.type.enumeration->items) values.emplace_back(item.value);
    return values;
  }
  if (property.type.kind == TypeKind::kColor) return {0x00102030 + property.number};
  switch (property.type.type) {
    case VariantType::kBoolean: return {true, false};
    case VariantType::kString: return {"S\xC3\xA4ve \"7\"", "7"};
    case VariantType::kFont:
      return {MakeFont({.name = "Arial",
                        .size = 11.25,
                        .bold = true,
                        .italic = true,
                        .underline = true,
                        .strikethrough = true,
                        .charset = 2})};
    case VariantType::kEmpty:
    case VariantType::kDate: return {Date{45427}};
    default: return {60, 3, 2, 1};
  }
}

// Whether the property could be given a value that is saved.
inline bool MakeUnusual(Control& control, const PropertyInfo& property) {
  for (const Variant& value : UnusualValuesOf(property)) {
    try {
      SetByName(control, property.name, value);
    } catch (const Error&) {
      continue;  // the next may suit it
    }
    if (SavedOf(control).Find(property.name)) return true;
  }
  return false;
}

// Gives every persisted property a value that is saved, and returns those for which that fails: some can only
// be loaded.
inline std::vector<const PropertyInfo*> MakeUnusual(Control& control) {
  const ClassInfo& info = control.Class();
  std::vector<const PropertyInfo*> usual;
  for (const PropertyInfo* property : info.Persisted()) {
    if (property->is_collection) {
      const Variant columns = GetByName(control, property->name);
      Object& list = *std::get<ObjectRef>(columns.Get());
      const std::vector<Variant> first{"Qty", 900, 2, 1, 2, false, "0.00"};
      InvokeByName(list, "Add", first);
      InvokeByName(list, "Add", std::vector<Variant>{"Price"});
    } else if (property->Indexed()) {
      for (std::int32_t index = 1; index <= property->count(control); ++index) {
        SetIndexedByName(control, property->name, std::vector<Variant>{index},
                         "Page " + std::to_string(index));
      }
    } else if (!MakeUnusual(control, *property)) {
      usual.push_back(property);
    }
  }
  return usual;
}

struct UnusualSaved {
  PropertyBag bag;
  std::vector<std::string> usual;  // the names of what it does not have
};

// What a control of the class saves of which every persisted property is unusual. `make` makes a control:
// make(const PropertyBag*), null for a new one. Each may end when the next is made.
template <typename Make>
UnusualSaved MakeUnusualSaved(Make make) {
  UnusualSaved saved;
  Control& control = make(nullptr);
  const std::vector<const PropertyInfo*> usual = MakeUnusual(control);
  saved.bag = SavedOf(control);
  for (const PropertyInfo* property : usual) {
    const auto loads = [&](const Variant& value) {
      PropertyBag with = saved.bag;
      with.WriteProperty(property->name, value, Null());
      const PropertyBag loaded = SavedOf(make(&with));
      if (!loaded.Find(property->name)) return false;
      saved.bag = loaded;
      return true;
    };
    if (!std::ranges::any_of(UnusualValuesOf(*property), loads)) saved.usual.emplace_back(property->name);
  }
  return saved;
}

}  // namespace levelwidgets
