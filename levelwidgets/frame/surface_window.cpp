// Messages become notifications.
#include <levelwidgets/frame/surface_window.h>

#include <algorithm>

namespace levelwidgets {

LResult SurfaceWindow::OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  // While the surface is made and while it is destroyed, the window is not its own.
  if (surface_.hWnd() != window) {
    return surface_.Windows().DefWindowProcA(window, message, wparam, lparam);
  }
  const auto site = SharedSite();  // the control may be gone when it is asked
  return Reporting(*site, EventOf(message), [&] { return HandleMessage(window, message, wparam, lparam); });
}

LResult SurfaceWindow::HandleMessage(WindowHandle window, std::uint32_t message, WParam wparam,
                                     LParam lparam) {
  WindowApi& windows = surface_.Windows();
  // A listener may drop the container's reference; this one lasts until the message has been handled.
  const auto keep = Reference();
  LResult result = 0;
  switch (message) {
    case kWmDestroy:
      EndParts();
      surface_.WindowLost();
      return 0;
    case kWmEraseBackground: return 1;
    case kWmPaint: PaintMessage(window, keep != nullptr); return 0;
    case kWmPrintClient: PrintMessage({static_cast<std::uint32_t>(wparam)}, keep != nullptr); return 0;
    case kWmSize:
      if (keep) OnWindowSize();
      return 0;
    case kWmMouseActivate:
      if (keep && Site().UserMode() && !Site().AcceptsPress()) return kMaActivateAndEat;
      break;
    case kWmCaptureChanged: click_.CaptureLost(windows); break;
    case kWmCommand:
    case kWmCtlColorEdit:
    case kWmCtlColorStatic:
      if (keep && PartMessage(message, wparam, lparam, result)) return result;
      break;
    default: break;
  }
  const bool in_use = keep && Site().UserMode();
  if (message == kWmSetCursor && in_use && ShapePointer(window, wparam)) return 1;
  if (const InputKind kind = InputKindOf(message); in_use && kind != InputKind::kNone) {
    Site().InputArrived(kind);
  }
  if (in_use && PressIsRefused(message)) return 0;
  if (in_use &&
      (Pointer(message, wparam, lparam) || Focus(message, wparam) || Key(message, wparam, result))) {
    return result;
  }
  return windows.DefWindowProcA(window, message, wparam, lparam);
}

void SurfaceWindow::PaintMessage(WindowHandle window, bool alive) {
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

void SurfaceWindow::PrintMessage(DcHandle target, bool alive) {
  if (!alive) return;
  const Surface::Redirection redirection(surface_, target);
  OnPaint();
}

// --- Pointer -----------------------------------------------------------------------------------------

bool SurfaceWindow::Pointer(std::uint32_t message, WParam wparam, LParam lparam) {
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
      // A listener may have taken the control off its container, which then hears nothing from it.
      const bool contained = surface_.hWnd() && Site().ParentWindow();
      if (clicked && contained && surface_.Enabled()) OnClick();
    }
  }
  return true;
}

// A window under the pointer is asked whether it becomes active, and asks its container then. One that has
// the capture gets the press without that question.
bool SurfaceWindow::PressIsRefused(std::uint32_t message) {
  if (InputKindOf(message) != InputKind::kPress) return false;
  WindowApi& windows = surface_.Windows();
  if (windows.GetCapture() != surface_.hWnd() || Holds(windows.GetFocus())) return false;
  return !Site().AcceptsPress() || !surface_.hWnd();
}

void SurfaceWindow::Press(std::uint32_t message, PointerAction action, const PointerInput& input) {
  const WindowHandle focus_before = surface_.Windows().GetFocus();
  press_point_ = input.at;
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
void SurfaceWindow::TakeFocusAfterPress(WindowHandle focus_before) {
  WindowApi& windows = surface_.Windows();
  const WindowHandle window = surface_.hWnd();
  if (!window || windows.GetFocus() != focus_before || Holds(focus_before) || !FocusByPress()) return;
  if (windows.IsWindowVisible(window) && windows.IsWindowEnabled(window)) windows.SetFocus(window);
}

// Parts ask their parents first, and decide for themselves.
bool SurfaceWindow::ShapePointer(WindowHandle window, WParam over) {
  const int shape = static_cast<std::uint32_t>(over) == window.value ? PointerShape() : 0;
  if (shape != 0) surface_.Windows().SetCursor(shape);
  return shape != 0;
}

// --- Focus -------------------------------------------------------------------------------------------

bool SurfaceWindow::Focus(std::uint32_t message, WParam wparam) {
  if (message != kWmSetFocus && message != kWmKillFocus) return false;
  PartFocus(message == kWmSetFocus, {static_cast<std::uint32_t>(wparam)});
  WindowApi& windows = surface_.Windows();
  const WindowHandle window = FocusWindow();
  // A listener that has moved the focus keeps its choice.
  const bool passes_on = message == kWmSetFocus && window && window != surface_.hWnd();
  if (passes_on && windows.GetFocus() == surface_.hWnd()) windows.SetFocus(window);
  return true;
}

bool SurfaceWindow::Holds(WindowHandle window) const {
  if (window && window == surface_.hWnd()) return true;
  return std::ranges::any_of(parts_, [window](const WindowPart* part) { return part->Holds(window); });
}

// --- Keys --------------------------------------------------------------------------------------------

bool SurfaceWindow::Key(std::uint32_t message, WParam wparam, LResult& result) {
  std::optional<KeyMessage> key = KeyMessageOf(surface_.Windows(), message, wparam);
  if (!key) return false;
  result = 0;
  if (TakeKey(*key)) return true;
  switch (key->kind) {
    case KeyMessage::Kind::kDown: OnKeyDown(key->code, key->shift); break;
    case KeyMessage::Kind::kUp: OnKeyUp(key->code, key->shift); break;
    case KeyMessage::Kind::kCharacter:
      if (message == kWmChar) OnKeyPress(key->code);
      break;
  }
  // Alt with a key has a meaning for the system too (closing the window, its menu), characters have not.
  return !(message == kWmSysKeyDown || message == kWmSysKeyUp);
}

// --- Parts -------------------------------------------------------------------------------------------

bool SurfaceWindow::PartMessage(std::uint32_t message, WParam wparam, LParam lparam, LResult& result) {
  // Both kinds of message name the part's window in the second parameter.
  const WindowHandle window{static_cast<std::uint32_t>(lparam)};
  if (!window) return false;  // a part may have no window yet
  const auto part = std::ranges::find_if(parts_, [window](WindowPart* p) { return p->hWnd() == window; });
  return part != parts_.end() && (*part)->OnParentMessage(message, wparam, result);
}

void SurfaceWindow::EndParts() {
  // Losing the focus may be an event, whose listener may take parts away.
  for (WindowPart* part : std::vector(parts_)) {
    if (std::ranges::find(parts_, part) != parts_.end()) part->OnHostGone();
  }
}

}  // namespace levelwidgets
