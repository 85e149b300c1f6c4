// Asserts of what other programs do, which they get to in their own time.
#pragma once

#include <gtest/gtest.h>

#include <utility>

#include <levelwidgets/testing/child_process.h>
#include <levelwidgets/testing/print_pixels.h>

namespace levelwidgets {

// Whether `read()` gives `expected` in time. What is read while a program draws may be half of it.
template <typename Read, typename Value>
::testing::AssertionResult Becomes(const Read& read, const Value& expected) {
  Value last = read();
  if (WaitUntil([&] { return (last = read()) == expected; })) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << "is " << ::testing::PrintToString(last) << ", not " << ::testing::PrintToString(expected);
}

}  // namespace levelwidgets
