#include <levelwidgets/platform/win32/window_class.h>

#include <windows.h>

// The linker's name for the module's first byte, which is its instance handle.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace levelwidgets::win32 {

void* ModuleInstance() { return &__ImageBase; }

WindowClass::WindowClass(const char* name, std::uint32_t style, std::intptr_t procedure) : name_(name) {
  WNDCLASSA window_class = {};
  window_class.style = style;
  window_class.lpfnWndProc = reinterpret_cast<WNDPROC>(procedure);
  window_class.hInstance = static_cast<HINSTANCE>(ModuleInstance());
  window_class.hCursor = ::LoadCursor(nullptr, IDC_ARROW);
  window_class.lpszClassName = name;
  ::RegisterClassA(&window_class);
}

WindowClass::~WindowClass() { ::UnregisterClassA(name_, static_cast<HINSTANCE>(ModuleInstance())); }

}  // namespace levelwidgets::win32
