// The arguments of a method or an event, and the indices of a property.
#pragma once

#include <optional>
#include <span>
#include <stdexcept>
#include <string_view>

#include <levelwidgets/frame/literal.h>
#include <levelwidgets/frame/member_type.h>

namespace levelwidgets {

struct ArgumentInfo {
  std::string_view name;
  MemberType type;
  bool by_reference = false;               // what it is given by the called comes back to the caller
  bool output = false;                     // by reference, and what goes in does not matter
  std::optional<Literal> default_value{};  // of an optional argument
};

// What the signature says about an argument.
struct ArgumentType {
  MemberType type;
  bool by_reference;
};

// Goes through what a list hands out by its position.
template <typename List>
class PositionIterator {
 public:
  using difference_type = std::ptrdiff_t;
  using value_type = std::remove_cvref_t<decltype(std::declval<const List&>()[0])>;

  PositionIterator() = default;
  PositionIterator(const List& list, std::size_t position) : list_(&list), position_(position) {}
  value_type operator*() const { return (*list_)[position_]; }
  PositionIterator& operator++() {
    ++position_;
    return *this;
  }
  PositionIterator operator++(int) { return {*list_, position_++}; }
  friend bool operator==(const PositionIterator&, const PositionIterator&) = default;

 private:
  const List* list_ = nullptr;
  std::size_t position_ = 0;
};

// Constant data, put together from the names as a table writes them ("X, Y, out Row": `out` in front of a
// pure output), the types of the signature and the defaults of the last arguments.
class ArgumentList {
 public:
  constexpr ArgumentList() = default;
  // Throws std::logic_error unless there is a name for each type.
  constexpr ArgumentList(std::string_view names, std::span<const ArgumentType> types,
                         std::span<const Literal> defaults = {})
      : names_(names), types_(types), defaults_(defaults) {
    std::size_t count = names.empty() ? 0 : 1;
    for (const char c : names) count += c == ',' ? 1 : 0;
    if (count != types.size()) throw std::logic_error("not as many names as arguments");
    if (defaults.size() > types.size()) throw std::logic_error("more defaults than arguments");
  }

  constexpr std::size_t size() const { return types_.size(); }
  constexpr bool empty() const { return types_.empty(); }
  ArgumentInfo operator[](std::size_t position) const;
  ArgumentInfo front() const { return (*this)[0]; }
  PositionIterator<ArgumentList> begin() const { return {*this, 0}; }
  PositionIterator<ArgumentList> end() const { return {*this, size()}; }

 private:
  std::string_view names_;
  std::span<const ArgumentType> types_;
  std::span<const Literal> defaults_;
};

namespace table {

template <typename A>
inline constexpr bool kByReference =
    std::is_lvalue_reference_v<A> && !std::is_const_v<std::remove_reference_t<A>>;

template <typename... Args>
inline constexpr ArgumentType kArgumentTypes[]{{MemberTypeOf<Args>(), kByReference<Args>}...};

template <typename... Args>
constexpr std::span<const ArgumentType> ArgumentTypes() {
  if constexpr (sizeof...(Args) == 0) {
    return {};
  } else {
    return kArgumentTypes<Args...>;
  }
}

}  // namespace table

}  // namespace levelwidgets
