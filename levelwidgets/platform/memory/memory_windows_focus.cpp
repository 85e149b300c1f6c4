// Focus, activation, capture and what input looks like from a window.
#include <levelwidgets/platform/memory/memory_windows.h>

#include <algorithm>
#include <utility>

namespace levelwidgets::memory {

namespace {

constexpr WParam kWaInactive = 0;
constexpr WParam kWaActive = 1;
constexpr WParam kWaClickActive = 2;

constexpr std::int16_t kKeyIsDown = -128;

}  // namespace

// --- Enabling --------------------------------------------------------------------------------

bool MemoryWindows::IsWindowEnabled(WindowHandle window) {
  const Window* found = tree_.Find(window);
  return found && !found->Disabled();
}

bool MemoryWindows::EnableWindow(WindowHandle window, bool enable) {
  Window* found = tree_.Find(window);
  if (!found) return false;
  const bool was_disabled = found->Disabled();
  if (!enable) {
    SendMessageA(window, kWmCancelMode, 0, 0);
    found = tree_.Find(window);
  }
  if (!found || found->Disabled() != enable) return was_disabled;
  found->style = enable ? found->style & ~kWsDisabled : found->style | kWsDisabled;
  if (!enable && focus_ == window) ChangeFocus({});
  if (!enable && capture_ == window) ReleaseCapture();
  SendMessageA(window, kWmEnable, enable ? 1 : 0, 0);
  return was_disabled;
}

// --- Focus -----------------------------------------------------------------------------------

// A hidden window may, and so may one inside it.
bool MemoryWindows::TakesFocus(const Window& window) {
  return !window.destroying && WindowTree::IsEnabled(window);
}

WindowHandle MemoryWindows::SetFocus(WindowHandle window) {
  if (!window || window == focus_) return ChangeFocus(window);
  Window* found = tree_.Find(window);
  if (!found || !TakesFocus(*found)) return {};
  const WindowHandle top_level = tree_.Root(*found).handle;
  if (top_level != active_ && !Activate(top_level, false, false)) return {};
  found = tree_.Find(window);
  if (!found || !TakesFocus(*found) || top_level != active_) return {};
  return ChangeFocus(window);
}

// Returns who had it.
WindowHandle MemoryWindows::ChangeFocus(WindowHandle window) {
  const WindowHandle former = focus_;
  if (former == window) return former;
  focus_ = window;
  if (former) SendMessageA(former, kWmKillFocus, window.value, 0);
  if (window && focus_ == window) SendMessageA(window, kWmSetFocus, former.value, 0);
  return former;
}

// --- Activation ------------------------------------------------------------------------------

WindowHandle MemoryWindows::SetActiveWindow(WindowHandle window) {
  const WindowHandle former = active_;
  const Window* found = tree_.Find(window);
  if (window && !found) return {};
  if (found && !tree_.IsTopLevel(*found)) return former;
  return Activate(window, false, true) ? former : WindowHandle{};
}

void MemoryWindows::EndMenu() {
  if (const WindowHandle menu = std::exchange(input_.menu, {})) DestroyWindow(menu);
}

// A null window leaves none of ours active. The former one is still active while it hears that it no longer
// is. False when the window cannot become active, or a handler has turned it elsewhere.
bool MemoryWindows::Activate(WindowHandle window, bool by_press, bool move_focus) {
  if (window != active_) EndMenu();
  Window* found = tree_.Find(window);
  if (window && (!found || !TakesFocus(*found))) return false;
  if (found) Raise(*found);
  const WindowHandle former = active_;
  if (former == window) return true;
  if (Window* old = tree_.Find(former)) {
    InvalidateFrame(*old);
    SendMessageA(former, kWmActivate, kWaInactive, static_cast<LParam>(window.value));
  }
  found = tree_.Find(window);
  if (window && (!found || !TakesFocus(*found))) return false;
  active_ = window;
  if (found) {
    InvalidateFrame(*found);
    SendMessageA(window, kWmActivate, by_press ? kWaClickActive : kWaActive,
                 static_cast<LParam>(former.value));
  }
  if (active_ != window) return false;
  if (move_focus && !HasFocusInside(window)) ChangeFocus(window);
  return true;
}

bool MemoryWindows::HasFocusInside(WindowHandle window) {
  const Window* found = tree_.Find(window);
  const Window* focused = tree_.Find(focus_);
  return found && focused && WindowTree::IsInside(*focused, *found);
}

// Moves focus and activation away from a window that has just been hidden.
void MemoryWindows::LeaveHidden(WindowHandle window) {
  const Window* hidden = tree_.Find(window);
  if (!hidden) return;
  if (active_ == window) {
    Activate(NextActive(*hidden), false, true);
    return;
  }
  if (focus_ != window) return;
  const Window* parent = hidden->parent;
  ChangeFocus(!tree_.IsTopLevel(*hidden) && TakesFocus(*parent) ? parent->handle : WindowHandle{});
}

// Its owner, or the next behind it and then the others from the front; tool windows last. An open menu ends
// with the activity of its window, so it cannot follow.
WindowHandle MemoryWindows::NextActive(const Window& leaving) {
  const auto can_follow = [&](const Window& window) {
    return &window != &leaving && window.handle != input_.menu && window.Shown() &&
           !window.Has(kWsMinimize) && TakesFocus(window);
  };
  if (leaving.owner && can_follow(*leaving.owner)) return leaving.owner->handle;
  const auto& windows = tree_.Desktop().children;
  std::vector<Window*> order(windows.begin(), windows.end());
  std::rotate(order.begin(), std::ranges::find(order, &leaving), order.end());
  for (const bool tools : {false, true}) {
    for (const Window* window : order) {
      const bool is_tool = (window->ex_style & kWsExToolWindow) != 0;
      if (is_tool == tools && can_follow(*window)) return window->handle;
    }
  }
  return {};
}

bool MemoryWindows::ActivateByPress(WindowHandle hit, WindowHandle top_level, std::uint32_t message) {
  const LParam what = kHtClient | static_cast<LParam>(message) << 16;
  if (hit == active_) return true;
  const LResult answer = SendMessageA(hit, kWmMouseActivate, top_level.value, what);
  if (answer != kMaNoActivate && answer != kMaNoActivateAndEat) Activate(top_level, true, true);
  return answer != kMaActivateAndEat && answer != kMaNoActivateAndEat;
}

// --- Capture ---------------------------------------------------------------------------------

WindowHandle MemoryWindows::SetCapture(WindowHandle window) {
  if (window && !tree_.Find(window)) return {};
  const WindowHandle former = capture_;
  capture_ = window;
  if (former && former != window) {
    SendMessageA(former, kWmCaptureChanged, 0, static_cast<LParam>(window.value));
  }
  return former;
}

bool MemoryWindows::ReleaseCapture() {
  SetCapture({});
  return true;
}

// Of a window that ends, and hears nothing of it.
void MemoryWindows::LoseCaptureInside(const Window& window) {
  const Window* holder = tree_.Find(capture_);
  if (holder && WindowTree::IsInside(*holder, window)) capture_ = {};
}

// --- Input -----------------------------------------------------------------------------------

bool MemoryWindows::GetCursorPos(PixelPoint& point) {
  point = input_.pointer;
  return true;
}

std::int16_t MemoryWindows::GetKeyState(int code) {
  if (code < 0 || code >= std::ssize(input_.down)) return 0;
  return input_.down[static_cast<std::size_t>(code)] ? kKeyIsDown : std::int16_t{0};
}

PointerHit MemoryWindows::WindowAt(PixelPoint screen) {
  // `at` is in the client pixels of the window's parent.
  const auto contains = [](const Window* w, PixelPoint at) { return w->Shown() && w->rect.Contains(at); };
  const auto& windows = tree_.Desktop().children;
  const auto top = std::ranges::find_if(
      windows, [&](const Window* w) { return (w->ex_style & kWsExTransparent) == 0 && contains(w, screen); });
  if (top == windows.end()) return {};
  PointerHit hit{{}, (*top)->handle, (*top)->Disabled()};
  const Window* at = *top;
  PixelPoint point = screen;
  while (!hit.disabled) {
    const PixelPoint inside{point.x - at->rect.left, point.y - at->rect.top};
    if (frame_.HitTest(*at, inside) != FramePart::kNone) return hit;
    point = {inside.x - at->frame.left, inside.y - at->frame.top};
    const auto child = std::ranges::find_if(
        at->children, [&](const Window* w) { return !w->Disabled() && contains(w, point); });
    hit.window = at->handle;
    if (child == at->children.end()) return hit;
    at = *child;
    hit.window = {};
  }
  return hit;
}

}  // namespace levelwidgets::memory
