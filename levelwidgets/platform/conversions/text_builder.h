// Text put together without allocating until it is taken.
#pragma once

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>

namespace levelwidgets::conversions {

class TextBuilder {
 public:
  void Append(std::string_view text) {
    if (text.size() > kInlineSize - size_) return AppendLong(text);
    std::ranges::copy(text, inline_ + size_);
    size_ += text.size();
  }
  void Append(char c) {
    if (size_ == kInlineSize) return AppendLong({&c, 1});
    inline_[size_++] = c;
  }
  void Append(std::size_t count, char c) {
    for (; count > 0; --count) Append(c);
  }
  // At least `digits` digits, zeros in front; `number` is not negative.
  void AppendNumber(int number, int digits = 1) {
    char text[std::numeric_limits<int>::digits10 + 1];
    const auto size = static_cast<std::size_t>(std::to_chars(text, std::end(text), number).ptr - text);
    for (auto missing = static_cast<std::size_t>(std::max(digits, 0)); missing > size; --missing) Append('0');
    Append(std::string_view(text, size));
  }

  std::string Take() const {
    return overflow_.empty() ? std::string(inline_, size_) : std::string(overflow_).append(Inline());
  }

 private:
  static constexpr std::size_t kInlineSize = 256;

  std::string_view Inline() const { return {inline_, size_}; }
  void AppendLong(std::string_view text) {
    overflow_ += Inline();
    overflow_ += text;
    size_ = 0;
  }

  char inline_[kInlineSize];
  std::size_t size_ = 0;
  std::string overflow_;
};

}  // namespace levelwidgets::conversions
