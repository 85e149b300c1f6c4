// The lines of a scene: which of them belong to a platform, and how two lists differ.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace levelwidgets::testing {

// A line that is one platform's alone ends with its mark, "[memory: name of the difference]".
struct LineMark {
  std::string_view platform;
  std::string_view difference;
};
// Null platform without one.
LineMark MarkOf(std::string_view line);

// The lines of `text` that `platform` has, without their marks, their indentation and empty lines.
std::vector<std::string> LinesFor(std::string_view platform, std::string_view text);

// Both lists as one text, line by line: "  " before what is in both, "- " before what only `wanted` has, "+ "
// before what only `got` has.
std::string Differing(const std::vector<std::string>& wanted, const std::vector<std::string>& got);

}  // namespace levelwidgets::testing
