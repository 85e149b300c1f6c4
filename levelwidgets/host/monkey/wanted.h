// What a random choice is made from.
#pragma once

#include <vector>

namespace levelwidgets::monkey {

// The elements of `list`, which outlives the result, that `is_wanted` accepts.
template <typename List, typename Predicate>
auto Wanted(const List& list, Predicate is_wanted) {
  std::vector<const typename List::value_type*> found;
  for (const auto& one : list) {
    if (is_wanted(one)) found.push_back(&one);
  }
  return found;
}

}  // namespace levelwidgets::monkey
