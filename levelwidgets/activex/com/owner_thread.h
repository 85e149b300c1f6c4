// The thread that objects belong to.
#pragma once

#include <functional>

#include <levelwidgets/activex/com/component_interface.h>

namespace levelwidgets::activex {

// The thread that makes this. Objects of the component interface run on the thread that made them, and end
// there: their windows belong to it.
class OwnerThread {
 public:
  OwnerThread();
  ~OwnerThread();
  OwnerThread(const OwnerThread&) = delete;
  OwnerThread& operator=(const OwnerThread&) = delete;

  bool IsCurrent() const { return ::GetCurrentThreadId() == id_; }
  // Calls `call` on this thread: at once when it is the caller's, otherwise with one of its next messages. A
  // thread that has ended never does. `call` may end this.
  void Call(std::function<void()> call) const;

 private:
  DWORD id_ = ::GetCurrentThreadId();
  HWND receiver_;  // hears of the calls of other threads
};

}  // namespace levelwidgets::activex
