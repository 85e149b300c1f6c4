// What a class table asks of the type of a member function.
#pragma once

#include <cstddef>
#include <span>
#include <tuple>
#include <utility>

#include <levelwidgets/frame/arguments.h>

namespace levelwidgets::table {

template <typename Member>
struct Signature;
template <typename R, typename C, typename... Args>
struct Signature<R (C::*)(Args...) const> {
  using Result = R;
  using Arguments = std::tuple<Args...>;
  static constexpr std::span<const ArgumentType> Types() { return ArgumentTypes<Args...>(); }
};
template <typename R, typename C, typename... Args>
struct Signature<R (C::*)(Args...)> : Signature<R (C::*)(Args...) const> {};
template <typename R, typename C, typename... Args>
struct Signature<R (C::*)(Args...) const noexcept> : Signature<R (C::*)(Args...) const> {};
template <typename R, typename C, typename... Args>
struct Signature<R (C::*)(Args...) noexcept> : Signature<R (C::*)(Args...) const> {};

template <auto Member>
using ResultOf = typename Signature<decltype(Member)>::Result;
template <auto Member>
using ArgumentsOf = typename Signature<decltype(Member)>::Arguments;
template <auto Member>
inline constexpr std::size_t kArgumentCount = std::tuple_size_v<ArgumentsOf<Member>>;
template <auto Member, std::size_t I>
using ArgumentOf = std::tuple_element_t<I, ArgumentsOf<Member>>;

// Calls `use` with the positions of the member's arguments.
template <auto Member, typename Use>
decltype(auto) WithPositions(Use use) {
  return use(std::make_index_sequence<kArgumentCount<Member>>());
}

}  // namespace levelwidgets::table
