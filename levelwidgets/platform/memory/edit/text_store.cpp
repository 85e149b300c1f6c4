#include <levelwidgets/platform/memory/edit/text_store.h>

#include <algorithm>
#include <cstring>

namespace levelwidgets::memory {

namespace {

constexpr std::size_t kSmallestGap = 64;

void CopyBytes(char* to, std::string_view from) {
  if (!from.empty()) std::memcpy(to, from.data(), from.size());
}

}  // namespace

TextStore::Pieces TextStore::Read(std::size_t from, std::size_t to) const {
  const char* const start = bytes_.get();
  const std::size_t gap = gap_end_ - gap_start_;
  if (to <= gap_start_) return {{start + from, to - from}, {}};
  if (from >= gap_start_) return {{start + gap + from, to - from}, {}};
  return {{start + from, gap_start_ - from}, {start + gap_end_, to - gap_start_}};
}

std::string TextStore::Copy(std::size_t from, std::size_t to) const {
  const Pieces pieces = Read(from, to);
  std::string copy;
  copy.reserve(to - from);
  return copy.append(pieces.first).append(pieces.second);
}

std::size_t TextStore::Find(char byte, std::size_t from, std::size_t to) const {
  if (from >= to) return to;
  const Pieces pieces = Read(from, to);
  if (const std::size_t at = pieces.first.find(byte); at != std::string_view::npos) return from + at;
  const std::size_t at = pieces.second.find(byte);
  return at == std::string_view::npos ? to : from + pieces.first.size() + at;
}

void TextStore::Assign(std::string_view bytes) {
  bytes_.reset();
  capacity_ = bytes.size() + kSmallestGap;
  bytes_ = std::make_unique_for_overwrite<char[]>(capacity_);
  CopyBytes(bytes_.get(), bytes);
  gap_start_ = bytes.size();
  gap_end_ = capacity_;
}

void TextStore::Replace(std::size_t from, std::size_t to, std::string_view bytes) {
  if (from < to) Erase(from, to);
  if (bytes.empty()) return;
  Reserve(bytes.size());
  MoveGap(from);
  CopyBytes(bytes_.get() + gap_start_, bytes);
  gap_start_ += bytes.size();
}

void TextStore::MoveGap(std::size_t to) {
  char* const start = bytes_.get();
  if (to < gap_start_) {
    const std::size_t count = gap_start_ - to;
    std::memmove(start + gap_end_ - count, start + to, count);
    gap_start_ -= count;
    gap_end_ -= count;
  } else if (to > gap_start_) {
    const std::size_t count = to - gap_start_;
    std::memmove(start + gap_start_, start + gap_end_, count);
    gap_start_ += count;
    gap_end_ += count;
  }
}

// What is erased becomes part of the gap; only what lies between the two is moved.
void TextStore::Erase(std::size_t from, std::size_t to) {
  if (to < gap_start_) MoveGap(to);
  if (from > gap_start_) MoveGap(from);
  gap_end_ += to - gap_start_;
  gap_start_ = from;
}

void TextStore::Reserve(std::size_t room) {
  if (gap_end_ - gap_start_ >= room) return;
  const std::size_t size = Size();
  const std::size_t capacity = size + room + std::max(kSmallestGap, size / 4);
  auto bytes = std::make_unique_for_overwrite<char[]>(capacity);
  const std::string_view tail(bytes_.get() + gap_end_, capacity_ - gap_end_);
  CopyBytes(bytes.get(), {bytes_.get(), gap_start_});
  CopyBytes(bytes.get() + capacity - tail.size(), tail);
  gap_end_ = capacity - tail.size();
  capacity_ = capacity;
  bytes_ = std::move(bytes);
}

}  // namespace levelwidgets::memory
