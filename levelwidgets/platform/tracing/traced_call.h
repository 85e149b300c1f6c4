// A recorded call of a platform operation.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace levelwidgets {

// Handles, colours, lengths, flags and booleans (0 or 1) are integers.
using TraceArgument = std::variant<std::int64_t, double, std::string>;

// The operation under its own name, with the arguments it was given in the operating system's order:
// rectangles as left, top, right, bottom, points as x, y. Callbacks and pure results are not arguments.
struct TracedCall {
  std::string name;
  std::vector<TraceArgument> arguments;

  // Rectangle(3, 0, 0, 80, 25), texts in double quotes.
  std::string ToString() const;
  friend bool operator==(const TracedCall&, const TracedCall&) = default;
};

std::vector<std::string> Names(const std::vector<TracedCall>& calls);

}  // namespace levelwidgets
