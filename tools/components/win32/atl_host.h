// The system's control host: a window class that makes a control by the name in its window's text, and a
// function that makes one in any window.
#pragma once

#include <string>

#include <tools/components/win32/com.h>

class AtlHost {
 public:
  // For instance "atl100.dll" and "AtlAxWin100"; with another class than the host's, "Static", by the
  // function.
  AtlHost(const std::wstring& library, std::wstring window_class) : class_(std::move(window_class)) {
    const HMODULE module = LoadLibraryW(library.c_str());
    BOOL(WINAPI * start)() = nullptr;
    Find(module, "AtlAxWinInit", start);
    Find(module, "AtlAxGetControl", control_of_);
    Find(module, "AtlAxCreateControlEx", make_in_);
    if (!start()) _com_issue_error(E_FAIL);
  }

  // In pixels of the frame.
  IDispatchPtr Make(const std::wstring& control, HWND frame, const RECT& place) const {
    const bool by_text = class_ != L"Static";
    const HWND window = CreateWindowExW(
        0, class_.c_str(), by_text ? control.c_str() : L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, place.left,
        place.top, place.right - place.left, place.bottom - place.top, frame, nullptr, nullptr, nullptr);
    if (!window) _com_issue_error(HRESULT_FROM_WIN32(GetLastError()));
    IUnknownPtr made;
    if (!by_text) {
      Require(make_in_(control.c_str(), window, nullptr, nullptr, &made, IID_NULL, nullptr));
    } else {
      Require(control_of_(window, &made));
    }
    return made;
  }

 private:
  template <typename Function>
  static void Find(HMODULE module, const char* name, Function*& function) {
    function = reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
    if (!function) _com_issue_error(HRESULT_FROM_WIN32(GetLastError()));
  }

  std::wstring class_;
  HRESULT(WINAPI* control_of_)(HWND, IUnknown**) = nullptr;
  HRESULT(WINAPI* make_in_)(LPCOLESTR, HWND, IStream*, IUnknown**, IUnknown**, REFIID, IUnknown*) = nullptr;
};

inline LRESULT CALLBACK EndLoopWithWindow(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, wparam, lparam);
}

// A window to put controls in, whose end ends the message loop.
inline HWND MakeFrame(const wchar_t* title) {
  WNDCLASSW frame{};
  frame.lpfnWndProc = EndLoopWithWindow;
  frame.hCursor = LoadCursorW(nullptr, reinterpret_cast<const wchar_t*>(IDC_ARROW));
  frame.hbrBackground = CreateSolidBrush(RGB(192, 192, 192));
  frame.lpszClassName = L"Frame of controls";
  RegisterClassW(&frame);
  const HWND window = CreateWindowExW(0, frame.lpszClassName, title, WS_OVERLAPPEDWINDOW, 100, 60, 640, 480,
                                      nullptr, nullptr, nullptr, nullptr);
  ShowWindow(window, SW_SHOW);
  return window;
}
