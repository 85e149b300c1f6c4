// Runs something at the end of a scope, also when an exception leaves it.
#pragma once

#include <utility>

namespace levelwidgets {

template <typename Action>
class Finally {
 public:
  explicit Finally(Action action) : action_(std::move(action)) {}
  ~Finally() { action_(); }
  Finally(const Finally&) = delete;
  Finally& operator=(const Finally&) = delete;

 private:
  Action action_;
};

}  // namespace levelwidgets
