#include <levelwidgets/platform/win32/win32_clock.h>

#include <windows.h>

#include <algorithm>

#include <levelwidgets/platform/win32/window_class.h>

namespace levelwidgets::win32 {
namespace {

constexpr UINT kPostedCall = WM_APP;
constexpr char kReceiverClass[] = "LevelWidgetsClock";

}  // namespace

// The hidden window.
struct Win32Clock::Receiver {
  static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* const clock = reinterpret_cast<Win32Clock*>(::GetWindowLongPtrA(hwnd, GWLP_USERDATA));
    if (!clock || (message != WM_TIMER && message != kPostedCall))
      return ::DefWindowProcA(hwnd, message, wparam, lparam);
    const auto handle = [&] {
      message == WM_TIMER ? clock->OnTimer({static_cast<std::uint32_t>(wparam)}) : clock->OnPosted();
      return LRESULT{0};
    };
    return clock->relay_.Guard(handle, LRESULT{0});
  }

  static HWND Create(Win32Clock* clock) {
    static const WindowClass window_class(kReceiverClass, 0, reinterpret_cast<std::intptr_t>(&Procedure));
    const HWND hwnd = ::CreateWindowExA(0, kReceiverClass, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                        static_cast<HINSTANCE>(ModuleInstance()), nullptr);
    ::SetWindowLongPtrA(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(clock));
    return hwnd;
  }
};

Win32Clock::Win32Clock(ExceptionRelay& relay) : relay_(relay), receiver_(Receiver::Create(this)) {}

Win32Clock::~Win32Clock() { ::DestroyWindow(static_cast<HWND>(receiver_)); }

TimerHandle Win32Clock::SetTimer(std::uint32_t interval_ms, std::function<void()> tick) {
  const TimerHandle timer{++last_timer_};
  if (!::SetTimer(static_cast<HWND>(receiver_), timer.value, interval_ms, nullptr)) return {};
  timers_.emplace(timer, Timer{interval_ms, GetTickCount() + interval_ms, std::move(tick)});
  return timer;
}

bool Win32Clock::KillTimer(TimerHandle timer) {
  return timers_.erase(timer) > 0 && ::KillTimer(static_cast<HWND>(receiver_), timer.value) != FALSE;
}

std::uint64_t Win32Clock::GetTickCount() { return ::GetTickCount64(); }

Date Win32Clock::Now() {
  SYSTEMTIME local = {};
  ::GetLocalTime(&local);
  Date now;
  ::SystemTimeToVariantTime(&local, &now.days);
  return now;
}

void Win32Clock::Post(std::function<void()> call) {
  posted_.push_back(std::move(call));
  ::PostMessageA(static_cast<HWND>(receiver_), kPostedCall, 0, 0);
}

int Win32Clock::Run() {
  MSG message = {};
  while (relay_.Run([&] { return ::GetMessageA(&message, nullptr, 0, 0); }) > 0) {
    ::TranslateMessage(&message);
    relay_.Run([&] { return ::DispatchMessageA(&message); });
  }
  return static_cast<int>(message.wParam);
}

void Win32Clock::Quit(int status) { ::PostQuitMessage(status); }

void Win32Clock::DoEvents() {
  MSG message = {};
  while (relay_.Run([&] { return ::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE); })) {
    if (message.message == WM_QUIT) return Quit(static_cast<int>(message.wParam));  // for Run
    ::TranslateMessage(&message);
    relay_.Run([&] { return ::DispatchMessageA(&message); });
  }
}

bool Win32Clock::HasOverdueTimer() {
  return std::any_of(timers_.begin(), timers_.end(),
                     [now = GetTickCount()](const auto& entry) { return entry.second.due <= now; });
}

void Win32Clock::OnTimer(TimerHandle timer) {
  const auto found = timers_.find(timer);
  if (found == timers_.end()) return;
  found->second.due = GetTickCount() + found->second.interval_ms;
  const std::function<void()> tick = found->second.tick;  // which may kill the timer
  tick();
}

void Win32Clock::OnPosted() {
  if (posted_.empty()) return;
  const std::function<void()> call = std::move(posted_.front());
  posted_.pop_front();
  call();
}

}  // namespace levelwidgets::win32
