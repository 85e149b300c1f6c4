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

  // Kept on the screen, as a real pointer is, or in the area of SetPointerArea. Moving it to where it is
  // sends nothing.
  void MovePointer(PixelPoint screen);
  // Where the pointer may be instead: on several native screens, for instance. 16 bits hold all of it.
  void SetPointerArea(PixelRect area) { pointer_area_ = area; }
  // Pressing a button that is down, or releasing one that is not, does nothing.
  void Press(int button);
  void Release(int button);
  // To the holder of the capture or else to the window under the pointer; to the focus window when the
  // desktop is set so.
  void Wheel(int notches);
  void SetWheelToFocus(bool to_focus) { wheel_to_focus_ = to_focus; }

  // The keys of the shift bits go down before a key and up after it, with messages of their own: Shift, Ctrl,
  // Alt. A key that is one of these says nothing of itself by its bit.
  void KeyDown(int code, int shift);
  void KeyUp(int code, int shift);
  void Type(std::string_view utf8);

  // What a native keyboard brings, whatever its layout is:
  // A key goes down with the shift bits held, and its characters are those of `utf8`, not the key's own.
  void KeyDown(int code, int shift, std::string_view utf8);
  // A key goes up, and the shift bits stay held.
  void LiftKey(int code, int shift);
  // Characters that no key stands for, those of an input method for instance.
  void EnterText(std::string_view utf8);
  // The shift bits that are held from now on. What changes is sent as keys.
  void HoldShift(int shift);

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
    FrameEdges edges;  // those that are dragged
    PixelPoint from;   // where the pointer was
    PixelRect rect;    // the window's outer rectangle then
  };

  struct ButtonMessages;
  static const ButtonMessages* MessagesOf(int button);

  bool IsDown(int code) const;
  void SetDown(int code, bool down);
  bool AnyButton() const;
  WParam PointerBits() const;

  void Move();
  int FrameShape(const PointerHit& hit);
  WindowHandle PointerTarget();
  void SendPointer(WindowHandle window, std::uint32_t message);
  bool PressMenu(std::uint32_t message);
  WindowHandle PressTarget(std::uint32_t message);
  void PressFrame(const PointerHit& hit);
  void DragFrame();
  void ReleaseFrame();
  bool IsSecondPress(int button, WindowHandle window);
  void EndPressCapture();

  // Where a key went, whose characters follow it.
  struct KeyRoute {
    WindowHandle target;
    bool system = false;
    LParam bits = 0;
  };
  KeyRoute SendKey(int code, bool down);
  bool IsSystemKey(int code, bool down);
  void HoldOthers(int code, int shift);
  void ForgetShift();
  WindowHandle KeyTarget(bool& system) const;
  LParam KeyBits(bool was_down, bool up) const;
  void Stroke(int code, int shift, std::string_view characters);

  MemoryWindows& windows_;
  MemoryClock& clock_;
  MemoryDrawing& drawing_;
  bool press_capture_ = false;
  bool wheel_to_focus_ = false;
  bool alt_alone_ = false;  // Alt is down, and no other key has been used with it
  std::optional<PressRecord> last_press_;
  FrameGrab grab_;
  std::optional<PixelRect> pointer_area_;
};

}  // namespace levelwidgets::memory
