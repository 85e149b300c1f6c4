// What a person does in the native windows, on the desktop.
#include <SDL.h>

#include <algorithm>

#include <levelwidgets/platform/hand.h>
#include <levelwidgets/presenter/native_focus.h>
#include <levelwidgets/presenter/native_keys.h>
#include <levelwidgets/presenter/native_text.h>
#include <levelwidgets/presenter/presenter.h>

namespace levelwidgets::presenter {

namespace {

int ButtonOf(std::uint8_t native) {
  switch (native) {
    case SDL_BUTTON_LEFT: return kLeftButton;
    case SDL_BUTTON_RIGHT: return kRightButton;
    case SDL_BUTTON_MIDDLE: return kMiddleButton;
    default: return 0;
  }
}

// Moves inside one window that directly follow each other count as the last of them, however many a slow
// handler has left waiting.
bool IsOvertaken(const SDL_Event& event, const SDL_Event& next) {
  return event.type == SDL_MOUSEMOTION && next.type == SDL_MOUSEMOTION &&
         event.motion.windowID == next.motion.windowID;
}

int HeldShift() { return ShiftOfHeld(static_cast<std::uint16_t>(SDL_GetModState())); }

}  // namespace

void Presenter::Handle(const std::vector<SDL_Event>& events) {
  for (std::size_t i = 0; i < events.size(); ++i) {
    const SDL_Event& event = events[i];
    if (event.type == SDL_KEYDOWN) {
      if (native_focus_ != 0) TakeFocus();  // the turn's keys go where the keyboard is by now
      i = HandleKey(events, i);
    } else if (i + 1 == events.size() || !IsOvertaken(event, events[i + 1])) {
      HandleEvent(event);
    }
  }
  LeaveIfOutside();
  AskForFocus();
  TakeFocus();
}

void Presenter::HandleEvent(const SDL_Event& event) {
  switch (event.type) {
    case SDL_MOUSEMOTION:
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
    case SDL_MOUSEWHEEL: HandlePointer(event); break;
    case SDL_KEYUP: {
      const int held = ShiftOfHeld(event.key.keysym.mod);
      const int code = CodeOfKey({event.key.keysym.sym, event.key.keysym.scancode, event.key.keysym.mod, ""});
      if (code != 0) desktop_.LiftKey(code, held);
      desktop_.HoldShift(held);
      break;
    }
    case SDL_TEXTINPUT: desktop_.EnterText(event.text.text); break;
    case SDL_WINDOWEVENT: HandleWindow(event.window); break;
    case SDL_CLIPBOARDUPDATE: TakeClipboard(); break;
    case SDL_QUIT: desktop_.Clock().Quit(0); break;
    default: break;
  }
}

// The text that a key types follows it. Returns which event was the last.
std::size_t Presenter::HandleKey(const std::vector<SDL_Event>& events, std::size_t at) {
  const SDL_KeyboardEvent& event = events[at].key;
  NativeKey key{event.keysym.sym, event.keysym.scancode, event.keysym.mod, ""};
  if (at + 1 < events.size() && events[at + 1].type == SDL_TEXTINPUT) key.text = events[++at].text.text;
  char own = 0;
  const KeyPress press = PressOf(key, own);
  if (press.code != 0) {
    desktop_.KeyDown(press.code, press.shift, press.text);
  } else if (!press.text.empty()) {
    desktop_.EnterText(press.text);
  }
  return at;
}

// --- Pointer ---------------------------------------------------------------------------------

void Presenter::HandlePointer(const SDL_Event& event) {
  desktop_.HoldShift(HeldShift());
  switch (event.type) {
    case SDL_MOUSEMOTION: PointTo(event.motion.windowID, {event.motion.x, event.motion.y}); break;
    case SDL_MOUSEBUTTONDOWN:
      PointTo(event.button.windowID, {event.button.x, event.button.y});
      if (event.button.button == SDL_BUTTON_MIDDLE)
        selection_.Offer();  // keys of this turn may have selected it
      PressIn(event.button.windowID, ButtonOf(event.button.button));
      if (event.button.button == SDL_BUTTON_MIDDLE) selection_.Insert();
      break;
    case SDL_MOUSEBUTTONUP:
      PointTo(event.button.windowID, {event.button.x, event.button.y});
      desktop_.Release(ButtonOf(event.button.button));
      break;
    default:
      if (event.wheel.y != 0) desktop_.Wheel(event.wheel.y);
      break;
  }
}

void Presenter::PressIn(std::uint32_t native_id, int button) {
  const WindowHandle former = desktop_.Windows().GetActiveWindow();
  pressed_at_ = SDL_GetTicks64();
  desktop_.Press(button);
  const WindowHandle active = desktop_.Windows().GetActiveWindow();
  const Shown* pressed = FindNative(native_id);
  if (active == former || !pressed || active == pressed->window) return;
  pressed_popup_ = active;
  pressed_form_ = pressed->window;
}

// The native order of the windows decides which of several that overlap is under the pointer.
void Presenter::PointTo(std::uint32_t native_id, PixelPoint place) {
  const Shown* shown = FindNative(native_id);
  if (!shown) return;
  pointer_left_ = false;
  const PixelPoint in_window = display_.GetScale().InWindow(place);
  const PixelPoint point{shown->part.left + in_window.x, shown->part.top + in_window.y};
  memory::MemoryWindows& windows = desktop_.Windows();
  if (shown->part.Contains(point) && windows.WindowAt(point).top_level != shown->window) {
    windows.SetWindowPos(shown->window, {kHwndTop}, {},
                         kSwpNoMove | kSwpNoSize | kSwpNoActivate | kSwpNoRedraw);
  }
  MoveByHand(desktop_, desktop_.Windows(), point);
}

// A window that the pointer has moved to has reported that by now. While a button is down, nothing is left.
void Presenter::LeaveIfOutside() {
  memory::MemoryWindows& windows = desktop_.Windows();
  const auto is_down = [&](int button) { return windows.GetKeyState(button) < 0; };
  if (!pointer_left_ || is_down(1) || is_down(2) || is_down(4)) return;
  pointer_left_ = false;
  MoveByHand(desktop_, desktop_.Windows(), NativeDisplay::Nowhere());
}

// --- Windows ---------------------------------------------------------------------------------

void Presenter::HandleWindow(const SDL_WindowEvent& event) {
  Shown* shown = FindNative(event.windowID);
  if (!shown) return;
  switch (event.event) {
    case SDL_WINDOWEVENT_MOVED: NativeMoved(*shown, {event.data1, event.data2}); break;
    case SDL_WINDOWEVENT_SIZE_CHANGED: NativeResized(*shown, {event.data1, event.data2}); break;
    case SDL_WINDOWEVENT_EXPOSED: shown->native->Forget(); break;
    case SDL_WINDOWEVENT_MINIMIZED: NativeState(*shown, kWsMinimize); break;
    case SDL_WINDOWEVENT_MAXIMIZED: NativeState(*shown, kWsMaximize); break;
    case SDL_WINDOWEVENT_RESTORED: NativeState(*shown, 0); break;
    case SDL_WINDOWEVENT_ENTER: pointer_left_ = false; break;
    case SDL_WINDOWEVENT_LEAVE: pointer_left_ = true; break;
    case SDL_WINDOWEVENT_FOCUS_GAINED:
      native_focus_ = event.windowID;
      asks_for_focus_ = false;
      RaisePopups();
      break;
    case SDL_WINDOWEVENT_FOCUS_LOST:
      if (native_focus_ == event.windowID) native_focus_ = 0;
      break;
    case SDL_WINDOWEVENT_CLOSE:
      desktop_.Windows().SendMessageA(shown->window, kWmClose, 0, 0);
      desktop_.Settle();
      break;
    default: break;
  }
}

void Presenter::NativeState(Shown& shown, std::uint32_t state) {
  const WindowHandle window = shown.window;
  if (shown.state == state || shown.native->Kind() == WindowKind::kPopup) return;
  shown.state = state;
  const int command = state == kWsMinimize ? kSwMinimize : state == kWsMaximize ? kSwMaximize : kSwRestore;
  desktop_.Windows().ShowWindow(window, command);
  // A minimised window may have been a maximised one, which it is again.
  const auto style = static_cast<std::uint32_t>(desktop_.Windows().GetWindowLongA(window, kGwlStyle));
  if (Shown* left = Find(window)) left->state = style & (kWsMinimize | kWsMaximize);
  if (state != kWsMinimize) TakePlaceAndSize(window);
  desktop_.Settle();
}

// Those of the native window, from wherever the desktop has put it.
void Presenter::TakePlaceAndSize(WindowHandle window) {
  Shown* shown = Find(window);
  if (!shown) return;
  const Scale& scale = display_.GetScale();
  const PixelPoint corner = scale.ToDesktop(shown->native->Place());
  const PixelSize size = scale.ToDesktop(shown->native->Size());
  shown->native_size = shown->native->Size();
  shown->part = PixelRect{0, 0, size.width, size.height}.Offset(corner.x, corner.y);
  const auto style = static_cast<std::uint32_t>(desktop_.Windows().GetWindowLongA(window, kGwlStyle));
  desktop_.Windows().SetWindowPos(window, {}, desktop_.Windows().AdjustWindowRectEx(shown->part, style, 0),
                                  kSwpNoZOrder | kSwpNoActivate);
}

// What belongs to a form goes with it: its popups, and those of nobody while it is the active one.
void Presenter::MovePopups(WindowHandle form, PixelPoint by) {
  memory::WindowTree& tree = desktop_.Windows().Tree();
  const bool active = desktop_.Windows().GetActiveWindow() == form;
  std::vector<WindowHandle> popups;
  for (const Shown& shown : shown_) {
    const memory::Window* popup =
        shown.native->Kind() == WindowKind::kPopup ? tree.Find(shown.window) : nullptr;
    if (!popup) continue;
    if (popup->owner ? popup->owner->handle == form
                     : active || popup->handle == desktop_.Windows().GetActiveWindow()) {
      popups.push_back(popup->handle);
    }
  }
  for (const WindowHandle popup : popups) {
    PixelRect rect;
    if (!desktop_.Windows().GetWindowRect(popup, rect)) continue;
    desktop_.Windows().SetWindowPos(popup, {}, rect.Offset(by.x, by.y),
                                    kSwpNoSize | kSwpNoZOrder | kSwpNoActivate);
  }
}

void Presenter::NativeMoved(Shown& shown, PixelPoint place) {
  if (shown.native->Kind() == WindowKind::kPopup || shown.state == kWsMinimize) return;
  const PixelPoint corner = display_.GetScale().ToDesktop(place);
  const PixelPoint by{corner.x - shown.part.left, corner.y - shown.part.top};
  if (by == PixelPoint{}) return;
  PixelRect rect;
  desktop_.Windows().GetWindowRect(shown.window, rect);
  shown.part = shown.part.Offset(by.x, by.y);
  const WindowHandle form = shown.window;
  desktop_.Windows().SetWindowPos(form, {}, rect.Offset(by.x, by.y),
                                  kSwpNoSize | kSwpNoZOrder | kSwpNoActivate);
  MovePopups(form, by);
  desktop_.Settle();
}

void Presenter::NativeResized(Shown& shown, PixelSize size) {
  if (size == shown.native_size || shown.state == kWsMinimize) return;
  shown.native_size = size;
  const PixelSize wanted = display_.GetScale().ToDesktop(size);
  const int wider = wanted.width - shown.part.width();
  const int higher = wanted.height - shown.part.height();
  PixelRect rect;
  desktop_.Windows().GetWindowRect(shown.window, rect);
  shown.part = {shown.part.left, shown.part.top, shown.part.right + wider, shown.part.bottom + higher};
  desktop_.Windows().SetWindowPos(shown.window, {},
                                  {rect.left, rect.top, rect.right + wider, rect.bottom + higher},
                                  kSwpNoMove | kSwpNoZOrder | kSwpNoActivate);
  desktop_.Settle();
}

// --- Focus and clipboard -----------------------------------------------------------------------

// A press arrives before the window that was pressed has the keyboard, on a busy machine long before. What it
// opens must not close for that.
constexpr std::uint64_t kFocusAfterPressMs = 1000;

// An open popup closes when the user turns elsewhere, which is to be seen at once. What SDL reports later is
// the same, or nothing when the user has come back by then.
void Presenter::AskForFocus() {
  const Shown* active = Find(desktop_.Windows().GetActiveWindow());
  const bool in_popup = active && active->native->Kind() == WindowKind::kPopup;
  if (focus_ != 0 ? !in_popup : !asks_for_focus_) return;
  std::vector<SDL_Window*> windows;
  for (const Shown& shown : shown_) windows.push_back(SDL_GetWindowFromID(shown.native->Id()));
  const std::optional<std::uint32_t> owner = KeyboardOwner(windows);
  if (!owner) return;
  const bool is_due = pressed_at_ && SDL_GetTicks64() - *pressed_at_ < kFocusAfterPressMs;
  if (*owner == 0 && is_due) return;
  pressed_at_.reset();
  native_focus_ = *owner;
  asks_for_focus_ = *owner == 0;
}

// Looked at once all events of a turn are done: between the windows of this program nobody has the keyboard
// for a moment.
void Presenter::TakeFocus() {
  if (native_focus_ == focus_) return;
  focus_ = native_focus_;
  left_ = focus_ == 0;
  const Shown* shown = FindNative(focus_);
  if (left_) {
    desktop_.Windows().Deactivate();
  } else if (shown && shown->native->Kind() != WindowKind::kPopup) {
    TakeClipboard();
    if (!HasOpenPopup(shown->window)) desktop_.Windows().SetActiveWindow(shown->window);
  }
  active_ = desktop_.Windows().GetActiveWindow();
  desktop_.Settle();
}

// Whether the active window is a popup that has opened from `form`. A press in a form arrives before the form
// has the keyboard, and may have opened one; the form need not be active on the desktop for that. Otherwise
// it was the form in front.
bool Presenter::HasOpenPopup(WindowHandle form) {
  memory::WindowTree& tree = desktop_.Windows().Tree();
  const WindowHandle active = desktop_.Windows().GetActiveWindow();
  const auto is_form = [](const memory::Window* window) {
    return window->Shown() && window->Has(kWsCaption);
  };
  const auto& windows = tree.Desktop().children;
  const auto found = std::ranges::find(windows, active, &memory::Window::handle);
  if (found == windows.end() || is_form(*found)) return false;
  if (active == pressed_popup_) return form == pressed_form_;
  const auto front = std::ranges::find_if(windows, is_form);
  return front != windows.end() && (*front)->handle == form;
}

void Presenter::TakeClipboard() {
  char* text = SDL_GetClipboardText();
  if (!text) return;
  clipboard_ = ToDesktopLines(text);
  SDL_free(text);
  desktop_.SetClipboard(clipboard_);
}

}  // namespace levelwidgets::presenter
