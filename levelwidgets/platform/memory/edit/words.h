// Words of a text: what is between blanks.
#pragma once

#include <levelwidgets/platform/memory/edit/line_layout.h>
#include <levelwidgets/platform/memory/edit/text_store.h>

namespace levelwidgets::memory {

constexpr bool IsBlank(char byte) { return byte == ' ' || byte == '\t'; }

// Within a line from `start` to `end`: the start of the word that `offset` is in or behind (blanks before
// `offset` are passed), and the start of the next word.
std::size_t WordLeft(const TextStore& text, std::size_t start, std::size_t offset);
std::size_t WordRight(const TextStore& text, std::size_t end, std::size_t offset);

// Ctrl with an arrow key: as above, and from the edge of a line to its neighbour's.
std::size_t WordLeftInText(const TextStore& text, const LineLayout& lines, std::size_t offset);
std::size_t WordRightInText(const TextStore& text, const LineLayout& lines, std::size_t offset);

struct WordRange {
  std::size_t start = 0;
  std::size_t end = 0;
};

// What a double click at `offset` selects: the word with the blanks behind it.
WordRange WordAround(const TextStore& text, const LineLayout& lines, std::size_t offset);

}  // namespace levelwidgets::memory
