// The bytes of an edit box: a gap buffer, so that typing at one place is quick in a text of any length.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include <levelwidgets/platform/text/code_page.h>

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

  // --- Characters: of one byte each, or what `code_page` says, which must outlive the store.

  void SetCodePage(const text::CodePage& code_page) {
    code_page_ = code_page.HasPairs() ? &code_page : nullptr;
  }
  bool HasPairs() const { return code_page_ != nullptr; }
  // Of the character that begins at `at`.
  text::CharacterCode CodeAt(std::size_t at) const {
    const auto first = static_cast<std::uint8_t>(At(at));
    if (Next(at) == at + 1) return first;
    return static_cast<text::CharacterCode>(first << 8 | static_cast<std::uint8_t>(At(at + 1)));
  }
  // Behind the character that begins at `at`.
  std::size_t Next(std::size_t at) const {
    return code_page_ && at + 1 < Size() && code_page_->IsPair(At(at), At(at + 1)) ? at + 2 : at + 1;
  }
  // Where the character begins that `at` is inside; `at` itself between characters.
  std::size_t Snapped(std::size_t at) const {
    if (!code_page_ || at >= Size()) return at;
    return code_page_->IsSecond([this](std::size_t i) { return At(i); }, at) ? at - 1 : at;
  }
  // Where the character before `at` begins; `at` is not 0.
  std::size_t Previous(std::size_t at) const { return Snapped(at - 1); }

  // --- Changes

  // Frees what a longer text needed. `bytes` must not be the store's own.
  void Assign(std::string_view bytes);
  void Replace(std::size_t from, std::size_t to, std::string_view bytes);

  std::size_t Capacity() const { return capacity_; }

 private:
  void MoveGap(std::size_t to);
  void Erase(std::size_t from, std::size_t to);
  void Reserve(std::size_t room);

  const text::CodePage* code_page_ = nullptr;  // null without pairs
  std::unique_ptr<char[]> bytes_;
  std::size_t capacity_ = 0;
  std::size_t gap_start_ = 0;
  std::size_t gap_end_ = 0;
};

}  // namespace levelwidgets::memory
