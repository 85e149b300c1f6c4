// Real input, real time and the real screen.
#pragma once

#include <memory>

#include <levelwidgets/platform/driver.h>
#include <levelwidgets/platform/win32/other_program.h>
#include <levelwidgets/platform/win32/win32_platform.h>

namespace levelwidgets::win32 {

// Puts the pointer into the lower right corner of the screen when it begins, and leaves no button and no
// key down when it ends. One program at a time can drive a desktop.
class Win32Driver : public DesktopDriver {
 public:
  explicit Win32Driver(Win32Platform& platform);
  ~Win32Driver() override;
  Win32Driver(const Win32Driver&) = delete;
  Win32Driver& operator=(const Win32Driver&) = delete;

  Platform& GetPlatform() override { return platform_; }

  void MovePointer(PixelPoint screen) override;
  void Press(int button) override;
  void Release(int button) override;
  void Wheel(int notches) override;

  void KeyDown(int code, int shift) override;
  void KeyUp(int code, int shift) override;
  void Type(std::string_view text) override;

  // The other program is a window of another thread.
  void Leave() override;
  void Enter() override;
  void SystemCommand(WindowHandle window, std::uintptr_t command) override;

  // Never shorter than `ms`, and as much longer as a timer needs whose time has come.
  void Advance(std::uint32_t ms) override;
  void Settle() override;

  ColorRef PixelAt(PixelPoint screen) override;
  Picture Capture(PixelRect screen) override;

  int PointerShape() override;
  std::vector<TopLevelWindow> TopLevelWindows() override;
  std::size_t LiveObjects() override;
  std::size_t LiveWindows() override;
  std::size_t LiveTimers() override;

 protected:
  // When buttons are pressed, in milliseconds; 0 is the present.
  virtual std::uint32_t InputTime() { return 0; }

 private:
  void HoldShift(int shift);
  void TypeUnit(wchar_t unit);

  Win32Platform& platform_;
  int held_buttons_ = 0;
  int held_shift_ = 0;
  std::unique_ptr<OtherProgram> other_program_;  // while it is active, and until the driver ends
  WindowHandle active_before_;                   // it
};

}  // namespace levelwidgets::win32
