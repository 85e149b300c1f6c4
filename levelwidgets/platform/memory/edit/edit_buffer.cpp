#include <levelwidgets/platform/memory/edit/edit_buffer.h>

namespace levelwidgets::memory {

void EditBuffer::Select(Selection selection) {
  selection.anchor = text_.Snapped(std::min(selection.anchor, Size()));
  selection.caret = text_.Snapped(std::min(selection.caret, Size()));
  selection_ = selection;
}

std::size_t EditBuffer::LineOf(std::size_t offset, bool after_wrap) const {
  const std::size_t line = lines_.LineOf(offset);
  const bool above = after_wrap && line > 0 && lines_.Start(line) == offset && lines_.IsWrapped(line - 1);
  return above ? line - 1 : line;
}

std::size_t EditBuffer::CaretLine() const { return LineOf(selection_.caret, selection_.after_wrap); }

void EditBuffer::SetText(std::string_view bytes) {
  text_.Assign(bytes);
  measure_.Changed(0);
  lines_.Rebuild();
  history_.Clear();
  selection_ = {};
}

LineChange EditBuffer::Replace(std::size_t from, std::size_t to, std::string_view bytes) {
  text_.Replace(from, to, bytes);
  measure_.Changed(from);
  return lines_.Update(from, to - from, bytes.size());
}

LineChange EditBuffer::ReplaceSelection(std::string_view bytes, bool can_undo, EditRun run) {
  const std::size_t from = selection_.Start();
  const std::size_t to = selection_.End();
  if (!can_undo) {
    history_.Clear();
  } else if (from != to || !bytes.empty()) {
    history_.Record({from, bytes.size(), text_.Copy(from, to)}, run);
  }
  const std::size_t caret = from + bytes.size();
  selection_ = {caret, caret};
  return Replace(from, to, bytes);
}

std::size_t EditBuffer::FittingLines(std::string_view bytes, std::size_t most) {
  const std::size_t from = selection_.Start();
  const std::string removed = text_.Copy(from, selection_.End());
  const auto fits = [&](std::size_t count) {
    Replace(from, from + removed.size(), bytes.substr(0, count));
    const bool few = lines_.Count() <= most;
    Replace(from, from + count, removed);
    return few;
  };
  if (fits(bytes.size())) return bytes.size();
  std::size_t fitting = 0;
  for (std::size_t too_many = bytes.size(); too_many - fitting > 1;) {
    const std::size_t middle = fitting + (too_many - fitting) / 2;
    (fits(middle) ? fitting : too_many) = middle;
  }
  // Not half a line break.
  return fitting > 0 && bytes[fitting - 1] == '\r' ? fitting - 1 : fitting;
}

// Turns `step` into its inverse.
LineChange EditBuffer::Apply(EditStep& step) {
  const std::size_t end = step.at + step.inserted;
  std::string inverse = text_.Copy(step.at, end);
  const LineChange change = Replace(step.at, end, step.removed);
  step.inserted = step.removed.size();
  step.removed = std::move(inverse);
  selection_ = {step.at, step.at + step.inserted};
  return change;
}

std::optional<LineChange> EditBuffer::Undo() {
  if (!history_.CanUndo()) return {};
  EditStep step = history_.TakeUndo();
  const LineChange change = Apply(step);
  history_.Undone(std::move(step));
  return change;
}

std::optional<LineChange> EditBuffer::Redo() {
  if (!history_.CanRedo()) return {};
  EditStep step = history_.TakeRedo();
  const LineChange change = Apply(step);
  history_.Redone(std::move(step));
  return change;
}

}  // namespace levelwidgets::memory
