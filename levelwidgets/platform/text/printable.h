// Texts of unknown origin, made fit to be shown on a terminal.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace levelwidgets::text {

// `text` on one line that a terminal shows as it is: control characters are written as "\u001B", bytes that
// are no UTF-8 as "\xFF", and of more than `longest` bytes the middle is left out.
std::string Printable(std::string_view text, std::size_t longest = 500);

// The same of each line, with its tabs; of more than `most` lines only how many more there are.
inline constexpr std::size_t kLongestLine = 2000;
inline constexpr std::size_t kMostLines = 2000;
std::string PrintableLines(std::string_view text, std::size_t longest = kLongestLine,
                           std::size_t most = kMostLines);

}  // namespace levelwidgets::text
