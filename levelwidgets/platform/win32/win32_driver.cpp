#include <levelwidgets/platform/win32/win32_driver.h>

#include <windows.h>

#include <levelwidgets/platform/win32/cursor_shape.h>
#include <levelwidgets/platform/win32/injected_input.h>
#include <levelwidgets/platform/win32/native.h>
#include <levelwidgets/platform/win32/object_count.h>
#include <levelwidgets/platform/win32/screen_picture.h>
#include <levelwidgets/platform/win32/win32_text.h>

namespace levelwidgets::win32 {
namespace {

struct ShiftKey {
  int bit;
  int code;
};
constexpr ShiftKey kShiftKeys[] = {{kShiftMask, kKeyShift}, {kCtrlMask, kKeyControl}, {kAltMask, kKeyAlt}};

constexpr int kButtons[] = {kLeftButton, kRightButton, kMiddleButton};

int ShiftBitOf(int code) {
  for (const ShiftKey& key : kShiftKeys)
    if (key.code == code) return key.bit;
  return 0;
}

// Waits until something is pending for this thread; false when nothing came.
bool WaitForInput(DWORD ms) {
  return ::MsgWaitForMultipleObjectsEx(0, nullptr, ms, QS_ALLINPUT, MWMO_INPUTAVAILABLE) == WAIT_OBJECT_0;
}

// Its windows are those of this thread: another thread of the process plays another program.
bool IsOfThisProgram(HWND hwnd) {
  return ::GetWindowThreadProcessId(hwnd, nullptr) == ::GetCurrentThreadId();
}

// The title of a window, the text of what shows one.
std::string TextOf(HWND hwnd) {
  // Asking its procedure for the text would be one more message of the window.
  std::wstring text(256, L'\0');
  int length = ::InternalGetWindowText(hwnd, text.data(), static_cast<int>(text.size()));
  while (length + 1 == std::ssize(text)) {  // maybe cut
    text.resize(2 * text.size());
    length = ::InternalGetWindowText(hwnd, text.data(), static_cast<int>(text.size()));
  }
  text.resize(static_cast<std::size_t>(length));
  return FromWide(text);
}

bool IsText(HWND hwnd) {
  char class_name[16] = "";
  ::GetClassNameA(hwnd, class_name, sizeof class_name);
  return ::lstrcmpiA(class_name, "STATIC") == 0;
}

std::string OnlyTextIn(HWND hwnd) {
  std::string only;
  for (HWND child = ::GetWindow(hwnd, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
    const std::string text = IsText(child) ? TextOf(child) : "";
    if (text.empty()) continue;
    if (!only.empty()) return {};
    only = text;
  }
  return only;
}

}  // namespace

Win32Driver::Win32Driver(Win32Platform& platform) : platform_(platform) {
  WarmUpDrawingObjects();
  const PixelSize screen = platform.Screen().Size();
  MovePointer({screen.width - 1, screen.height - 1});
}

Win32Driver::~Win32Driver() {
  for (const int button : kButtons)
    if ((held_buttons_ & button) != 0) InjectButton(button, false, InputTime());
  HoldShift(0);
}

void Win32Driver::MovePointer(PixelPoint screen) {
  PixelPoint present;
  platform_.Windows().GetCursorPos(present);
  if (present != screen) platform_.PointerWillMove();
  InjectMove(screen);
  Settle();
}

void Win32Driver::Press(int button) {
  held_buttons_ |= button;
  InjectButton(button, true, InputTime());
  Settle();
}

void Win32Driver::Release(int button) {
  held_buttons_ &= ~button;
  InjectButton(button, false, InputTime());
  Settle();
}

void Win32Driver::Wheel(int notches) {
  InjectWheel(notches);
  Settle();
}

void Win32Driver::KeyDown(int code, int shift) {
  const int own = ShiftBitOf(code);
  HoldShift((shift & ~own) | (held_shift_ & own));
  InjectKey(code, true);
  held_shift_ |= own;
  Settle();
}

void Win32Driver::KeyUp(int code, int shift) {
  const int own = ShiftBitOf(code);
  HoldShift((shift & ~own) | (held_shift_ & own));
  InjectKey(code, false);
  held_shift_ &= ~own;
  HoldShift(0);
  Settle();
}

void Win32Driver::Type(std::string_view text) {
  for (const wchar_t unit : ToWide(text)) TypeUnit(unit);
}

void Win32Driver::Leave() {
  active_before_ = platform_.Windows().GetActiveWindow();
  if (!other_program_) other_program_ = std::make_unique<OtherProgram>();
  // What the display server still has to say of the window before may make that one active again, on a busy
  // machine late.
  constexpr std::uint64_t kPatience = 5000;
  constexpr DWORD kPause = 10;
  const std::uint64_t end = ::GetTickCount64() + kPatience;
  for (;;) {
    other_program_->Activate();
    Settle();
    if (other_program_->IsActive() || ::GetTickCount64() >= end) return;
    WaitForInput(kPause);
  }
}

void Win32Driver::Enter() {
  HWND window = ToNative<HWND>(active_before_);
  if (!::IsWindowVisible(window)) {
    const std::vector<TopLevelWindow> windows = TopLevelWindows();
    window = windows.empty() ? nullptr : ToNative<HWND>(windows.front().handle);
  }
  if (window) ::SetForegroundWindow(window);
  Settle();
}

void Win32Driver::SystemCommand(WindowHandle window, std::uintptr_t command) {
  ::PostMessageA(ToNative<HWND>(window), WM_SYSCOMMAND, command, 0);
  Settle();
}

void Win32Driver::Advance(std::uint32_t ms) {
  // No timer of the system is later than this.
  constexpr std::uint64_t kPatience = 100;
  const std::uint64_t end = ::GetTickCount64() + ms;
  for (;;) {
    Settle();
    const std::uint64_t now = ::GetTickCount64();
    const bool late = now >= end && now < end + kPatience && platform_.HasOverdueTimer();
    if (now >= end && !late) return;
    WaitForInput(late ? 1 : static_cast<DWORD>(end - now));
  }
}

void Win32Driver::Settle() {
  // Injected input and what the display server answers arrive from other processes, shortly after.
  constexpr int kMostTurns = 100;
  constexpr DWORD kQuietMs = 2;
  int quiet_turns = 0;
  for (int turn = 0; turn < kMostTurns && quiet_turns < 2; ++turn) {
    platform_.Clock().DoEvents();
    quiet_turns = WaitForInput(kQuietMs) ? 0 : quiet_turns + 1;
  }
}

ColorRef Win32Driver::PixelAt(PixelPoint screen) {
  const PixelSize size = platform_.Screen().Size();
  if (!PixelRect{0, 0, size.width, size.height}.Contains(screen)) return kInvalidColorRef;
  return Capture({screen.x, screen.y, screen.x + 1, screen.y + 1}).At({0, 0});
}

Picture Win32Driver::Capture(PixelRect screen) {
  Settle();
  return CaptureScreen(screen);
}

int Win32Driver::PointerShape() { return ShapeOfCursor(::GetCursor()); }

std::vector<TopLevelWindow> Win32Driver::TopLevelWindows() {
  std::vector<TopLevelWindow> windows;
  for (HWND hwnd = ::GetTopWindow(nullptr); hwnd; hwnd = ::GetWindow(hwnd, GW_HWNDNEXT)) {
    if (!IsOfThisProgram(hwnd) || !::IsWindowVisible(hwnd)) continue;
    RECT rect = {};
    ::GetWindowRect(hwnd, &rect);
    windows.push_back({FromNative<WindowHandle>(hwnd), TextOf(hwnd), FromNativeRect(rect),
                       hwnd == ::GetActiveWindow(), OnlyTextIn(hwnd)});
  }
  return windows;
}

std::size_t Win32Driver::LiveObjects() { return CountDrawingObjects(); }

std::size_t Win32Driver::LiveWindows() { return platform_.LiveWindows(); }

std::size_t Win32Driver::LiveTimers() { return platform_.Clock().LiveTimers(); }

void Win32Driver::HoldShift(int shift) {
  for (const ShiftKey& key : kShiftKeys) {
    const bool wanted = (shift & key.bit) != 0;
    if (wanted != ((held_shift_ & key.bit) != 0)) InjectKey(key.code, wanted);
  }
  held_shift_ = shift;
}

void Win32Driver::TypeUnit(wchar_t unit) {
  // The key in the low byte, Shift, Ctrl and Alt in the high one, with the bits of the controls' events.
  const SHORT key = ::VkKeyScanW(unit);
  if (key != -1) return Key(key & 0xFF, key >> 8 & (kShiftMask | kCtrlMask | kAltMask));
  InjectCharacter(unit, true);
  InjectCharacter(unit, false);
  Settle();
}

}  // namespace levelwidgets::win32
