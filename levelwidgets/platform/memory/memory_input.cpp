#include <levelwidgets/platform/memory/memory_input.h>

#include <algorithm>
#include <utility>

#include <levelwidgets/platform/memory/edit/edit_host.h>
#include <levelwidgets/platform/memory/memory_keys.h>
#include <levelwidgets/platform/wheel.h>

namespace levelwidgets::memory {

namespace {

struct ShiftKey {
  int bit;
  int code;
};
// In the order in which they go down and up.
constexpr ShiftKey kShiftKeys[] = {{kShiftMask, kKeyShift}, {kCtrlMask, kKeyControl}, {kAltMask, kKeyAlt}};

constexpr int kKeyF10 = 121;
// The key of a character that no key types.
constexpr int kKeyPacket = 231;

// In a key message, besides kAltContext: the key was down before, the key goes up.
constexpr std::uint32_t kOnce = 1;
constexpr std::uint32_t kWasDown = 1u << 30;
constexpr std::uint32_t kGoesUp = 1u << 31;

}  // namespace

struct MemoryInput::ButtonMessages {
  int button;
  int key;  // that GetKeyState knows it by
  std::uint32_t down;
  std::uint32_t up;
  std::uint32_t double_click;
};

const MemoryInput::ButtonMessages* MemoryInput::MessagesOf(int button) {
  static constexpr ButtonMessages kMessages[] = {
      {kLeftButton, 1, kWmLButtonDown, kWmLButtonUp, kWmLButtonDblClk},
      {kRightButton, 2, kWmRButtonDown, kWmRButtonUp, kWmRButtonDblClk},
      {kMiddleButton, 4, kWmMButtonDown, kWmMButtonUp, kWmMButtonDblClk},
  };
  for (const ButtonMessages& messages : kMessages) {
    if (messages.button == button) return &messages;
  }
  return nullptr;
}

MemoryInput::MemoryInput(MemoryWindows& windows, MemoryClock& clock, MemoryDrawing& drawing)
    : windows_(windows), clock_(clock), drawing_(drawing) {}

bool MemoryInput::IsDown(int code) const { return windows_.GetKeyState(code) < 0; }

void MemoryInput::SetDown(int code, bool down) {
  auto& keys = windows_.Input().down;
  if (code >= 0 && code < std::ssize(keys)) keys[static_cast<std::size_t>(code)] = down;
}

bool MemoryInput::AnyButton() const { return IsDown(1) || IsDown(2) || IsDown(4); }

// --- Pointer ---------------------------------------------------------------------------------

WParam MemoryInput::PointerBits() const {
  WParam bits = 0;
  if (IsDown(1)) bits |= kMkLButton;
  if (IsDown(2)) bits |= kMkRButton;
  if (IsDown(4)) bits |= kMkMButton;
  if (IsDown(kKeyShift)) bits |= kMkShift;
  if (IsDown(kKeyControl)) bits |= kMkControl;
  return bits;
}

WindowHandle MemoryInput::PointerTarget() {
  if (const WindowHandle menu = windows_.Input().menu) return menu;
  if (const WindowHandle capture = windows_.GetCapture()) return capture;
  return windows_.WindowAt(windows_.Input().pointer).window;
}

void MemoryInput::SendPointer(WindowHandle window, std::uint32_t message) {
  PixelPoint point = windows_.Input().pointer;
  if (!windows_.ScreenToClient(window, point)) return;
  windows_.SendMessageA(window, message, PointerBits(), LParamOfPoint(point));
}

void MemoryInput::MovePointer(PixelPoint screen) {
  const PixelRect area = pointer_area_.value_or(windows_.Screen().AreaNear(screen));
  const PixelPoint point{std::clamp(screen.x, area.left, std::max(area.left, area.right - 1)),
                         std::clamp(screen.y, area.top, std::max(area.top, area.bottom - 1))};
  if (point == windows_.Input().pointer) return;
  windows_.Input().pointer = point;
  if (grab_.window) {
    DragFrame();
  } else {
    Move();
  }
}

void MemoryInput::Move() {
  if (windows_.Input().menu || windows_.GetCapture()) return SendPointer(PointerTarget(), kWmMouseMove);
  const PointerHit hit = windows_.WindowAt(windows_.Input().pointer);
  if (!hit.window) {
    windows_.SetCursor(FrameShape(hit));
    return;
  }
  constexpr LParam kOnMove = kHtClient | LParam{kWmMouseMove} << 16;
  windows_.SendMessageA(hit.window, kWmSetCursor, hit.window.value, kOnMove);
  SendPointer(hit.window, kWmMouseMove);
}

void MemoryInput::Press(int button) {
  const ButtonMessages* messages = MessagesOf(button);
  if (!messages || IsDown(messages->key)) return;
  const bool first = !AnyButton();
  SetDown(messages->key, true);
  if (PressMenu(messages->down)) return;
  // Straight to a holder of the capture: nothing is asked and nothing activated.
  const bool asks = first && !windows_.GetCapture();
  const WindowHandle target = asks ? PressTarget(messages->down) : PointerTarget();
  if (!windows_.IsWindow(target)) {
    last_press_.reset();
    return;
  }
  if (!windows_.GetCapture()) windows_.SetCapture(target);
  press_capture_ = true;
  const bool second = IsSecondPress(button, target);
  SendPointer(target, second ? messages->double_click : messages->down);
}

// A press beside the open menu closes it and is a press on what is there.
bool MemoryInput::PressMenu(std::uint32_t message) {
  const WindowHandle menu = windows_.Input().menu;
  if (!menu) return false;
  last_press_.reset();
  if (windows_.WindowAt(windows_.Input().pointer).top_level == menu) {
    SendPointer(menu, message);
    return true;
  }
  windows_.EndMenu();
  return false;
}

// Activates what is under the pointer. A null window when the press is for none of ours.
WindowHandle MemoryInput::PressTarget(std::uint32_t message) {
  const PointerHit hit = windows_.WindowAt(windows_.Input().pointer);
  bool wanted = true;
  if (!hit.top_level) {
    windows_.Deactivate();
  } else if (!hit.disabled) {
    wanted = windows_.ActivateByPress(hit.window ? hit.window : hit.top_level, hit.top_level, message);
  }
  if (!wanted) return {};
  if (!hit.window && !hit.disabled && message == kWmLButtonDown) PressFrame(hit);
  return hit.window;
}

bool MemoryInput::IsSecondPress(int button, WindowHandle window) {
  const PixelPoint at = windows_.Input().pointer;
  const PressRecord press{button, window, at, clock_.GetTickCount()};
  const bool second = last_press_ && last_press_->button == button && last_press_->window == window &&
                      IsSameClick(press.time - last_press_->time, last_press_->at, at);
  if (second) {
    last_press_.reset();
  } else {
    last_press_ = press;
  }
  return second;
}

void MemoryInput::Release(int button) {
  const ButtonMessages* messages = MessagesOf(button);
  if (!messages || !IsDown(messages->key)) return;
  SetDown(messages->key, false);
  if (grab_.window) {
    if (button == kLeftButton) ReleaseFrame();
    return;
  }
  const WindowHandle target = PointerTarget();
  if (!AnyButton()) EndPressCapture();
  SendPointer(target, messages->up);
}

// Whatever has the capture by now.
void MemoryInput::EndPressCapture() {
  if (!press_capture_) return;
  press_capture_ = false;
  if (windows_.GetCapture()) windows_.ReleaseCapture();
}

void MemoryInput::Wheel(int notches) {
  if (windows_.Input().menu) return;
  const PixelPoint pointer = windows_.Input().pointer;
  const WindowHandle target = wheel_to_focus_ ? windows_.GetFocus() : PointerTarget();
  const auto delta = static_cast<std::uint16_t>(notches * kWheelDelta);
  windows_.SendMessageA(target, kWmMouseWheel, PointerBits() | WParam{delta} << 16, LParamOfPoint(pointer));
}

// --- Keys ------------------------------------------------------------------------------------

// The open menu or the focus window; without one the active window gets every key as a system key.
WindowHandle MemoryInput::KeyTarget(bool& system) const {
  if (const WindowHandle menu = windows_.Input().menu) return menu;
  if (const WindowHandle focus = windows_.GetFocus()) return focus;
  system = true;
  return windows_.GetActiveWindow();
}

void MemoryInput::HoldShift(int shift) {
  for (const ShiftKey& key : kShiftKeys) {
    const bool wanted = (shift & key.bit) != 0;
    if (wanted != IsDown(key.code)) SendKey(key.code, wanted);
  }
}

// As HoldShift, without the bit of `code` itself, which stays as it is.
void MemoryInput::HoldOthers(int code, int shift) {
  for (const ShiftKey& key : kShiftKeys) {
    if (key.code != code) continue;
    shift = IsDown(code) ? shift | key.bit : shift & ~key.bit;
  }
  HoldShift(shift);
}

// After a failure: nobody hears of it.
void MemoryInput::ForgetShift() {
  for (const ShiftKey& key : kShiftKeys) SetDown(key.code, false);
}

// As the system tells them apart: what is typed while Alt is held without Ctrl, and F10. Alt itself goes up
// as a system key only when nothing has been typed with it.
bool MemoryInput::IsSystemKey(int code, bool down) {
  const bool ctrl = IsDown(kKeyControl);
  if (code == kKeyAlt) {
    if (!down) return std::exchange(alt_alone_, false);
    alt_alone_ = !ctrl;
    return alt_alone_;
  }
  const bool with_alt = IsDown(kKeyAlt) && (code == kKeyControl ? !down : !ctrl);
  const bool system = with_alt || code == kKeyF10;
  if (system) alt_alone_ = false;
  return system;
}

MemoryInput::KeyRoute MemoryInput::SendKey(int code, bool down) {
  const bool was_down = IsDown(code);
  KeyRoute route;
  route.system = IsSystemKey(code, down);
  SetDown(code, down);
  route.target = KeyTarget(route.system);
  route.bits = KeyBits(was_down, !down);
  const std::uint32_t plain = down ? kWmKeyDown : kWmKeyUp;
  const std::uint32_t with_alt = down ? kWmSysKeyDown : kWmSysKeyUp;
  windows_.SendMessageA(route.target, route.system ? with_alt : plain, static_cast<WParam>(code), route.bits);
  return route;
}

LParam MemoryInput::KeyBits(bool was_down, bool up) const {
  std::uint32_t bits = kOnce;
  if (IsDown(kKeyAlt)) bits |= kAltContext;
  if (was_down || up) bits |= kWasDown;
  if (up) bits |= kGoesUp;
  return static_cast<std::int32_t>(bits);
}

void MemoryInput::KeyDown(int code, int shift) {
  const std::optional<char> character = CharacterOfKey(code, shift);
  Stroke(code, shift, character ? std::string_view(&*character, 1) : "");
}

void MemoryInput::KeyDown(int code, int shift, std::string_view utf8) {
  Stroke(code, shift, drawing_.ToCodePage(utf8));
}

// `characters` are bytes of the code page.
void MemoryInput::Stroke(int code, int shift, std::string_view characters) {
  HoldOthers(code, shift);
  const KeyRoute route = SendKey(code, true);
  for (const char character : characters) {
    windows_.SendMessageA(route.target, route.system ? kWmSysChar : kWmChar,
                          static_cast<std::uint8_t>(character), route.bits);
  }
}

void MemoryInput::LiftKey(int code, int shift) {
  HoldOthers(code, shift);
  SendKey(code, false);
}

void MemoryInput::KeyUp(int code, int shift) {
  try {
    LiftKey(code, shift);
    HoldShift(0);
  } catch (...) {
    SetDown(code, false);
    ForgetShift();
    throw;
  }
}

void MemoryInput::Type(std::string_view utf8) {
  const std::string typed = drawing_.ToCodePage(utf8);
  for (std::string_view rest = typed; !rest.empty();) {
    const std::string_view before = rest;
    const bool pair = drawing_.CodePage().TakeCode(rest) > 0xFF;
    const char first = before.front() == '\n' ? '\r' : before.front();
    const KeyStroke packet{kKeyPacket, 0};
    const KeyStroke stroke = pair ? packet : KeyOfCharacter(before.front()).value_or(packet);
    try {
      Stroke(stroke.code, stroke.shift, pair ? before.substr(0, 2) : std::string_view(&first, 1));
    } catch (...) {
      SetDown(stroke.code, false);
      ForgetShift();
      throw;
    }
    KeyUp(stroke.code, stroke.shift);
  }
}

void MemoryInput::EnterText(std::string_view utf8) {
  bool system = false;
  for (const char character : drawing_.ToCodePage(utf8)) {
    windows_.SendMessageA(KeyTarget(system), kWmChar, static_cast<std::uint8_t>(character), kOnce);
  }
}

}  // namespace levelwidgets::memory
