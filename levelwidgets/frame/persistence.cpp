#include <levelwidgets/frame/persistence.h>

#include <array>

namespace levelwidgets {

namespace {

Variant Resolve(const DefaultValue& value, ControlSite& site) {
  switch (value.kind) {
    case DefaultValue::Kind::kAmbientFont: return site.AmbientFont();
    case DefaultValue::Kind::kDisplayName: return site.DisplayName();
    case DefaultValue::Kind::kAmbientBackColor: return site.AmbientBackColor();
    case DefaultValue::Kind::kAmbientForeColor: return site.AmbientForeColor();
    default: return value.Value();
  }
}

Variant ResolveAt(const PropertyInfo& property, const DefaultValue& value, std::int32_t index,
                  ControlSite& site) {
  return property.default_at ? property.default_at(index).Value() : Resolve(value, site);
}

TextConversions TextsOf(ControlSite& site) { return site.GetPlatform().Conversions(); }

// The one index of a persisted indexed property, in the type that it has.
std::array<Variant, 1> AtIndex(const PropertyInfo& property, std::int32_t index) {
  return {ConvertTo(property.indices.front().type.type, index)};
}

// Calls `take` with the value in the property's type.
template <typename Take>
void TakeRead(const PropertyInfo& property, std::string_view key, const Variant& read,
              const TextConversions& texts, Take take) {
  try {
    take(ConvertTo(property.type.type, ConvertTo(property.stored_as, read, texts), texts));
  } catch (const Error& error) {
    throw PropertyRefused(std::string(key), error);
  }
}

// --- Properties with a value each, and indexed ones ------------------------------------------------

void ReadIndexed(Object& control, const PropertyInfo& property, ControlSite& site, const PropertyBag& bag) {
  for (std::int32_t index = 1; index <= property.count(control); ++index) {
    const std::string key = property.KeyOf(index);
    const Variant otherwise = ResolveAt(property, property.defaults.when_read, index, site);
    TakeRead(property, key, bag.ReadProperty(key, otherwise), TextsOf(site),
             [&](const Variant& value) { property.set_at(control, AtIndex(property, index), value); });
  }
}

void WriteSingle(const Object& control, const PropertyInfo& property, ControlSite& site, PropertyBag& bag) {
  bag.WriteProperty(property.name, ConvertTo(property.stored_as, property.get(control)),
                    Resolve(property.defaults.when_written, site));
}

void WriteIndexed(const Object& control, const PropertyInfo& property, ControlSite& site, PropertyBag& bag) {
  for (std::int32_t index = 1; index <= property.count(control); ++index) {
    bag.WriteProperty(property.KeyOf(index),
                      ConvertTo(property.stored_as, property.get_at(control, AtIndex(property, index))),
                      ResolveAt(property, property.defaults.when_written, index, site));
  }
}

void ReadSingle(Object& control, const PropertyInfo& property, ControlSite& site, const PropertyBag& bag) {
  const Variant* saved = bag.Find(property.name);
  TakeRead(property, property.name, saved ? *saved : Resolve(property.defaults.when_read, site),
           TextsOf(site), [&](const Variant& value) { property.set(control, value); });
}

// --- Collections -------------------------------------------------------------------------------------

const SavedItems& ItemsOf(const Object& collection) { return *collection.Class().SavedItems(); }

ObjectRef CollectionOf(const Object& control, const PropertyInfo& property) {
  return std::get<ObjectRef>(property.get(control).Get());
}

std::int32_t ReadCount(const SavedItems& items, const PropertyBag& bag, const TextConversions& texts) {
  try {
    return ToInt32(ConvertTo(VariantType::kInt16, bag.ReadProperty(items.count_key, 0), texts));
  } catch (const Error& error) {
    throw PropertyRefused(std::string(items.count_key), error);
  }
}

}  // namespace

void ReadItems(const ObjectRef& collection, const PropertyBag& bag, const TextConversions& texts) {
  const ObjectRef keep = collection;  // a listener may let go of it
  const SavedItems& items = ItemsOf(*keep);
  const std::int32_t count = ReadCount(items, bag, texts);
  for (std::int32_t position = 1; position <= count; ++position) {
    std::vector<Variant> values;
    for (const PropertyInfo* field : items.item_class().Persisted()) {
      const std::string key = items.KeyOf(position, *field);
      TakeRead(*field, key, bag.ReadProperty(key, field->defaults.when_read.Value()), texts,
               [&](Variant value) { values.push_back(std::move(value)); });
    }
    items.add(*keep, values);
  }
}

void WriteItems(const Object& collection, PropertyBag& bag) {
  const SavedItems& items = ItemsOf(collection);
  const std::int32_t count = items.count(collection);
  bag.WriteProperty(items.count_key, ToInt16(count), 0);
  for (std::int32_t position = 1; position <= count; ++position) {
    const ObjectRef item = items.item(collection, position);
    for (const PropertyInfo* field : items.item_class().Persisted()) {
      bag.WriteProperty(items.KeyOf(position, *field), ConvertTo(field->stored_as, field->get(*item)),
                        field->defaults.when_written.Value());
    }
  }
}

void ReadPersisted(Object& control, ControlSite& site, const PropertyBag& bag) {
  for (const PropertyInfo* property : control.Class().Persisted()) {
    if (property->Indexed()) {
      ReadIndexed(control, *property, site, bag);
    } else if (property->is_collection) {
      ReadItems(CollectionOf(control, *property), bag, TextsOf(site));
    } else {
      ReadSingle(control, *property, site, bag);
    }
  }
}

void WritePersisted(const Object& control, ControlSite& site, PropertyBag& bag) {
  for (const PropertyInfo* property : control.Class().Persisted()) {
    if (property->Indexed()) {
      WriteIndexed(control, *property, site, bag);
    } else if (property->is_collection) {
      WriteItems(*CollectionOf(control, *property), bag);
    } else {
      WriteSingle(control, *property, site, bag);
    }
  }
  if (const PropertyInfo* last = control.Class().OnlyWritten()) WriteSingle(control, *last, site, bag);
}

}  // namespace levelwidgets
