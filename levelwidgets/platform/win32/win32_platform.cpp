#include <levelwidgets/platform/win32/win32_platform.h>

#include <levelwidgets/platform/win32/exception_relay.h>
#include <levelwidgets/platform/win32/win32_clock.h>
#include <levelwidgets/platform/win32/win32_conversions.h>
#include <levelwidgets/platform/win32/win32_drawing.h>
#include <levelwidgets/platform/win32/win32_file_dialogs.h>
#include <levelwidgets/platform/win32/win32_message_boxes.h>
#include <levelwidgets/platform/win32/win32_screen.h>
#include <levelwidgets/platform/win32/win32_windows.h>

namespace levelwidgets::win32 {

struct Win32Platform::Parts {
  ExceptionRelay relay;
  Win32Drawing drawing;
  Win32Clock system_clock{relay};
  std::unique_ptr<ClockApi> other_clock;  // may be null
  Win32Screen screen;
  Win32Conversions conversions;
  Win32Windows windows{relay};
  Win32FileDialogs file_dialogs{relay};
  Win32MessageBoxes message_boxes{relay};
};

Win32Platform::Win32Platform(const MakeClock& make_clock) : parts_(std::make_unique<Parts>()) {
  if (make_clock) parts_->other_clock = make_clock(parts_->system_clock);
}

Win32Platform::~Win32Platform() = default;

DrawingApi& Win32Platform::Drawing() { return parts_->drawing; }

WindowApi& Win32Platform::Windows() { return parts_->windows; }

ClockApi& Win32Platform::Clock() { return parts_->other_clock ? *parts_->other_clock : parts_->system_clock; }

ScreenApi& Win32Platform::Screen() { return parts_->screen; }

ConversionApi& Win32Platform::Conversions() { return parts_->conversions; }

FileDialogApi& Win32Platform::FileDialogs() { return parts_->file_dialogs; }

MessageBoxApi& Win32Platform::MessageBoxes() { return parts_->message_boxes; }

std::size_t Win32Platform::LiveWindows() const { return parts_->windows.LiveWindows(); }

void Win32Platform::PointerWillMove() { parts_->windows.ForgetPointer(); }

bool Win32Platform::HasOverdueTimer() { return parts_->system_clock.HasOverdueTimer(); }

}  // namespace levelwidgets::win32
