// The table of a public class: its members by name. Everything that works by name is derived from it.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <levelwidgets/frame/event.h>
#include <levelwidgets/frame/object.h>
#include <levelwidgets/frame/text_conversions.h>
#include <levelwidgets/frame/units.h>
#include <levelwidgets/frame/variant.h>

namespace levelwidgets {

class Control;
class ControlSite;
class Enumerator;

// A property's default: a fixed value, or one that the container gives.
struct DefaultValue {
  enum class Kind { kNone, kFixed, kAmbientFont, kDisplayName, kAmbientBackColor, kAmbientForeColor };

  DefaultValue() = default;
  DefaultValue(Kind from) : kind(from) {}
  template <typename T>
  requires std::constructible_from<Variant, T> DefaultValue(T fixed)
      : kind(Kind::kFixed), value(std::move(fixed)) {}

  Kind kind = Kind::kNone;
  Variant value;
};
inline constexpr DefaultValue::Kind kAmbientFont = DefaultValue::Kind::kAmbientFont;
inline constexpr DefaultValue::Kind kDisplayName = DefaultValue::Kind::kDisplayName;
inline constexpr DefaultValue::Kind kAmbientBackColor = DefaultValue::Kind::kAmbientBackColor;
inline constexpr DefaultValue::Kind kAmbientForeColor = DefaultValue::Kind::kAmbientForeColor;

// The three defaults differ in places, on purpose.
struct Defaults {
  DefaultValue when_new;      // what a newly placed instance has
  DefaultValue when_read;     // what a loaded instance takes where nothing was saved
  DefaultValue when_written;  // the value that is not saved
};

inline Defaults Always(const DefaultValue& value) { return {value, value, value}; }

struct EnumerationItem {
  std::string name;
  std::int32_t value;
};

struct EnumerationInfo {
  std::string name;
  std::vector<EnumerationItem> items;
};

// Specialised beside each public enumeration.
template <typename E>
const EnumerationInfo& EnumerationOf();

struct TypeName {
  VariantType type = VariantType::kEmpty;
  std::string name;                              // "Color", "Long", "ksxAlignmentConstants", a class
  const EnumerationInfo* enumeration = nullptr;  // when `name` is one
};

struct PropertyOptions {
  Defaults defaults = {};
  std::optional<VariantType> stored_as = std::nullopt;  // where it differs from the property's type
  std::string help = {};
  // Of an indexed property whose values have defaults of their own; then `defaults` are those of index 1.
  std::function<Variant(std::int32_t index)> default_at = {};
};

struct ArgumentInfo {
  std::string name;
  TypeName type;
  bool by_reference = false;
  std::optional<Variant> default_value;  // of an optional argument
};

// An indexed property (TabCaption(Index)) has a value for each of its indices; `get` and `set` raise 450
// then. A persisted one has one index: a bag entry per index from 1 to `count`, named by KeyOf.
struct PropertyInfo {
  std::string name;
  TypeName type;
  bool persisted = false;  // under `name`
  VariantType stored_as = VariantType::kEmpty;
  Defaults defaults;
  std::string help;
  std::function<Variant(const Object&)> get;
  std::function<void(Object&, const Variant&)> set;  // null for a read-only property

  std::vector<ArgumentInfo> indices;
  std::function<Variant(const Object&, std::span<const Variant>)> get_at;
  std::function<void(Object&, std::span<const Variant>, const Variant&)> set_at;
  std::function<std::int32_t(const Object&)> count;
  std::function<Variant(std::int32_t index)> default_at;

  bool ReadOnly() const { return !set; }
  bool Indexed() const { return !indices.empty(); }
  // "TabCaption2": the value at `index`, counted from 1, in a property bag.
  std::string KeyOf(std::int32_t index) const { return name + std::to_string(index); }
};

// What a key of a property bag stands for.
struct PersistedKey {
  const PropertyInfo* property = nullptr;  // null for an unknown key
  std::int32_t index = 0;                  // 0 unless the property is indexed
};

struct MethodInfo {
  std::string name;
  std::vector<ArgumentInfo> arguments;
  TypeName result;  // without a name when there is none
  std::string help;
  std::function<Variant(Object&, std::span<const Variant>)> invoke;
};

struct EventInfo;

// One raised event as a by-name listener sees it. Values of by-reference arguments that it changes are
// handed back to the control, converted to the argument's type.
struct RaisedEvent {
  const EventInfo& info;
  std::vector<Variant> values;
};
using EventListener = std::function<void(RaisedEvent&)>;

struct EventInfo {
  int number = 0;
  std::string name;
  std::vector<ArgumentInfo> arguments;
  std::string help;
  std::function<Subscription(Object&, EventListener)> subscribe;
  std::function<void(Object&)> end_all;  // subscriptions
};

class ClassInfo {
 public:
  ClassInfo(ClassInfo&&) = default;
  ClassInfo(const ClassInfo&) = delete;  // Persisted points into Properties

  const std::string& Name() const { return name_; }
  // "LevelWidgets." + Name(): the name that errors carry and containers register.
  const std::string& QualifiedName() const { return qualified_name_; }
  const std::string& Help() const { return help_; }
  const std::vector<PropertyInfo>& Properties() const { return properties_; }
  const std::vector<MethodInfo>& Methods() const { return methods_; }
  const std::vector<EventInfo>& Events() const { return events_; }
  // Those that a property or argument has as its type.
  const std::vector<const EnumerationInfo*>& Enumerations() const { return enumerations_; }
  // In the order in which they are read and written.
  const std::vector<const PropertyInfo*>& Persisted() const { return persisted_; }
  // A persisted property's name, or that of an indexed one and an index ("TabCaption2").
  PersistedKey FindPersisted(std::string_view key) const;
  // The property or method that stands for the object itself; "" when there is none.
  const std::string& DefaultMember() const { return default_member_; }
  // The read-only property that for-each asks a collection for; "" for a class that is none.
  const std::string& EnumeratorMember() const { return enumerator_member_; }
  // The size of a control that is placed without one.
  TwipSize DefaultSize() const { return default_size_; }

  // Null for an unknown name; names are case-sensitive.
  const PropertyInfo* FindProperty(std::string_view name) const;
  const MethodInfo* FindMethod(std::string_view name) const;
  const EventInfo* FindEvent(std::string_view name) const;
  // Properties, methods and events.
  std::vector<std::string_view> MemberNames() const;

  // A control of this class on `site`; null for a class that is no control.
  std::shared_ptr<Control> Create(std::shared_ptr<ControlSite> site) const;
  // Whether users may make objects of this class, which is no control.
  bool Creatable() const { return create_object_ != nullptr; }
  // Null unless creatable.
  ObjectRef CreateObject() const { return create_object_ ? create_object_() : nullptr; }

 private:
  friend class ClassTable;
  ClassInfo() = default;
  std::string name_;
  std::string qualified_name_;
  std::string help_;
  std::vector<PropertyInfo> properties_;
  std::vector<MethodInfo> methods_;
  std::vector<EventInfo> events_;
  std::vector<const EnumerationInfo*> enumerations_;
  std::vector<const PropertyInfo*> persisted_;
  std::string default_member_;
  std::string enumerator_member_;
  TwipSize default_size_{Twips(1215), Twips(495)};
  std::function<std::shared_ptr<Control>(std::shared_ptr<ControlSite>)> create_;
  std::function<ObjectRef()> create_object_;
};

// --- By name -----------------------------------------------------------------------------------

// An unknown name raises 438 with the class, the name and the nearest known one; assigning a read-only
// property raises 383; a value that does not convert to the member's type raises 13 or 6, naming the member;
// a wrong number of arguments raises 450. An object must be of the class that the member's type names, or
// empty for none. What the member itself raises passes through. `texts` convert between texts and other
// values.
Variant GetByName(const Object& object, std::string_view property);
void SetByName(Object& object, std::string_view property, const Variant& value,
               const TextConversions& texts = {});
// One value of an indexed property. Indices convert like values; a wrong number of them raises 450.
Variant GetIndexedByName(const Object& object, std::string_view property, std::span<const Variant> indices,
                         const TextConversions& texts = {});
void SetIndexedByName(Object& object, std::string_view property, std::span<const Variant> indices,
                      const Variant& value, const TextConversions& texts = {});
Variant InvokeByName(Object& object, std::string_view method, std::span<const Variant> arguments,
                     const TextConversions& texts = {});
Subscription SubscribeByName(Object& object, std::string_view event, EventListener listener);
// The items of a collection; raises 438 for an object that is none.
std::shared_ptr<Enumerator> Enumerate(const Object& object);

// The candidate with the fewest edits, when few enough to be a slip; else "".
std::string_view NearestName(std::string_view name, std::span<const std::string_view> candidates);

// Throws 450 for the indexed `property` used without its indices.
[[noreturn]] void RaiseNeedsIndices(const Object& object, std::string_view property);

// Throws 438 for `member`, naming the class and suggesting the nearest of `candidates`.
[[noreturn]] void RaiseNoSuchMember(std::string_view class_name, std::string_view member,
                                    std::span<const std::string_view> candidates);

}  // namespace levelwidgets
