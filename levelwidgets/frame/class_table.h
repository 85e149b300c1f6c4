// How a class writes its table: Describe<T>("T", "help").Property(...).Event(...).Build().
#pragma once

#include <concepts>
#include <tuple>
#include <type_traits>

#include <levelwidgets/frame/class_info.h>

namespace levelwidgets {

class Enumerator;

namespace table {

template <typename T>
struct IsObjectPointer : std::false_type {};
template <typename T>
struct IsObjectPointer<std::shared_ptr<T>> : std::is_base_of<Object, T> {};
// A shared pointer to an object with a table.
template <typename T>
concept ObjectPointer = IsObjectPointer<T>::value;

// The type of a member as the table shows it.
template <typename T>
TypeName NameOfType() {
  using Type = std::remove_cvref_t<T>;
  if constexpr (std::is_enum_v<Type>) {
    const EnumerationInfo& enumeration = EnumerationOf<Type>();
    return {VariantType::kInt32, enumeration.name, &enumeration};
  } else if constexpr (std::same_as<Type, Color>) {
    return {VariantType::kInt32, "Color"};
  } else if constexpr (std::same_as<Type, WindowHandle>) {
    return {VariantType::kInt32, "Handle"};
  } else if constexpr (std::same_as<Type, Variant>) {
    return {VariantType::kEmpty, "Variant"};
  } else if constexpr (std::same_as<Type, std::string_view>) {
    return {VariantType::kString, "String"};
  } else if constexpr (std::same_as<Type, ObjectRef>) {
    return {VariantType::kObject, "Object"};
  } else if constexpr (ObjectPointer<Type>) {
    return {VariantType::kObject, Type::element_type::Table().Name()};
  } else {
    const VariantType type = Variant(Type{}).Type();
    return {type, std::string(NameOf(type))};
  }
}

template <typename T>
Variant Box(const T& value) {
  if constexpr (std::is_enum_v<T>) {
    return static_cast<std::int32_t>(value);
  } else if constexpr (ObjectPointer<T>) {
    return Variant(ObjectRef(value));
  } else {
    return Variant(value);
  }
}

// `value` has been converted to the type that NameOfType<T> names.
template <typename T>
T Unbox(const Variant& value) {
  if constexpr (std::is_enum_v<T>) {
    return static_cast<T>(std::get<std::int32_t>(value.Get()));
  } else if constexpr (std::same_as<T, Color>) {
    return Color(static_cast<std::uint32_t>(std::get<std::int32_t>(value.Get())));
  } else if constexpr (std::same_as<T, Twips>) {
    return Twips(std::get<float>(value.Get()));
  } else if constexpr (std::same_as<T, Variant>) {
    return value;
  } else if constexpr (std::same_as<T, std::string_view>) {
    return std::get<std::string>(value.Get());
  } else if constexpr (ObjectPointer<T>) {
    return std::static_pointer_cast<typename T::element_type>(std::get<ObjectRef>(value.Get()));
  } else {
    return std::get<T>(value.Get());
  }
}

}  // namespace table

class ClassTable {
 public:
  ClassTable(std::string name, std::string help) {
    info_.qualified_name_ = "LevelWidgets." + name;
    info_.name_ = std::move(name);
    info_.help_ = std::move(help);
  }

  template <typename R, typename T, typename A>
  ClassTable& Property(std::string name, R (T::*get)() const, void (T::*set)(A), PropertyOptions options) {
    PropertyInfo& property = AddProperty<R, T>(std::move(name), get, std::move(options));
    property.set = [set](Object& object, const Variant& value) {
      (static_cast<T&>(object).*set)(table::Unbox<std::remove_cvref_t<A>>(value));
    };
    return *this;
  }

  template <typename R, typename T>
  ClassTable& ReadOnly(std::string name, R (T::*get)() const, std::string help) {
    PropertyOptions options;
    options.help = std::move(help);
    AddProperty<R, T>(std::move(name), get, std::move(options));
    return *this;
  }

  // A property with a value for each of `indices`, which names them. The setter takes the value last.
  template <typename R, typename T, typename... I, typename... SetArgs>
  ClassTable& Indexed(std::string name, R (T::*get)(I...) const, void (T::*set)(SetArgs...),
                      std::vector<std::string> indices, PropertyOptions options) {
    static_assert(sizeof...(SetArgs) == sizeof...(I) + 1);
    using Value = std::remove_cvref_t<std::tuple_element_t<sizeof...(I), std::tuple<SetArgs...>>>;
    PropertyInfo& property = AddIndexed(std::move(name), get, std::move(indices), std::move(options));
    property.set = [name = property.name](Object& object, const Variant&) {
      RaiseNeedsIndices(object, name);
    };
    property.set_at = [set](Object& object, std::span<const Variant> at, const Variant& value) {
      [&]<std::size_t... N>(std::index_sequence<N...>) {
        (static_cast<T&>(object).*set)(table::Unbox<std::remove_cvref_t<I>>(at[N])...,
                                       table::Unbox<Value>(value));
      }
      (std::index_sequence_for<I...>());
    };
    return *this;
  }

  template <typename R, typename T, typename... I>
  ClassTable& IndexedReadOnly(std::string name, R (T::*get)(I...) const, std::vector<std::string> indices,
                              std::string help) {
    PropertyOptions options;
    options.help = std::move(help);
    AddIndexed(std::move(name), get, std::move(indices), std::move(options));
    return *this;
  }

  // How many values of a persisted indexed property there are.
  template <typename R, typename T>
  ClassTable& CountedBy(std::string_view property, R (T::*count)() const) {
    Existing(property).count = [count](const Object& object) {
      return static_cast<std::int32_t>((static_cast<const T&>(object).*count)());
    };
    return *this;
  }

  // The property or method that stands for the object itself.
  ClassTable& DefaultMember(std::string name) {
    info_.default_member_ = std::move(name);
    return *this;
  }

  // The read-only property that for-each asks a collection for.
  template <typename T>
  ClassTable& Enumerated(std::string name, std::shared_ptr<Enumerator> (T::*get)() const, std::string help) {
    info_.enumerator_member_ = name;
    return ReadOnly(std::move(name), get, std::move(help));
  }

  // Users may make objects of class T.
  template <typename T>
  ClassTable& Creatable() {
    info_.create_object_ = [] { return std::make_shared<T>(); };
    return *this;
  }

  // Which properties are saved, in the order in which they are read and written.
  ClassTable& Persisted(std::vector<std::string> names) {
    persisted_names_ = std::move(names);
    return *this;
  }

  // `arguments` names them; a default value makes one, and all after it, optional.
  struct Argument {
    std::string name;
    std::optional<Variant> default_value = std::nullopt;
  };
  template <typename R, typename T, typename... Args>
  ClassTable& Method(std::string name, R (T::*call)(Args...), std::vector<Argument> arguments,
                     std::string help) {
    MethodInfo method;
    method.name = std::move(name);
    method.help = std::move(help);
    if constexpr (!std::is_void_v<R>) method.result = AddedType<R>();
    std::size_t i = 0;
    ((method.arguments.push_back(
          {arguments.at(i).name, AddedType<Args>(), false, arguments.at(i).default_value}),
      ++i),
     ...);
    method.invoke = [call](Object& object, std::span<const Variant> values) {
      return Call(static_cast<T&>(object), call, values, std::index_sequence_for<Args...>());
    };
    info_.methods_.push_back(std::move(method));
    return *this;
  }

  template <typename T, typename... Args>
  ClassTable& Event(int number, std::string name, levelwidgets::Event<Args...> T::*event,
                    std::vector<std::string> arguments, std::string help) {
    EventInfo info;
    info.number = number;
    info.name = std::move(name);
    info.help = std::move(help);
    std::size_t i = 0;
    ((info.arguments.push_back(
          {arguments.at(i), AddedType<Args>(), std::is_lvalue_reference_v<Args>, std::nullopt}),
      ++i),
     ...);
    const std::size_t position = info_.events_.size();
    info.end_all = [event](Object& object) { (Owner<T>(object).*event).EndAll(); };
    info.subscribe = [event, position](Object& object, EventListener listener) {
      const EventInfo& described = object.Class().Events()[position];
      return (Owner<T>(object).*event).Add([&described, listener = std::move(listener)](Args... values) {
        RaisedEvent raised{described, {table::Box<std::remove_cvref_t<Args>>(values)...}};
        listener(raised);
        [[maybe_unused]] std::size_t back = 0;
        (HandBack<Args>(values, described, raised, back++), ...);
      });
    };
    info_.events_.push_back(std::move(info));
    return *this;
  }

  ClassTable& DefaultSize(Twips width, Twips height) {
    info_.default_size_ = {width, height};
    return *this;
  }

  template <typename Factory>
  ClassTable& CreatedBy(Factory factory) {
    info_.create_ = factory;
    return *this;
  }

  ClassInfo Build();

 private:
  template <typename R, typename T>
  PropertyInfo& AddProperty(std::string name, R (T::*get)() const, PropertyOptions options) {
    PropertyInfo& property = AddDescribed(std::move(name), AddedType<R>(), std::move(options));
    property.get = [get](const Object& object) {
      return table::Box<std::remove_cvref_t<R>>((static_cast<const T&>(object).*get)());
    };
    return property;
  }

  template <typename R, typename T, typename... I>
  PropertyInfo& AddIndexed(std::string name, R (T::*get)(I...) const, std::vector<std::string> indices,
                           PropertyOptions options) {
    static_assert(sizeof...(I) > 0);
    PropertyInfo& property = AddDescribed(std::move(name), AddedType<R>(), std::move(options));
    std::size_t i = 0;
    (property.indices.push_back({indices.at(i++), AddedType<I>(), false, std::nullopt}), ...);
    property.get = [name = property.name](const Object& object) -> Variant {
      RaiseNeedsIndices(object, name);
    };
    property.get_at = [get](const Object& object, std::span<const Variant> at) {
      return [&]<std::size_t... N>(std::index_sequence<N...>) {
        return table::Box<std::remove_cvref_t<R>>(
            (static_cast<const T&>(object).*get)(table::Unbox<std::remove_cvref_t<I>>(at[N])...));
      }
      (std::index_sequence_for<I...>());
    };
    return property;
  }

  PropertyInfo& AddDescribed(std::string name, TypeName type, PropertyOptions options);
  // Throws std::logic_error for a name that the table does not have.
  PropertyInfo& Existing(std::string_view name);

  template <typename A>
  TypeName AddedType() {
    TypeName type = table::NameOfType<A>();
    if (type.enumeration) AddEnumeration(*type.enumeration);
    return type;
  }

  // The object as the class that holds an event: one of its bases, or a set of events beside them.
  template <typename T>
  static T& Owner(Object& object) {
    if constexpr (std::derived_from<T, Object>) {
      return static_cast<T&>(object);
    } else {
      return dynamic_cast<T&>(object);
    }
  }

  void AddEnumeration(const EnumerationInfo& enumeration);

  template <typename R, typename T, typename... Args, std::size_t... I>
  static Variant Call(T& object, R (T::*call)(Args...), std::span<const Variant> values,
                      std::index_sequence<I...>) {
    if constexpr (std::is_void_v<R>) {
      (object.*call)(table::Unbox<std::remove_cvref_t<Args>>(values[I])...);
      return {};
    } else {
      return table::Box<std::remove_cvref_t<R>>(
          (object.*call)(table::Unbox<std::remove_cvref_t<Args>>(values[I])...));
    }
  }

  template <typename A>
  static void HandBack(std::remove_reference_t<A>& value, const EventInfo& info, const RaisedEvent& raised,
                       std::size_t position) {
    if constexpr (std::is_lvalue_reference_v<A> && !std::is_const_v<std::remove_reference_t<A>>) {
      value = table::Unbox<std::remove_cvref_t<A>>(
          ConvertTo(info.arguments[position].type.type, raised.values[position]));
    }
  }

  ClassInfo info_;
  std::vector<std::string> persisted_names_;
};

}  // namespace levelwidgets
