// How a text is divided into lines.
#pragma once

#include <cstddef>
#include <vector>

#include <levelwidgets/platform/memory/edit/line_index.h>
#include <levelwidgets/platform/memory/edit/text_measure.h>
#include <levelwidgets/platform/memory/edit/text_store.h>

namespace levelwidgets::memory {

// Which lines a change has touched: from `first` on, `before` lines have become `after` lines.
struct LineChange {
  std::size_t first = 0;
  std::size_t before = 1;
  std::size_t after = 1;
};

// A line ends with carriage return and line feed (or two carriage returns and a line feed), which belong
// to it; single ones are characters as any other. Wrapped lines end where the next word would reach over
// the width, blanks before it staying behind; a word too wide for a line of its own is divided.
class LineLayout {
 public:
  LineLayout(const TextStore& text, TextMeasure& measure) : text_(text), measure_(measure) {}

  // One line, whatever is in the text.
  void SetSingleLine(bool single_line) { single_line_ = single_line; }
  // In pixels; 0 does not wrap.
  void SetWrapWidth(int width) { wrap_width_ = width; }
  int WrapWidth() const { return wrap_width_; }
  // To be called after either, and when text or measure have become others.
  void Rebuild();
  // `removed` bytes at `at` have given way to `inserted` others.
  LineChange Update(std::size_t at, std::size_t removed, std::size_t inserted);

  std::size_t Count() const { return index_.Count(); }
  // The line that `offset` is on; a line break belongs to the line it ends.
  std::size_t LineOf(std::size_t offset) const { return index_.LineOf(offset); }
  std::size_t Start(std::size_t line) const { return index_.Start(line); }
  // Where the next line starts, or the text ends.
  std::size_t Limit(std::size_t line) const;
  // Without its line break.
  std::size_t End(std::size_t line) const;
  // Goes on, without a line break, on the next line.
  bool IsWrapped(std::size_t line) const;

  const LineIndex& Index() const { return index_; }

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  std::size_t BreakBefore(std::size_t offset) const;
  std::size_t BreakAt(std::size_t offset) const;
  std::size_t NextWrapped(std::size_t start);
  LineChange UpdateBroken(std::size_t at, std::size_t removed, std::size_t inserted);
  LineChange UpdateWrapped(std::size_t at, std::size_t removed, std::size_t inserted);

  const TextStore& text_;
  TextMeasure& measure_;
  LineIndex index_;
  std::vector<std::size_t> found_;
  int wrap_width_ = 0;
  bool single_line_ = false;
};

}  // namespace levelwidgets::memory
