#include <levelwidgets/platform/memory/edit/words.h>

#include <algorithm>

namespace levelwidgets::memory {

std::size_t WordLeft(const TextStore& text, std::size_t start, std::size_t offset) {
  while (offset > start && IsBlank(text.At(offset - 1))) --offset;
  while (offset > start && !IsBlank(text.At(offset - 1))) --offset;
  return offset;
}

std::size_t WordRight(const TextStore& text, std::size_t end, std::size_t offset) {
  while (offset < end && !IsBlank(text.At(offset))) ++offset;
  while (offset < end && IsBlank(text.At(offset))) ++offset;
  return offset;
}

std::size_t WordLeftInText(const TextStore& text, const LineLayout& lines, std::size_t offset) {
  const std::size_t line = lines.LineOf(offset);
  const std::size_t start = lines.Start(line);
  if (offset > start) return WordLeft(text, start, std::min(offset, lines.End(line)));
  if (line == 0) return 0;
  // A wrapped line has no break to stop at.
  return lines.IsWrapped(line - 1) ? WordLeft(text, lines.Start(line - 1), offset) : lines.End(line - 1);
}

std::size_t WordRightInText(const TextStore& text, const LineLayout& lines, std::size_t offset) {
  const std::size_t line = lines.LineOf(offset);
  const std::size_t end = lines.End(line);
  return offset >= end ? lines.Limit(line) : WordRight(text, end, offset);
}

WordRange WordAround(const TextStore& text, const LineLayout& lines, std::size_t offset) {
  const std::size_t line = lines.LineOf(offset);
  const std::size_t start = lines.Start(line);
  const std::size_t end = lines.End(line);
  std::size_t from = std::min(offset, end);
  // On a blank it is the word before it.
  const bool in_word = from < end && !IsBlank(text.At(from));
  const bool at_word_start = in_word && (from == start || IsBlank(text.At(from - 1)));
  if (!at_word_start) from = WordLeft(text, start, from);
  return {from, WordRight(text, end, from)};
}

}  // namespace levelwidgets::memory
