// A window class of the module that this code is linked into.
#pragma once

#include <cstdint>

namespace levelwidgets::win32 {

// The program or library this code is part of, as an HINSTANCE.
void* ModuleInstance();

// Registered for as long as this exists; with the arrow as pointer and no background brush.
class WindowClass {
 public:
  // `procedure` is the native window procedure; `name` must outlive this.
  WindowClass(const char* name, std::uint32_t style, std::intptr_t procedure);
  ~WindowClass();
  WindowClass(const WindowClass&) = delete;
  WindowClass& operator=(const WindowClass&) = delete;

 private:
  const char* name_;
};

}  // namespace levelwidgets::win32
