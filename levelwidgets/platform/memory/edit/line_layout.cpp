#include <levelwidgets/platform/memory/edit/line_layout.h>

#include <algorithm>

#include <levelwidgets/platform/memory/edit/words.h>

namespace levelwidgets::memory {

std::size_t LineLayout::Limit(std::size_t line) const {
  return line + 1 < Count() ? Start(line + 1) : text_.Size();
}

std::size_t LineLayout::End(std::size_t line) const {
  if (line + 1 == Count()) return text_.Size();
  const std::size_t limit = Start(line + 1);
  return std::max(Start(line), limit - BreakBefore(limit));
}

bool LineLayout::IsWrapped(std::size_t line) const {
  return line + 1 < Count() && BreakBefore(Start(line + 1)) == 0;
}

// The length of the line break that ends at `offset`, or 0.
std::size_t LineLayout::BreakBefore(std::size_t offset) const {
  if (offset < 2 || text_.At(offset - 1) != '\n' || text_.At(offset - 2) != '\r') return 0;
  return offset > 2 && text_.At(offset - 3) == '\r' ? 3 : 2;
}

// The length of the line break that begins at `offset`, or 0.
std::size_t LineLayout::BreakAt(std::size_t offset) const {
  const auto is = [&](std::size_t at, char byte) { return at < text_.Size() && text_.At(at) == byte; };
  if (!is(offset, '\r')) return 0;
  if (is(offset + 1, '\n')) return 2;
  return is(offset + 1, '\r') && is(offset + 2, '\n') ? 3 : 0;
}

void LineLayout::Rebuild() {
  index_.Reset(text_.Size());
  if (single_line_) return;
  if (wrap_width_ > 0) {
    for (std::size_t start = NextWrapped(0); start != kNone; start = NextWrapped(start)) index_.Add(start);
    return;
  }
  const auto [first, second] = text_.Read(0, text_.Size());
  index_.Reserve(static_cast<std::size_t>(std::count(first.begin(), first.end(), '\n') +
                                          std::count(second.begin(), second.end(), '\n') + 1));
  const std::size_t size = text_.Size();
  for (std::size_t at = text_.Find('\n', 0, size); at < size; at = text_.Find('\n', at + 1, size)) {
    if (at > 0 && text_.At(at - 1) == '\r') index_.Add(at + 1);
  }
}

// Where the line after the one from `start` starts; kNone when that one is the last.
std::size_t LineLayout::NextWrapped(std::size_t start) {
  const std::size_t size = text_.Size();
  std::size_t word = start;
  int x = 0;
  for (std::size_t at = start; at < size; at = text_.Next(at)) {
    const text::CharacterCode code = text_.CodeAt(at);
    if (const std::size_t length = code == '\r' ? BreakAt(at) : 0) return at + length;
    x = measure_.After(x, code);
    if (code <= 0xFF && IsBlank(static_cast<char>(code))) {
      word = at + 1;
    } else if (x > wrap_width_ && at > start) {
      return word > start ? word : at;
    }
  }
  return kNone;
}

LineChange LineLayout::Update(std::size_t at, std::size_t removed, std::size_t inserted) {
  if (single_line_) {
    index_.Reset(text_.Size());
    return {};
  }
  found_.clear();
  return wrap_width_ > 0 ? UpdateWrapped(at, removed, inserted) : UpdateBroken(at, removed, inserted);
}

// Only line breaks that reach into the change can have come or gone.
LineChange LineLayout::UpdateBroken(std::size_t at, std::size_t removed, std::size_t inserted) {
  const std::size_t first = LineOf(at);
  std::size_t gone = first + 1;
  while (gone < Count() && Start(gone) <= at + removed + 1) ++gone;
  const std::size_t end = std::min(at + inserted + 1, text_.Size());
  for (std::size_t feed = text_.Find('\n', at, end); feed < end; feed = text_.Find('\n', feed + 1, end)) {
    if (feed > 0 && text_.At(feed - 1) == '\r') found_.push_back(feed + 1);
  }
  const LineChange change{first, gone - first, found_.size() + 1};
  index_.Splice(first + 1, change.before - 1, found_, text_.Size());
  return change;
}

// Divides anew until a line starts where one started before. The line above may take in a word that has
// become shorter, and those above that one carriage returns that have become a line break.
LineChange LineLayout::UpdateWrapped(std::size_t at, std::size_t removed, std::size_t inserted) {
  std::size_t first = LineOf(at);
  const int above = at > 0 && text_.At(at - 1) == '\r' ? 3 : 1;
  for (int i = 0; i < above && first > 0 && BreakBefore(Start(first)) == 0; ++i) --first;
  std::size_t old = LineOf(at + removed) + 1;
  std::size_t start = NextWrapped(Start(first));
  for (; start != kNone; start = NextWrapped(start)) {
    while (old < Count() && Start(old) + inserted < start + removed) ++old;
    if (old < Count() && Start(old) + inserted == start + removed && start > at + inserted) break;
    found_.push_back(start);
  }
  if (start == kNone) old = Count();
  const LineChange change{first, old - first, found_.size() + 1};
  index_.Splice(first + 1, change.before - 1, found_, text_.Size());
  return change;
}

}  // namespace levelwidgets::memory
