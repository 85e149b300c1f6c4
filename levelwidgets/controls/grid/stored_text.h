// A text in sixteen bytes: up to fifteen are inside, longer ones are elsewhere in memory.
#pragma once

#include <cstdint>
#include <cstring>
#include <memory_resource>
#include <string_view>

namespace levelwidgets {

// All bytes 0 are the empty text, so that cleared memory holds empty texts. Copies are of these bytes alone:
// who holds the text frees it, once, from the memory that it was made of.
class StoredText {
 public:
  StoredText() = default;
  // Raises std::bad_alloc for a long text that there is no memory for.
  StoredText(std::string_view text, std::pmr::memory_resource& memory) {
    if (text.size() > kMostInside) {
      MakeElsewhere(text, memory);
    } else {
      std::memcpy(bytes_, text.data(), text.size());
      length_ = static_cast<std::uint8_t>(text.size());
    }
  }

  bool IsEmpty() const { return length_ == 0; }
  bool IsElsewhere() const { return length_ == kElsewhere; }
  std::string_view View() const {
    return IsElsewhere() ? Elsewhere() : std::string_view(reinterpret_cast<const char*>(bytes_), length_);
  }
  void Free(std::pmr::memory_resource& memory);

 private:
  static constexpr std::size_t kMostInside = 15;
  static constexpr std::uint8_t kElsewhere = 0xFF;

  void MakeElsewhere(std::string_view text, std::pmr::memory_resource& memory);
  // The block: its text's length, then the text.
  std::size_t* Block() const {
    std::size_t* block;
    std::memcpy(&block, bytes_, sizeof(block));
    return block;
  }
  std::string_view Elsewhere() const {
    const std::size_t* block = Block();
    return {reinterpret_cast<const char*>(block + 1), *block};
  }

  alignas(8) unsigned char bytes_[kMostInside] = {};  // the text, or the address of its block
  std::uint8_t length_ = 0;
};

static_assert(sizeof(StoredText) == 16);

}  // namespace levelwidgets
