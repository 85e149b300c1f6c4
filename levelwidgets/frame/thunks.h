// What the rows of a class table point to: functions that reach a member of an object.
#pragma once

#include <levelwidgets/frame/boxing.h>
#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/frame/signatures.h>

namespace levelwidgets::table {

// T is the class of the table. The member may be one of any base of it.

template <typename T, auto Get>
Variant GetMember(const Object& object) {
  return Box((static_cast<const T&>(object).*Get)());
}

template <typename T, auto Set>
void SetMember(Object& object, const Variant& value) {
  (static_cast<T&>(object).*Set)(Unbox<std::remove_cvref_t<ArgumentOf<Set, 0>>>(value));
}

template <typename T, auto Get>
Variant GetMemberAt(const Object& object, std::span<const Variant> at) {
  return WithPositions<Get>([&]<std::size_t... I>(std::index_sequence<I...>) {
    return Box(
        (static_cast<const T&>(object).*Get)(Unbox<std::remove_cvref_t<ArgumentOf<Get, I>>>(at[I])...));
  });
}

// The setter takes the value last.
template <typename T, auto Set>
void SetMemberAt(Object& object, std::span<const Variant> at, const Variant& value) {
  WithPositions<Set>([&]<std::size_t... I>(std::index_sequence<I...>) {
    const auto given = [&](std::size_t i) -> const Variant& { return i < at.size() ? at[i] : value; };
    (static_cast<T&>(object).*Set)(Unbox<std::remove_cvref_t<ArgumentOf<Set, I>>>(given(I))...);
  });
}

template <typename T, auto Count>
std::int32_t CountOf(const Object& object) {
  return static_cast<std::int32_t>((static_cast<const T&>(object).*Count)());
}

template <typename A>
void HandBack(Variant& value, const std::remove_cvref_t<A>& left) {
  if constexpr (kByReference<A>) value = Box(left);
}

template <typename T, auto Call>
Variant InvokeMember(Object& object, std::span<Variant> values) {
  return WithPositions<Call>([&]<std::size_t... I>(std::index_sequence<I...>)->Variant {
    T& called = static_cast<T&>(object);
    [[maybe_unused]] std::tuple<std::remove_cvref_t<ArgumentOf<Call, I>>...> given{
        Unbox<std::remove_cvref_t<ArgumentOf<Call, I>>>(values[I])...};
    Variant result;
    if constexpr (std::is_void_v<ResultOf<Call>>) {
      (called.*Call)(static_cast<ArgumentOf<Call, I>&&>(std::get<I>(given))...);
    } else {
      result = Box((called.*Call)(static_cast<ArgumentOf<Call, I>&&>(std::get<I>(given))...));
    }
    (HandBack<ArgumentOf<Call, I>>(values[I], std::get<I>(given)), ...);
    return result;
  });
}

template <typename T, auto Raised>
EventBase& FindEvent(Object& object) {
  return static_cast<T&>(object).*Raised;
}

// What events of one signature have in common.
template <typename... Args>
struct EventRow {
  using Type = levelwidgets::Event<Args...>;

  static constexpr std::span<const ArgumentType> Types() { return ArgumentTypes<Args...>(); }

  static Subscription Subscribe(EventBase& event, const EventInfo& info, EventListener listener) {
    return static_cast<Type&>(event).Add([&info, listener = std::move(listener)](Args... values) {
      RaisedEvent raised{info, {Box(values)...}};
      listener(raised);
      [[maybe_unused]] std::size_t position = 0;
      (TakeBack<Args>(values, raised.values[position++]), ...);
    });
  }

 private:
  template <typename A>
  static void TakeBack(std::remove_reference_t<A>& value, const Variant& left) {
    using Value = std::remove_cvref_t<A>;
    if constexpr (kByReference<A>) value = Unbox<Value>(ConvertTo(MemberTypeOf<Value>().type, left));
  }
};
// The standard events, and those of edit boxes.
extern template struct EventRow<>;
extern template struct EventRow<std::int16_t&>;
extern template struct EventRow<std::int16_t, std::int16_t>;
extern template struct EventRow<std::int16_t&, std::int16_t&>;
extern template struct EventRow<std::int16_t, std::int16_t, Twips, Twips>;
extern template struct EventRow<std::int16_t&, std::int16_t&, Twips&, Twips&>;

template <typename Member>
struct EventOf;
template <typename C, typename... Args>
struct EventOf<levelwidgets::Event<Args...> C::*> : EventRow<Args...> {};

}  // namespace levelwidgets::table
