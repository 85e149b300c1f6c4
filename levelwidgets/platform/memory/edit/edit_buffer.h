// The contents of an edit box: its text in lines, the selected part of it, and what can be undone.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include <levelwidgets/platform/memory/edit/edit_history.h>
#include <levelwidgets/platform/memory/edit/line_layout.h>
#include <levelwidgets/platform/memory/edit/text_measure.h>
#include <levelwidgets/platform/memory/edit/text_store.h>

namespace levelwidgets::memory {

// From `anchor`, which stays where the selection was begun, to `caret`.
struct Selection {
  std::size_t anchor = 0;
  std::size_t caret = 0;
  // Where a line is wrapped the caret stands at its end, not at the start of the next.
  bool after_wrap = false;

  std::size_t Start() const { return std::min(anchor, caret); }
  std::size_t End() const { return std::max(anchor, caret); }
  bool Empty() const { return anchor == caret; }
  friend bool operator==(const Selection&, const Selection&) = default;
};

class EditBuffer {
 public:
  EditBuffer() : measure_(text_), lines_(text_, measure_) {}
  EditBuffer(const EditBuffer&) = delete;
  EditBuffer& operator=(const EditBuffer&) = delete;

  const TextStore& Text() const { return text_; }
  // Of the texts from now on; it must outlive the buffer.
  void SetCodePage(const text::CodePage& code_page) { text_.SetCodePage(code_page); }
  std::size_t Size() const { return text_.Size(); }
  // Measuring remembers, so it is for whoever has the buffer to change.
  TextMeasure& Measure() { return measure_; }
  LineLayout& Lines() { return lines_; }
  const LineLayout& Lines() const { return lines_; }

  const Selection& Selected() const { return selection_; }
  // What is beyond the text is its end, what is inside a character its start.
  void Select(Selection selection);
  // The line the caret is shown on.
  std::size_t CaretLine() const;
  std::size_t LineOf(std::size_t offset, bool after_wrap) const;

  // Nothing is selected and nothing can be undone afterwards.
  void SetText(std::string_view bytes);
  // The caret goes behind `bytes`.
  LineChange ReplaceSelection(std::string_view bytes, bool can_undo, EditRun run);
  // How many of `bytes` can replace the selection so that there are at most `most` lines.
  std::size_t FittingLines(std::string_view bytes, std::size_t most);
  // What comes back is selected; nothing when there is nothing to do.
  std::optional<LineChange> Undo();
  std::optional<LineChange> Redo();

  const EditHistory& History() const { return history_; }
  void ForgetHistory() { history_.Clear(); }
  void EndRun() { history_.EndRun(); }

 private:
  LineChange Replace(std::size_t from, std::size_t to, std::string_view bytes);
  LineChange Apply(EditStep& step);

  TextStore text_;
  TextMeasure measure_;
  LineLayout lines_;
  EditHistory history_;
  Selection selection_;
};

}  // namespace levelwidgets::memory
