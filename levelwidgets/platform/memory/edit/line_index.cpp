#include <levelwidgets/platform/memory/edit/line_index.h>

#include <algorithm>
#include <functional>

namespace levelwidgets::memory {

std::size_t LineIndex::Start(std::size_t line) const {
  if (line < before_.size()) return before_[line];
  return text_length_ - after_[Count() - 1 - line];
}

std::size_t LineIndex::LineOf(std::size_t offset) const {
  const std::size_t from_end = text_length_ - std::min(offset, text_length_);
  // Distances from the end descend with the lines, so they ascend in `after_`.
  const auto behind = std::lower_bound(after_.begin(), after_.end(), from_end);
  const auto reached = static_cast<std::size_t>(after_.end() - behind);
  if (reached > 0) return before_.size() + reached - 1;
  const auto next = std::upper_bound(before_.begin(), before_.end(), offset);
  return static_cast<std::size_t>(next - before_.begin()) - 1;
}

void LineIndex::Reset(std::size_t text_length) {
  before_ = std::vector<std::uint32_t>{0};
  after_ = {};
  text_length_ = text_length;
}

// Leaves the first `line` lines in `before_`.
void LineIndex::Divide(std::size_t line) {
  while (before_.size() > line) {
    after_.push_back(static_cast<std::uint32_t>(text_length_ - before_.back()));
    before_.pop_back();
  }
  while (before_.size() < line) {
    before_.push_back(static_cast<std::uint32_t>(text_length_ - after_.back()));
    after_.pop_back();
  }
}

void LineIndex::Splice(std::size_t line, std::size_t count, std::span<const std::size_t> starts,
                       std::size_t text_length) {
  Divide(line);
  after_.resize(after_.size() - count);
  text_length_ = text_length;
  for (const std::size_t start : starts) Add(start);
}

}  // namespace levelwidgets::memory
