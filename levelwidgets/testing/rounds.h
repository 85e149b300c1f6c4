// How often a test repeats what it tries at random.
#pragma once

namespace levelwidgets::testing {

// `all`, and a tenth of it under the sanitizers, where each round takes ten times as long.
constexpr int Rounds(int all) {
#ifdef LEVELWIDGETS_SANITIZED
  return all / 10;
#else
  return all;
#endif
}

}  // namespace levelwidgets::testing
