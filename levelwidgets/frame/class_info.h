// The table of a public class: its members by name. Everything that works by name is derived from it.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <levelwidgets/frame/arguments.h>
#include <levelwidgets/frame/event.h>
#include <levelwidgets/frame/object.h>
#include <levelwidgets/frame/text_conversions.h>
#include <levelwidgets/frame/units.h>

namespace levelwidgets {

class Control;
class ControlSite;
class Enumerator;

// What a row says about its member besides what it is. Those from kPicked on are for tests with random
// input: what looks like a fault and is required.
enum class MemberFlags : std::uint32_t {
  kNone = 0,
  kDefault = 1 << 0,     // stands for the object itself
  kEnumerator = 1 << 1,  // what for-each asks a collection for
  // The item that a person picks; input raises 9 where it is no item.
  kPicked = 1 << 2,
  // Writing it may change how the control will look, without a repaint.
  kShownLater = 1 << 3,
  // It may refuse the value that it has.
  kRefusesItsOwn = 1 << 4,
  // It changes by itself, under the pointer, without a repaint.
  kChangesUnderPointer = 1 << 5,
  // The parts of a range. A control whose value is outside refuses it, and its input raises what its value
  // raises; sums of numbers that are far out have no room in 32 bits.
  kRangeLow = 1 << 6,
  kRangeHigh = 1 << 7,
  kRangeValue = 1 << 8,
  kRangeStep = 1 << 9,
  // A size in points: more than 0, and small where it is sensible.
  kPoints = 1 << 10,
  // The parts of a place, in twips. An extent cannot be negative.
  kLeft = 1 << 11,
  kTop = 1 << 12,
  kWidth = 1 << 13,
  kHeight = 1 << 14,
  kExtent = kWidth | kHeight,
  kPlace = kLeft | kTop | kExtent,
  // Assigned what was read from it, or loaded as it was saved, it may become another value: a text is
  // formatted, a selection replaced.
  kBecomesAnother = 1 << 15,
  // The format of a text that the control converts: input may raise what the conversion raises, and the text
  // may change each time that it is loaded.
  kFormat = 1 << 16,
  // It opens editors inside the control, whose errors input raises: those of what is picked and of
  // conversions.
  kOpensEditors = 1 << 17,
  // The control shows that it has lost the focus with its next paint.
  kFocusShownLater = 1 << 18,
};
constexpr MemberFlags operator|(MemberFlags a, MemberFlags b) {
  return static_cast<MemberFlags>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}
// Whether `flags` have one of `wanted`.
constexpr bool Has(MemberFlags flags, MemberFlags wanted) {
  return (static_cast<unsigned>(flags) & static_cast<unsigned>(wanted)) != 0;
}

// Rows are constant data: class_table.h makes them. The numbers of a class's properties and methods are
// different from each other and never change once released; a component container calls members by them.

// An indexed property (TabCaption(Index)) has a value for each of its indices. A persisted one has one index:
// a bag entry per index from 1 to `count`, named by KeyOf. A persisted collection is saved item by item, as
// the class of the collection says (ClassInfo::SavedItems).
struct PropertyInfo {
  int number = 0;
  std::string_view name;
  MemberType type;
  Defaults defaults;
  std::string_view help;
  MemberFlags flags = MemberFlags::kNone;
  VariantType stored_as = VariantType::kEmpty;
  bool persisted = false;      // under `name`
  bool is_collection = false;  // of which the items are saved

  Variant (*get)(const Object&) = nullptr;         // null for an indexed property
  void (*set)(Object&, const Variant&) = nullptr;  // null for an indexed or a read-only property

  ArgumentList indices;
  Variant (*get_at)(const Object&, std::span<const Variant>) = nullptr;
  void (*set_at)(Object&, std::span<const Variant>, const Variant&) = nullptr;
  std::int32_t (*count)(const Object&) = nullptr;
  Literal (*default_at)(std::int32_t index) = nullptr;
  bool is_counted = false;  // by `count`

  bool ReadOnly() const { return !set && !set_at; }
  constexpr bool Indexed() const { return !indices.empty(); }
  // "TabCaption2": the value at `index`, counted from 1, in a property bag.
  std::string KeyOf(std::int32_t index) const { return std::string(name) + std::to_string(index); }
};

struct MethodInfo {
  int number = 0;
  std::string_view name;
  ArgumentList arguments;
  MemberType result;
  std::string_view help;
  MemberFlags flags = MemberFlags::kNone;
  // `values` have the types of the arguments; those by reference hold afterwards what the method left there.
  Variant (*invoke)(Object&, std::span<Variant> values) = nullptr;
};

struct EventInfo;

// One raised event as a by-name listener sees it. Values of by-reference arguments that it changes are
// handed back to the control, converted to the argument's type.
struct RaisedEvent {
  const EventInfo& info;
  std::vector<Variant> values;
};
using EventListener = std::function<void(RaisedEvent&)>;

// Events are numbered by themselves.
struct EventInfo {
  int number = 0;
  std::string_view name;
  ArgumentList arguments;
  std::string_view help;
  EventBase& (*find)(Object&) = nullptr;
  Subscription (*subscribe)(EventBase&, const EventInfo&, EventListener) = nullptr;

  Subscription Subscribe(Object& object, EventListener listener) const {
    return subscribe(find(object), *this, std::move(listener));
  }
  // Ends all subscriptions.
  void EndAll(Object& object) const { find(object).EndAll(); }
};

// How the items of a collection are saved with a control that holds it: their number under `count_key` (a
// 16-bit integer), then for each item, from 1 on, what the class of the items saves, under the prefix, the
// position and the property's name ("Column2Width").
struct SavedItems {
  std::string_view count_key;
  std::string_view prefix;
  const ClassInfo& (*item_class)() = nullptr;
  std::int32_t (*count)(const Object& collection) = nullptr;
  ObjectRef (*item)(const Object& collection, std::int32_t position) = nullptr;
  // Adds a loaded item; `values` are those that the class of the items saves, in its order.
  void (*add)(Object& collection, std::span<const Variant> values) = nullptr;

  std::string KeyOf(std::int32_t position, const PropertyInfo& field) const {
    return std::string(prefix) + std::to_string(position) + std::string(field.name);
  }
};

// What a key of a property bag stands for.
struct PersistedKey {
  const PropertyInfo* property = nullptr;  // null for an unknown key
  std::int32_t index = 0;                  // 0 unless the property is indexed, or of the key of an item
  const PropertyInfo* field = nullptr;     // of the item at `index`
  MemberType type;
  VariantType stored_as = VariantType::kEmpty;
};

// What a table says about the class as a whole.
struct ClassHead {
  std::string_view name;
  std::string_view help;
  TwipSize default_size{Twips(1215), Twips(495)};  // of a control that is placed without one
  std::shared_ptr<Control> (*create)(std::shared_ptr<ControlSite>) = nullptr;  // null for what is no control
  ObjectRef (*create_object)() = nullptr;   // null for what users may not make
  const SavedItems* saved_items = nullptr;  // of a collection that is saved with its control
  // No member: what a control of the class saves after its properties, and never loads.
  const PropertyInfo* only_written = nullptr;
};

template <std::size_t P, std::size_t S, std::size_t M, std::size_t E>
struct ClassData;

// Spans over constant data, which class_table.h puts together.
class ClassInfo {
 public:
  template <std::size_t P, std::size_t S, std::size_t M, std::size_t E>
  constexpr explicit ClassInfo(const ClassData<P, S, M, E>& data)
      : head_(data.head),
        properties_(data.properties),
        methods_(data.methods),
        events_(data.events),
        persisted_{data.properties, data.persisted},
        properties_by_name_(data.properties_by_name),
        methods_by_name_(data.methods_by_name),
        default_member_(data.default_member),
        enumerator_member_(data.enumerator_member) {}
  // Data that ends before the table.
  template <std::size_t P, std::size_t S, std::size_t M, std::size_t E>
  ClassInfo(const ClassData<P, S, M, E>&&) = delete;
  ClassInfo(const ClassInfo&) = delete;
  ClassInfo& operator=(const ClassInfo&) = delete;

  std::string_view Name() const { return head_.name; }
  // "LevelWidgets." + Name(): the name that errors carry and containers register.
  std::string QualifiedName() const { return "LevelWidgets." + std::string(head_.name); }
  std::string_view Help() const { return head_.help; }
  std::span<const PropertyInfo> Properties() const { return properties_; }
  std::span<const MethodInfo> Methods() const { return methods_; }
  std::span<const EventInfo> Events() const { return events_; }
  // Those that a property or argument has as its type.
  std::vector<const EnumerationInfo*> Enumerations() const;

  // The persisted ones of a class's properties; each item is a `const PropertyInfo*`.
  struct PersistedList {
    std::span<const PropertyInfo> properties;
    std::span<const std::uint8_t> positions;

    std::size_t size() const { return positions.size(); }
    const PropertyInfo* operator[](std::size_t position) const { return &properties[positions[position]]; }
    PositionIterator<PersistedList> begin() const { return {*this, 0}; }
    PositionIterator<PersistedList> end() const { return {*this, size()}; }
  };
  // In the order in which they are read and written.
  const PersistedList& Persisted() const { return persisted_; }
  // A persisted property's name, that of an indexed one and an index ("TabCaption2"), a key of a collection
  // and its items ("ColumnCount", "Column2Width"), or that of OnlyWritten.
  PersistedKey FindPersisted(std::string_view key) const;
  // What is saved after the persisted properties and never loaded; null for nothing.
  const PropertyInfo* OnlyWritten() const { return head_.only_written; }
  // The property or method that stands for the object itself; "" when there is none.
  std::string_view DefaultMember() const { return default_member_; }
  // The read-only property through which for-each asks for the items; "" when the class is no collection.
  std::string_view EnumeratorMember() const { return enumerator_member_; }
  // The size of a control that is placed without one.
  TwipSize DefaultSize() const { return head_.default_size; }
  // How the items of a collection are saved; null for a class of which none are.
  const levelwidgets::SavedItems* SavedItems() const { return head_.saved_items; }

  // Null for an unknown name; names are case-sensitive.
  const PropertyInfo* FindProperty(std::string_view name) const;
  const MethodInfo* FindMethod(std::string_view name) const;
  const EventInfo* FindEvent(std::string_view name) const;
  // Properties, methods and events.
  std::vector<std::string_view> MemberNames() const;

  // A control of this class on `site`; null for a class that is no control.
  std::shared_ptr<Control> Create(std::shared_ptr<ControlSite> site) const;
  // Whether users may make objects of this class, which is no control.
  bool Creatable() const { return head_.create_object != nullptr; }
  // Null unless creatable.
  ObjectRef CreateObject() const { return head_.create_object ? head_.create_object() : nullptr; }

 private:
  ClassHead head_;
  std::span<const PropertyInfo> properties_;
  std::span<const MethodInfo> methods_;
  std::span<const EventInfo> events_;
  PersistedList persisted_;
  std::span<const std::uint8_t> properties_by_name_;  // positions, by the order of the names
  std::span<const std::uint8_t> methods_by_name_;
  std::string_view default_member_;
  std::string_view enumerator_member_;
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
// The same, and `arguments` has a value for each argument afterwards: those by reference hold what the method
// left there, the others what they were converted to. Pure outputs may be empty or missing.
Variant InvokeByReference(Object& object, std::string_view method, std::vector<Variant>& arguments,
                          const TextConversions& texts = {});
Subscription SubscribeByName(Object& object, std::string_view event, EventListener listener);
// The items of a collection; raises 438 when the object is no collection.
std::shared_ptr<Enumerator> Enumerate(const Object& object);

// The candidate with the fewest edits, when few enough to be a slip; else "".
std::string_view NearestName(std::string_view name, std::span<const std::string_view> candidates);

// Throws 450 for the indexed `property` used without its indices.
[[noreturn]] void RaiseNeedsIndices(const Object& object, std::string_view property);

// Throws 438 for `member`, naming the class and suggesting the nearest of `candidates`.
[[noreturn]] void RaiseNoSuchMember(std::string_view class_name, std::string_view member,
                                    std::span<const std::string_view> candidates);

}  // namespace levelwidgets
