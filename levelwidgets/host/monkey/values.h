// Random values: whatever can be assigned to a property.
#pragma once

#include <random>
#include <span>

#include <levelwidgets/frame/class_info.h>

namespace levelwidgets::monkey {

// The same numbers on every system for the same seed.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : engine_(seed) {}

  // 0 to count - 1.
  std::uint32_t Below(std::size_t count) { return static_cast<std::uint32_t>(engine_() % count); }
  // Both included.
  int Between(int low, int high) {
    return low + static_cast<int>(Below(static_cast<std::size_t>(high - low) + 1));
  }
  bool Once(int in) { return Below(static_cast<std::size_t>(in)) == 0; }
  std::uint64_t Number() { return engine_(); }
  template <typename List>
  const auto& One(const List& list) {
    return *(std::begin(list) + Below(std::size(list)));
  }

 private:
  std::mt19937_64 engine_;
};

// Mostly one of the type, at times one that does not convert to it.
Variant RandomValue(Dice& dice, const MemberType& type);
// From empty to long, with "&", line breaks, characters of and outside the code page.
std::string RandomText(Dice& dice);
// Low numbers, and some out of any range.
std::int32_t RandomIndex(Dice& dice);

}  // namespace levelwidgets::monkey
