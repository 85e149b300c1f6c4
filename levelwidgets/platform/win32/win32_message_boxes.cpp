#include <levelwidgets/platform/win32/win32_message_boxes.h>

#include <windows.h>

#include <levelwidgets/platform/win32/native.h>
#include <levelwidgets/platform/win32/win32_text.h>

namespace levelwidgets::win32 {

// The system's call for wide characters, since a text may have some that the code page lacks.
int Win32MessageBoxes::MessageBoxA(const MessageBoxRequest& request) {
  const std::wstring text = ToWide(request.text), title = ToWide(request.title);
  return relay_.Run([&] {
    return ::MessageBoxW(ToNative<HWND>(request.owner), text.c_str(), title.c_str(), request.style);
  });
}

}  // namespace levelwidgets::win32
