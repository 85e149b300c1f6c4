// The bytes of an edit box: a gap buffer, so that typing at one place is quick in a text of any length.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace levelwidgets::memory {

// Positions are byte offsets, 0 to Size(); ranges exclude their end.
class TextStore {
 public:
  // A range as it lies in memory; either piece may be empty.
  struct Pieces {
    std::string_view first;
    std::string_view second;
  };

  std::size_t Size() const { return capacity_ - (gap_end_ - gap_start_); }
  char At(std::size_t at) const { return bytes_[at < gap_start_ ? at : at + (gap_end_ - gap_start_)]; }
  // Valid until the next change.
  Pieces Read(std::size_t from, std::size_t to) const;
  std::string Copy(std::size_t from, std::size_t to) const;
  // The first `byte` in the range, or `to`.
  std::size_t Find(char byte, std::size_t from, std::size_t to) const;

  // Frees what a longer text needed. `bytes` must not be the store's own.
  void Assign(std::string_view bytes);
  void Replace(std::size_t from, std::size_t to, std::string_view bytes);

  std::size_t Capacity() const { return capacity_; }

 private:
  void MoveGap(std::size_t to);
  void Erase(std::size_t from, std::size_t to);
  void Reserve(std::size_t room);

  std::unique_ptr<char[]> bytes_;
  std::size_t capacity_ = 0;
  std::size_t gap_start_ = 0;
  std::size_t gap_end_ = 0;
};

}  // namespace levelwidgets::memory
