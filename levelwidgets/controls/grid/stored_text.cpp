#include <levelwidgets/controls/grid/stored_text.h>

#include <limits>
#include <new>

namespace levelwidgets {

void StoredText::MakeElsewhere(std::string_view text, std::pmr::memory_resource& memory) {
  if (text.size() > std::numeric_limits<std::size_t>::max() / 2) throw std::bad_alloc();
  void* const block = memory.allocate(sizeof(std::size_t) + text.size(), alignof(std::size_t));
  const std::size_t size = text.size();
  std::memcpy(block, &size, sizeof(size));
  std::memcpy(static_cast<char*>(block) + sizeof(size), text.data(), size);
  std::memcpy(bytes_, &block, sizeof(block));
  length_ = kElsewhere;
}

void StoredText::Free(std::pmr::memory_resource& memory) {
  if (!IsElsewhere()) return;
  std::size_t* const block = Block();
  memory.deallocate(block, sizeof(std::size_t) + *block, alignof(std::size_t));
  *this = StoredText();
}

}  // namespace levelwidgets
