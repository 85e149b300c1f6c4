#include <windows.h>

#include <levelwidgets/native/native_windows.h>
#include <levelwidgets/platform/win32/native.h>
#include <levelwidgets/platform/win32/win32_driver.h>
#include <levelwidgets/platform/win32/win32_platform.h>

namespace levelwidgets {

namespace {

// How soon the program ends after its last form, in milliseconds.
constexpr std::uint32_t kLookAfterForms = 50;

BOOL CALLBACK NoteForm(HWND window, LPARAM found) {
  const bool is_form = (GetWindowLongA(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
  if (is_form && IsWindowVisible(window)) *reinterpret_cast<bool*>(found) = true;
  return TRUE;
}

bool AnyFormIsShown() {
  bool found = false;
  EnumThreadWindows(GetCurrentThreadId(), NoteForm, reinterpret_cast<LPARAM>(&found));
  return found;
}

class SystemWindows final : public NativeWindows {
 public:
  Platform& GetPlatform() override { return platform_; }

  int Run() override {
    ClockApi& clock = platform_.Clock();
    const TimerHandle look = clock.SetTimer(kLookAfterForms, [&clock] {
      if (!AnyFormIsShown()) clock.Quit(0);
    });
    const int status = clock.Run();
    clock.KillTimer(look);
    return status;
  }

  std::shared_ptr<DesktopDriver> Driver() override { return std::make_shared<win32::Win32Driver>(platform_); }

 private:
  win32::Win32Platform platform_;
};

}  // namespace

std::unique_ptr<NativeWindows> NativeWindows::Open(const NativeWindowOptions&) {
  return std::make_unique<SystemWindows>();
}

}  // namespace levelwidgets
