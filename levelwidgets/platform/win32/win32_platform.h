// The real thing: gdi32, user32, kernel32, comdlg32 and oleaut32.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>

#include <levelwidgets/platform/file_dialogs.h>
#include <levelwidgets/platform/message_boxes.h>
#include <levelwidgets/platform/platform.h>

namespace levelwidgets::win32 {

// Belongs to the thread that makes it. Windows that are left when it ends are destroyed without a message to
// their clients. No header of this folder includes one of the system's.
class Win32Platform final : public Platform, public FileDialogSource, public MessageBoxSource {
 public:
  // What stands for the system's clock, and may use it.
  using MakeClock = std::function<std::unique_ptr<ClockApi>(ClockApi& system)>;

  explicit Win32Platform(const MakeClock& make_clock = {});
  ~Win32Platform() override;

  DrawingApi& Drawing() override;
  WindowApi& Windows() override;
  ClockApi& Clock() override;
  ScreenApi& Screen() override;
  ConversionApi& Conversions() override;
  FileDialogApi& FileDialogs() override;
  MessageBoxApi& MessageBoxes() override;

  // Windows made through Windows() and not yet destroyed.
  std::size_t LiveWindows() const;
  // The pointer is going to be moved, perhaps back to where its last move was delivered.
  void PointerWillMove();
  // Whether the time of a timer of the system's clock has come and its tick not yet.
  bool HasOverdueTimer();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace levelwidgets::win32
