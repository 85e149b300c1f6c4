#include <levelwidgets/frame/input.h>

namespace levelwidgets {

namespace {

std::int16_t ButtonOf(std::uint32_t message) {
  switch (message) {
    case kWmRButtonDown:
    case kWmRButtonUp:
    case kWmRButtonDblClk: return kRightButton;
    case kWmMButtonDown:
    case kWmMButtonUp:
    case kWmMButtonDblClk: return kMiddleButton;
    default: return kLeftButton;
  }
}

std::int16_t ButtonsDown(WParam wparam) {
  int buttons = 0;
  if (wparam & kMkLButton) buttons |= kLeftButton;
  if (wparam & kMkRButton) buttons |= kRightButton;
  if (wparam & kMkMButton) buttons |= kMiddleButton;
  return static_cast<std::int16_t>(buttons);
}

}  // namespace

std::int16_t ShiftState(WindowApi& windows) {
  int shift = 0;
  if (windows.GetKeyState(kKeyShift) < 0) shift |= kShiftMask;
  if (windows.GetKeyState(kKeyControl) < 0) shift |= kCtrlMask;
  if (windows.GetKeyState(kKeyAlt) < 0) shift |= kAltMask;
  return static_cast<std::int16_t>(shift);
}

PointerAction PointerActionOf(std::uint32_t message) {
  switch (message) {
    case kWmMouseMove: return PointerAction::kMove;
    case kWmLButtonDblClk: return PointerAction::kDoubleClick;
    case kWmLButtonDown:
    case kWmRButtonDown:
    case kWmMButtonDown:
    case kWmRButtonDblClk:
    case kWmMButtonDblClk: return PointerAction::kPress;
    case kWmLButtonUp:
    case kWmRButtonUp:
    case kWmMButtonUp: return PointerAction::kRelease;
    default: return PointerAction::kNone;
  }
}

InputKind InputKindOf(std::uint32_t message) {
  switch (PointerActionOf(message)) {
    case PointerAction::kMove: return InputKind::kPointerMove;
    case PointerAction::kPress:
    case PointerAction::kDoubleClick: return InputKind::kPress;
    default: break;
  }
  return message == kWmKeyDown || message == kWmSysKeyDown ? InputKind::kKey : InputKind::kNone;
}

std::string_view EventOf(std::uint32_t message) {
  switch (PointerActionOf(message)) {
    case PointerAction::kMove: return "MouseMove";
    case PointerAction::kPress: return "MouseDown";
    case PointerAction::kDoubleClick: return "DblClick";
    case PointerAction::kRelease: return "MouseUp";
    default: break;
  }
  switch (message) {
    case kWmKeyDown:
    case kWmSysKeyDown: return "KeyDown";
    case kWmKeyUp:
    case kWmSysKeyUp: return "KeyUp";
    case kWmChar:
    case kWmSysChar: return "KeyPress";
    case kWmSetFocus: return "EnterFocus";
    case kWmKillFocus: return "ExitFocus";
    case kWmCommand: return "Change";
    case kWmPaint: return "Paint";
    case kWmSize: return "Resize";
    case kWmActivate: return "Activate";
    case kWmClose: return "Unload";
    default: return "Message";
  }
}

PointerInput PointerInputOf(Platform& platform, std::uint32_t message, WParam wparam, LParam lparam) {
  ScreenApi& screen = platform.Screen();
  const PixelPoint pixel = PointOfLParam(lparam);
  int shift = 0;
  if (wparam & kMkShift) shift |= kShiftMask;
  if (wparam & kMkControl) shift |= kCtrlMask;
  // Pointer messages carry no bit for Alt.
  if (platform.Windows().GetKeyState(kKeyAlt) < 0) shift |= kAltMask;
  const std::int16_t button = message == kWmMouseMove ? ButtonsDown(wparam) : ButtonOf(message);
  return {button,
          static_cast<std::int16_t>(shift),
          {ToTwips(pixel.x, screen.TwipsPerPixelX()), ToTwips(pixel.y, screen.TwipsPerPixelY())}};
}

std::optional<KeyMessage> KeyMessageOf(WindowApi& windows, std::uint32_t message, WParam wparam) {
  KeyMessage key;
  switch (message) {
    case kWmKeyDown:
    case kWmSysKeyDown: key.kind = KeyMessage::Kind::kDown; break;
    case kWmKeyUp:
    case kWmSysKeyUp: key.kind = KeyMessage::Kind::kUp; break;
    case kWmChar:
    case kWmSysChar: key.kind = KeyMessage::Kind::kCharacter; break;
    default: return std::nullopt;
  }
  key.code = static_cast<std::int16_t>(wparam);
  key.shift = ShiftState(windows);
  return key;
}

}  // namespace levelwidgets
