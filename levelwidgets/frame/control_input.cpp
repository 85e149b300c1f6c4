// From window messages to notifications, the same on every platform.
#include <levelwidgets/frame/control.h>

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

PointerInput Control::InputOf(std::int16_t button, WParam wparam, LParam lparam) const {
  ScreenApi& screen = surface_.GetPlatform().Screen();
  const PixelPoint pixel = PointOfLParam(lparam);
  int shift = 0;
  if (wparam & kMkShift) shift |= kShiftMask;
  if (wparam & kMkControl) shift |= kCtrlMask;
  // Pointer messages carry no bit for Alt.
  if (surface_.Windows().GetKeyState(kKeyAlt) < 0) shift |= kAltMask;
  return {button,
          static_cast<std::int16_t>(shift),
          {ToTwips(pixel.x, screen.TwipsPerPixelX()), ToTwips(pixel.y, screen.TwipsPerPixelY())}};
}

LResult Control::OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  // A listener may drop the container's reference; this one lasts until the message has been handled.
  const auto keep = weak_from_this().lock();
  WindowApi& windows = surface_.Windows();
  if (message == kWmDestroy) {
    surface_.WindowLost();
    return 0;
  }
  if (message == kWmEraseBackground) return 1;
  if (message == kWmPaint) {
    windows.BeginPaint(window);
    try {
      if (keep) OnPaint();
    } catch (...) {
      windows.EndPaint(window);
      throw;
    }
    windows.EndPaint(window);
    return 0;
  }
  if (!keep || !site_->UserMode()) return windows.DefWindowProcA(window, message, wparam, lparam);

  LResult result = 0;
  switch (message) {
    case kWmMouseMove: OnMouseMove(InputOf(ButtonsDown(wparam), wparam, lparam)); return 0;
    case kWmLButtonDown:
    case kWmRButtonDown:
    case kWmMButtonDown:
    case kWmLButtonDblClk:
    case kWmRButtonDblClk:
    case kWmMButtonDblClk: Press(message, wparam, lparam); return 0;
    case kWmLButtonUp:
    case kWmRButtonUp:
    case kWmMButtonUp: Release(message, wparam, lparam); return 0;
    case kWmSetFocus:
      OnEnterFocus();
      site_->FocusChanged(true);
      return 0;
    case kWmKillFocus:
      OnExitFocus();
      site_->FocusChanged(false);
      return 0;
    default: break;
  }
  if (Key(message, wparam, result)) return result;
  return windows.DefWindowProcA(window, message, wparam, lparam);
}

void Control::Press(std::uint32_t message, WParam wparam, LParam lparam) {
  const WindowHandle focus_before = surface_.Windows().GetFocus();
  // The second press of a double click arrives as the double click only.
  if (message == kWmLButtonDblClk) {
    OnDblClick();
  } else {
    pressed_ = pressed_ || message == kWmLButtonDown;
    OnMouseDown(InputOf(ButtonOf(message), wparam, lparam));
  }
  TakeFocusAfterPress(focus_before);
}

// The focus arrives after the press; a listener that has moved it meanwhile keeps its choice.
void Control::TakeFocusAfterPress(WindowHandle focus_before) {
  WindowApi& windows = surface_.Windows();
  const WindowHandle window = surface_.hWnd();
  if (!window || windows.GetFocus() != focus_before || focus_before == window) return;
  if (windows.IsWindowVisible(window) && windows.IsWindowEnabled(window)) windows.SetFocus(window);
}

void Control::Release(std::uint32_t message, WParam wparam, LParam lparam) {
  const bool clicked =
      message == kWmLButtonUp && pressed_ && surface_.ClientPixels().Contains(PointOfLParam(lparam));
  if (message == kWmLButtonUp) pressed_ = false;
  OnMouseUp(InputOf(ButtonOf(message), wparam, lparam));
  if (clicked && surface_.hWnd() && surface_.Enabled()) OnClick();
}

bool Control::Key(std::uint32_t message, WParam wparam, LResult& result) {
  const auto code = static_cast<std::int16_t>(wparam);
  KeyMessage key{KeyMessage::Kind::kDown, code, ShiftState(surface_.Windows())};
  switch (message) {
    case kWmKeyDown:
    case kWmSysKeyDown: break;
    case kWmKeyUp:
    case kWmSysKeyUp: key.kind = KeyMessage::Kind::kUp; break;
    case kWmChar:
    case kWmSysChar: key.kind = KeyMessage::Kind::kCharacter; break;
    default: return false;
  }
  result = 0;
  if (site_->TakeKey(key)) return true;
  switch (key.kind) {
    case KeyMessage::Kind::kDown: OnKeyDown(code, key.shift); break;
    case KeyMessage::Kind::kUp: OnKeyUp(code, key.shift); break;
    case KeyMessage::Kind::kCharacter: {
      std::int16_t key_ascii = code;
      if (message == kWmChar) OnKeyPress(key_ascii);
      break;
    }
  }
  // Alt with a key has a meaning for the system too (closing the window, its menu), characters have not.
  return !(message == kWmSysKeyDown || message == kWmSysKeyUp);
}

}  // namespace levelwidgets
