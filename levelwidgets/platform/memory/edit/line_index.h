// Where the lines of a text start.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace levelwidgets::memory {

// Line starts in ascending order, the first one 0. Those up to the place of the last change are kept as
// distances from the text's start, those behind it as distances from its end: what is typed between the
// two changes none of them. A change elsewhere moves the starts in between from one side to the other.
class LineIndex {
 public:
  std::size_t Count() const { return before_.size() + after_.size(); }
  // 0 <= line < Count().
  std::size_t Start(std::size_t line) const;
  // The last line that starts at or before `offset`.
  std::size_t LineOf(std::size_t offset) const;

  // One line.
  void Reset(std::size_t text_length);
  // To be followed by Add for every further line, in order.
  void Reserve(std::size_t lines) { before_.reserve(lines); }
  void Add(std::size_t start) { before_.push_back(static_cast<std::uint32_t>(start)); }
  // `count` lines from `line` on give way to `starts`; the starts of the lines behind follow the text's
  // new length. `line` >= 1.
  void Splice(std::size_t line, std::size_t count, std::span<const std::size_t> starts,
              std::size_t text_length);

  std::size_t Bytes() const { return (before_.capacity() + after_.capacity()) * sizeof(std::uint32_t); }

 private:
  void Divide(std::size_t line);

  std::vector<std::uint32_t> before_{0};
  std::vector<std::uint32_t> after_;  // the next line last
  std::size_t text_length_ = 0;
};

}  // namespace levelwidgets::memory
