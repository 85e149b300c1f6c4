// What a person does with pointer and keyboard, turned into the messages of the desktop in memory.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include <levelwidgets/platform/memory/memory_windows.h>

namespace levelwidgets::memory {

// Messages are delivered before a call returns; paints and posted calls are left to the caller.
class MemoryInput {
 public:
  MemoryInput(MemoryWindows& windows, MemoryClock& clock, MemoryDrawing& drawing);

  // Kept on the screen, as a real pointer is. Moving it to where it is sends nothing.
  void MovePointer(PixelPoint screen);
  // Pressing a button that is down, or releasing one that is not, does nothing.
  void Press(int button);
  void Release(int button);
  // To the focus window, or the one under the pointer when none has the focus.
  void Wheel(int notches);

  // The shift bits are only held, for GetKeyState and the characters: no messages of their own keys.
  void KeyDown(int code, int shift);
  void KeyUp(int code, int shift);
  void Type(std::string_view utf8);

 private:
  struct PressRecord {
    int button = 0;
    WindowHandle window;
    PixelPoint at;
    std::uint64_t time = 0;
  };
  // A press on a window's frame, until its release.
  struct FrameGrab {
    WindowHandle window;
    FramePart part = FramePart::kNone;
    PixelPoint offset;  // of the pointer from the window's outer corner
  };

  struct ButtonMessages;
  static const ButtonMessages* MessagesOf(int button);

  bool IsDown(int code) const;
  void SetDown(int code, bool down);
  bool AnyButton() const;
  WParam PointerBits() const;
  void HoldShift(int shift);

  WindowHandle PointerTarget();
  void SendPointer(WindowHandle window, std::uint32_t message);
  WindowHandle PressTarget(std::uint32_t message);
  bool PressFrame(const PointerHit& hit);
  void DragFrame();
  void ReleaseFrame();
  bool IsSecondPress(int button, WindowHandle window);
  void EndPressCapture();

  WindowHandle KeyTarget(bool& system) const;
  LParam KeyBits(bool was_down, bool up) const;
  void Stroke(int code, int shift, std::optional<char> character);

  MemoryWindows& windows_;
  MemoryClock& clock_;
  MemoryDrawing& drawing_;
  bool press_capture_ = false;
  std::optional<PressRecord> last_press_;
  FrameGrab grab_;
};

}  // namespace levelwidgets::memory
