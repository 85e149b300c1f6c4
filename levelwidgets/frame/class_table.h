// How a class writes its table:
//
//   const ClassInfo& Dial::Table() {
//     using Row = table::Row<Dial>;
//     static constexpr auto data = ClassTable(
//         ObjectClass("Dial", "Something to turn."),
//         table::Properties(
//             Row::Property<&Dial::Steps, &Dial::SetSteps>(1, "Steps", Always(0), "How many."),
//             Row::ReadOnly<&Dial::Locked>(2, "Locked", "Whether it is locked.")),
//         table::Persisted("Steps"),
//         table::Methods(Row::Method<&Dial::Turn>(3, "Turn", "By, out Rest", "Turns it.")),
//         table::Events(Row::Event<&Dial::Turned>(1, "Turned", "By", "It was turned.")));
//     static constexpr ClassInfo info(data);
//     return info;
//   }
//
// All of it is constant data: a mistake in a table (a number or a name that is there twice, a persisted
// property that is none) does not compile.
#pragma once

#include <stdexcept>

#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/frame/thunks.h>

namespace levelwidgets {

struct PropertyOptions {
  VariantType stored_as = VariantType::kEmpty;  // where it differs from the property's type
  MemberFlags flags = MemberFlags::kNone;
};

struct IndexedOptions {
  // Where the values have defaults of their own; they are the same for all three.
  Literal (*default_at)(std::int32_t index) = nullptr;
  MemberFlags flags = MemberFlags::kNone;
};

namespace table {

// The rows of class T.
template <typename T>
struct Row {
  template <auto Get, auto Set>
  static constexpr PropertyInfo Property(int number, std::string_view name, const Defaults& defaults,
                                         std::string_view help, const PropertyOptions& options = {}) {
    PropertyInfo row = ReadOnly<Get>(number, name, help, options.flags);
    row.defaults = defaults;
    if (options.stored_as != VariantType::kEmpty) row.stored_as = options.stored_as;
    row.set = &SetMember<T, Set>;
    return row;
  }

  template <auto Get>
  static constexpr PropertyInfo ReadOnly(int number, std::string_view name, std::string_view help,
                                         MemberFlags flags = MemberFlags::kNone) {
    PropertyInfo row = Described<Get>(number, name, help, flags);
    row.get = &GetMember<T, Get>;
    return row;
  }

  // A property with a value for each of `indices`, which names them. `Count` returns how many values a
  // persisted one has.
  template <auto Get, auto Set, auto Count>
  static constexpr PropertyInfo Indexed(int number, std::string_view name, std::string_view indices,
                                        std::string_view help, const IndexedOptions& options = {}) {
    PropertyInfo row = Indexed<Get, Set>(number, name, indices, help, options);
    row.count = &CountOf<T, Count>;
    row.is_counted = true;
    return row;
  }

  template <auto Get, auto Set>
  static constexpr PropertyInfo Indexed(int number, std::string_view name, std::string_view indices,
                                        std::string_view help, const IndexedOptions& options = {}) {
    static_assert(kArgumentCount<Set> == kArgumentCount<Get> + 1);
    PropertyInfo row = IndexedReadOnly<Get>(number, name, indices, help, options.flags);
    row.set_at = &SetMemberAt<T, Set>;
    row.default_at = options.default_at;
    if (options.default_at) row.defaults = Always(options.default_at(1));
    return row;
  }

  template <auto Get>
  static constexpr PropertyInfo IndexedReadOnly(int number, std::string_view name, std::string_view indices,
                                                std::string_view help,
                                                MemberFlags flags = MemberFlags::kNone) {
    static_assert(kArgumentCount<Get> > 0);
    PropertyInfo row = Described<Get>(number, name, help, flags);
    row.indices = ArgumentList(indices, Signature<decltype(Get)>::Types());
    row.get_at = &GetMemberAt<T, Get>;
    return row;
  }

  // A collection, which the class of the value says how to save.
  template <auto Get>
  static constexpr PropertyInfo Collection(int number, std::string_view name, std::string_view help) {
    PropertyInfo row = ReadOnly<Get>(number, name, help);
    row.is_collection = true;
    return row;
  }

  // The read-only property that for-each asks a collection for.
  template <auto Get>
  static constexpr PropertyInfo Enumerated(int number, std::string_view name, std::string_view help) {
    return ReadOnly<Get>(number, name, help, MemberFlags::kEnumerator);
  }

  // `optional` has the default values of the last arguments; it must be constant data itself.
  template <auto Call>
  static constexpr MethodInfo Method(int number, std::string_view name, std::string_view arguments,
                                     std::string_view help, std::span<const Literal> optional = {}) {
    MethodInfo row;
    row.number = number;
    row.name = name;
    row.arguments = ArgumentList(arguments, Signature<decltype(Call)>::Types(), optional);
    row.result = MemberTypeOf<ResultOf<Call>>();
    row.help = help;
    row.invoke = &InvokeMember<T, Call>;
    return row;
  }

  template <auto Raised>
  static constexpr EventInfo Event(int number, std::string_view name, std::string_view arguments,
                                   std::string_view help) {
    using Common = EventOf<decltype(Raised)>;
    EventInfo row;
    row.number = number;
    row.name = name;
    row.arguments = ArgumentList(arguments, Common::Types());
    row.help = help;
    row.find = &FindEvent<T, Raised>;
    row.subscribe = &Common::Subscribe;
    return row;
  }

 private:
  template <auto Get>
  static constexpr PropertyInfo Described(int number, std::string_view name, std::string_view help,
                                          MemberFlags flags) {
    PropertyInfo row;
    row.number = number;
    row.name = name;
    row.type = MemberTypeOf<ResultOf<Get>>();
    row.stored_as = row.type.type;
    row.help = help;
    row.flags = flags;
    return row;
  }
};

template <typename... Rows>
constexpr std::array<PropertyInfo, sizeof...(Rows)> Properties(const Rows&... rows) {
  return {rows...};
}
template <typename... Rows>
constexpr std::array<MethodInfo, sizeof...(Rows)> Methods(const Rows&... rows) {
  return {rows...};
}
template <typename... Rows>
constexpr std::array<EventInfo, sizeof...(Rows)> Events(const Rows&... rows) {
  return {rows...};
}
// Which properties are saved, in the order in which they are read and written.
template <typename... Names>
constexpr std::array<std::string_view, sizeof...(Names)> Persisted(const Names&... names) {
  return {names...};
}

// The positions of the rows by the order of their names. Throws std::logic_error for a name that two have.
template <typename Info, std::size_t N>
constexpr std::array<std::uint8_t, N> ByName(const std::array<Info, N>& rows) {
  static_assert(N < 256);
  std::array<std::uint8_t, N> order{};
  for (std::size_t i = 0; i < N; ++i) {
    std::size_t at = i;
    for (; at > 0 && rows[i].name < rows[order[at - 1]].name; --at) order[at] = order[at - 1];
    order[at] = static_cast<std::uint8_t>(i);
  }
  for (std::size_t i = 1; i < N; ++i) {
    if (rows[order[i - 1]].name == rows[order[i]].name) throw std::logic_error("two members of one name");
  }
  return order;
}

}  // namespace table

// The head of a class that is no control.
constexpr ClassHead ObjectClass(std::string_view name, std::string_view help) { return {name, help}; }

// The same of one that users may make objects of.
template <typename T>
constexpr ClassHead CreatableClass(std::string_view name, std::string_view help) {
  ClassHead head{name, help};
  head.create_object = []() -> ObjectRef { return std::make_shared<T>(); };
  return head;
}

// The same of a collection whose items are saved with the control that holds it.
constexpr ClassHead CollectionClass(std::string_view name, std::string_view help, const SavedItems& items) {
  ClassHead head{name, help};
  head.saved_items = &items;
  return head;
}

// What a ClassInfo shows.
template <std::size_t P, std::size_t S, std::size_t M, std::size_t E>
struct ClassData {
  ClassHead head;
  std::array<PropertyInfo, P> properties;
  std::array<std::uint8_t, S> persisted;  // positions of properties
  std::array<MethodInfo, M> methods;
  std::array<EventInfo, E> events;
  std::array<std::uint8_t, P> properties_by_name;
  std::array<std::uint8_t, M> methods_by_name;
  std::string_view default_member;
  std::string_view enumerator_member;
};

namespace table {

template <std::size_t P>
constexpr std::uint8_t Persist(std::array<PropertyInfo, P>& properties, std::string_view name) {
  std::size_t at = 0;
  while (at < P && properties[at].name != name) ++at;
  if (at == P) throw std::logic_error("a persisted property that is none");
  PropertyInfo& row = properties[at];
  if (row.Indexed() && (row.indices.size() > 1 || !row.is_counted)) {
    throw std::logic_error("no indices to persist a property by");
  }
  row.persisted = true;
  return static_cast<std::uint8_t>(at);
}

template <std::size_t N>
constexpr void CheckNumbers(const std::array<int, N>& numbers) {
  for (std::size_t i = 0; i < N; ++i) {
    if (numbers[i] <= 0) throw std::logic_error("a number that is not more than 0");
    for (std::size_t other = 0; other < i; ++other) {
      if (numbers[other] == numbers[i]) throw std::logic_error("two members of one number");
    }
  }
}

// Properties and methods share their numbers, events have theirs.
template <std::size_t P, std::size_t S, std::size_t M, std::size_t E>
constexpr void CheckNumbers(const ClassData<P, S, M, E>& data) {
  std::array<int, P + M> numbers{};
  for (std::size_t i = 0; i < P; ++i) numbers[i] = data.properties[i].number;
  for (std::size_t i = 0; i < M; ++i) numbers[P + i] = data.methods[i].number;
  std::array<int, E> event_numbers{};
  for (std::size_t i = 0; i < E; ++i) event_numbers[i] = data.events[i].number;
  CheckNumbers(numbers);
  CheckNumbers(event_numbers);
}

}  // namespace table

// Puts a table together. Throws std::logic_error for what no table may have, so that it does not compile as
// constant data.
template <std::size_t P, std::size_t S = 0, std::size_t M = 0, std::size_t E = 0>
constexpr ClassData<P, S, M, E> ClassTable(const ClassHead& head,
                                           const std::array<PropertyInfo, P>& properties,
                                           const std::array<std::string_view, S>& persisted = {},
                                           const std::array<MethodInfo, M>& methods = {},
                                           const std::array<EventInfo, E>& events = {}) {
  ClassData<P, S, M, E> data{
      head, properties, {}, methods, events, table::ByName(properties), table::ByName(methods)};
  for (std::size_t i = 0; i < S; ++i) data.persisted[i] = table::Persist(data.properties, persisted[i]);
  const auto note = [&data](std::string_view name, MemberFlags flags) {
    if (Has(flags, MemberFlags::kDefault)) data.default_member = name;
    if (Has(flags, MemberFlags::kEnumerator)) data.enumerator_member = name;
  };
  for (const PropertyInfo& row : properties) note(row.name, row.flags);
  for (const MethodInfo& row : methods) note(row.name, row.flags);
  table::ByName(events);  // no name twice
  table::CheckNumbers(data);
  return data;
}

}  // namespace levelwidgets
