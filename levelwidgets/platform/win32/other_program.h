// What plays another program on the desktop: a window of a thread of its own, with input of its own.
#pragma once

#include <future>
#include <thread>

namespace levelwidgets::win32 {

class OtherProgram {
 public:
  // Its window is small, in the upper left corner, and there until this ends.
  OtherProgram();
  ~OtherProgram();
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

  // As a click on its window does.
  void Activate();
  bool IsActive() const;

 private:
  void Run();

  std::promise<void*> ready_;  // HWND
  std::thread thread_;
  void* window_ = nullptr;
};

}  // namespace levelwidgets::win32
