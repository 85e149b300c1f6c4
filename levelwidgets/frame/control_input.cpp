// A control's window: messages become notifications.
#include <levelwidgets/frame/control.h>

#include <algorithm>

namespace levelwidgets {

LResult Control::OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  // A listener may drop the container's reference; this one lasts until the message has been handled.
  const auto keep = Reference();
  WindowApi& windows = surface_.Windows();
  LResult result = 0;
  switch (message) {
    case kWmDestroy: surface_.WindowLost(); return 0;
    case kWmEraseBackground: return 1;
    case kWmPaint: PaintMessage(window, keep != nullptr); return 0;
    case kWmCommand:
    case kWmCtlColorEdit:
    case kWmCtlColorStatic:
      if (keep && PartMessage(message, wparam, lparam, result)) return result;
      break;
    default: break;
  }
  if (keep && site_->UserMode() &&
      (Pointer(message, wparam, lparam) || Focus(message) || Key(message, wparam, result))) {
    return result;
  }
  return windows.DefWindowProcA(window, message, wparam, lparam);
}

void Control::PaintMessage(WindowHandle window, bool alive) {
  WindowApi& windows = surface_.Windows();
  windows.BeginPaint(window);
  try {
    if (alive) OnPaint();
  } catch (...) {
    windows.EndPaint(window);
    throw;
  }
  windows.EndPaint(window);
}

// --- Pointer -----------------------------------------------------------------------------------------

bool Control::Pointer(std::uint32_t message, WParam wparam, LParam lparam) {
  const PointerAction action = PointerActionOf(message);
  if (action == PointerAction::kNone) return false;
  const PointerInput input = PointerInputOf(surface_.GetPlatform(), message, wparam, lparam);
  switch (action) {
    case PointerAction::kMove: OnMouseMove(input); break;
    case PointerAction::kPress:
    case PointerAction::kDoubleClick: Press(message, action, input); break;
    default: {
      const bool clicked = click_.Release(message, lparam, surface_.ClientPixels());
      OnMouseUp(input);
      // A listener may have taken the control off its container, which then hears no more of it.
      const bool contained = surface_.hWnd() && site_->ParentWindow();
      if (clicked && contained && surface_.Enabled()) OnClick();
    }
  }
  return true;
}

void Control::Press(std::uint32_t message, PointerAction action, const PointerInput& input) {
  const WindowHandle focus_before = surface_.Windows().GetFocus();
  // The second press of a double click arrives as the double click only.
  if (action == PointerAction::kDoubleClick) {
    OnDblClick();
  } else {
    click_.Press(message);
    OnMouseDown(input);
  }
  TakeFocusAfterPress(focus_before);
}

// The focus arrives after the press; a listener that has moved it meanwhile keeps its choice.
void Control::TakeFocusAfterPress(WindowHandle focus_before) {
  WindowApi& windows = surface_.Windows();
  const WindowHandle window = surface_.hWnd();
  if (!window || windows.GetFocus() != focus_before || focused_ || !site_->FocusByPress()) return;
  if (windows.IsWindowVisible(window) && windows.IsWindowEnabled(window)) windows.SetFocus(window);
}

// --- Focus -------------------------------------------------------------------------------------------

bool Control::Focus(std::uint32_t message) {
  if (message == kWmSetFocus) {
    const WindowHandle window = FocusWindow();
    if (window != surface_.hWnd()) {
      surface_.Windows().SetFocus(window);
    } else {
      FocusChanged(true);
    }
    return true;
  }
  if (message != kWmKillFocus) return false;
  if (focused_ && FocusWindow() == surface_.hWnd()) FocusChanged(false);
  return true;
}

void Control::FocusChanged(bool has_focus) {
  const auto keep = Reference();
  focused_ = has_focus;
  if (has_focus) {
    OnEnterFocus();
  } else {
    OnExitFocus();
  }
  site_->FocusChanged(has_focus);
}

// --- Keys --------------------------------------------------------------------------------------------

bool Control::Key(std::uint32_t message, WParam wparam, LResult& result) {
  const std::optional<KeyMessage> key = KeyMessageOf(surface_.Windows(), message, wparam);
  if (!key) return false;
  result = 0;
  if (site_->TakeKey(*key)) return true;
  switch (key->kind) {
    case KeyMessage::Kind::kDown: OnKeyDown(key->code, key->shift); break;
    case KeyMessage::Kind::kUp: OnKeyUp(key->code, key->shift); break;
    case KeyMessage::Kind::kCharacter: {
      std::int16_t key_ascii = key->code;
      if (message == kWmChar) OnKeyPress(key_ascii);
      break;
    }
  }
  // Alt with a key has a meaning for the system too (closing the window, its menu), characters have not.
  return !(message == kWmSysKeyDown || message == kWmSysKeyUp);
}

// --- Parts -------------------------------------------------------------------------------------------

bool Control::PartMessage(std::uint32_t message, WParam wparam, LParam lparam, LResult& result) {
  // Both kinds of message name the part's window in the second parameter.
  const auto window = static_cast<std::uint32_t>(lparam);
  const auto part =
      std::ranges::find_if(parts_, [window](WindowPart* p) { return p->hWnd().value == window; });
  return part != parts_.end() && (*part)->OnParentMessage(message, wparam, result);
}

}  // namespace levelwidgets
