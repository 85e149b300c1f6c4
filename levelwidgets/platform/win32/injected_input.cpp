#include <levelwidgets/platform/win32/injected_input.h>

#include <windows.h>

#include <levelwidgets/platform/constants.h>

namespace levelwidgets::win32 {
namespace {

// The keys that the arrow block has in common with the number pad.
bool IsExtended(int code) {
  return (code >= kKeyPageUp && code <= kKeyDown) || code == kKeyInsert || code == kKeyDelete;
}

void SendMouse(DWORD flags, PixelPoint position = {}, DWORD data = 0, DWORD time = 0) {
  INPUT input = {};
  input.type = INPUT_MOUSE;
  input.mi = {.dx = position.x, .dy = position.y, .mouseData = data, .dwFlags = flags, .time = time};
  ::SendInput(1, &input, sizeof input);
}

void SendKey(int code, int scan_code, DWORD flags) {
  INPUT input = {};
  input.type = INPUT_KEYBOARD;
  input.ki = {.wVk = static_cast<WORD>(code), .wScan = static_cast<WORD>(scan_code), .dwFlags = flags};
  ::SendInput(1, &input, sizeof input);
}

// The smallest of the 65536 steps across the screen that falls on `pixel`.
int ToStep(int pixel, int screen_extent) { return (pixel * 65536 + screen_extent - 1) / screen_extent; }

}  // namespace

void InjectMove(PixelPoint screen) {
  SendMouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, {ToStep(screen.x, ::GetSystemMetrics(SM_CXSCREEN)),
                                                      ToStep(screen.y, ::GetSystemMetrics(SM_CYSCREEN))});
}

void InjectButton(int button, bool down, std::uint32_t time) {
  const auto send = [time](DWORD flags) { SendMouse(flags, {}, 0, time); };
  switch (button) {
    case kLeftButton: return send(down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP);
    case kRightButton: return send(down ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_RIGHTUP);
    case kMiddleButton: return send(down ? MOUSEEVENTF_MIDDLEDOWN : MOUSEEVENTF_MIDDLEUP);
    default: return;
  }
}

void InjectWheel(int notches) { SendMouse(MOUSEEVENTF_WHEEL, {}, static_cast<DWORD>(notches * WHEEL_DELTA)); }

void InjectKey(int code, bool down) {
  const auto scan_code = static_cast<int>(::MapVirtualKeyA(static_cast<UINT>(code), MAPVK_VK_TO_VSC));
  SendKey(code, scan_code, (IsExtended(code) ? KEYEVENTF_EXTENDEDKEY : 0u) | (down ? 0u : KEYEVENTF_KEYUP));
}

void InjectCharacter(wchar_t unit, bool down) {
  SendKey(0, unit, KEYEVENTF_UNICODE | (down ? 0u : KEYEVENTF_KEYUP));
}

}  // namespace levelwidgets::win32
