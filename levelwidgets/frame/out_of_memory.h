// The error of the automation layer for work that the memory does not suffice for.
#pragma once

#include <new>
#include <utility>

#include <levelwidgets/frame/error.h>

namespace levelwidgets {

// What `work` returns. Raises 7 (out of memory) where it finds none left.
template <typename Work>
decltype(auto) OrOutOfMemory(Work&& work) {
  try {
    return std::forward<Work>(work)();
  } catch (const std::bad_alloc&) {
    throw Error(kOutOfMemory);
  }
}

}  // namespace levelwidgets
