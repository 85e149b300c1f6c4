// Memory for tests: counts what is in use, and runs out when a test wants it to.
#pragma once

#include <memory_resource>
#include <new>

namespace levelwidgets {

class CountingMemory : public std::pmr::memory_resource {
 public:
  std::size_t InUse() const { return in_use_; }
  // After `count` more allocations all others fail, until FailNever.
  void FailAfter(int count) { left_ = count; }
  void FailNever() { left_ = -1; }

 private:
  void* do_allocate(std::size_t bytes, std::size_t alignment) override {
    if (left_ == 0) throw std::bad_alloc();
    if (left_ > 0) --left_;
    void* const block = std::pmr::new_delete_resource()->allocate(bytes, alignment);
    in_use_ += bytes;
    return block;
  }
  void do_deallocate(void* block, std::size_t bytes, std::size_t alignment) override {
    in_use_ -= bytes;
    std::pmr::new_delete_resource()->deallocate(block, bytes, alignment);
  }
  bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override { return this == &other; }

  std::size_t in_use_ = 0;
  int left_ = -1;  // below 0: as many as are asked for
};

}  // namespace levelwidgets
