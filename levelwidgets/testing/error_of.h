// What a call raises.
#pragma once

#include <utility>

#include <levelwidgets/frame/error.h>

namespace levelwidgets {

// The number of the error that `call` raises; 0 when it raises none.
template <typename Call>
std::int32_t ErrorOf(Call&& call) {
  try {
    std::forward<Call>(call)();
  } catch (const Error& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace levelwidgets
