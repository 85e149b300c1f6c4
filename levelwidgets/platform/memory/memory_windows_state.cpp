// Minimised and maximised windows, the system menu, the pointer's shape, and other programs.
#include <levelwidgets/platform/memory/memory_windows.h>

namespace levelwidgets::memory {

namespace {

constexpr std::uint32_t kStates = kWsMinimize | kWsMaximize;

// Where the system keeps what is minimised: on no monitor.
constexpr PixelPoint kMinimizedCorner{-32000, -32000};

}  // namespace

// --- The pointer's shape -----------------------------------------------------------------------

// The parents decide first; the class is that of the window that the pointer is over.
LResult MemoryWindows::ShapePointer(WindowHandle window, WParam over, LParam where) {
  if (ForwardToParent(window, kWmSetCursor, over, where, 0) != 0) return 1;
  const WindowHandle hit{static_cast<std::uint32_t>(over)};
  const Window* found = tree_.Find(hit);
  if (!found || window != hit) return 0;
  SetCursor(found->pointer_shape);
  return 1;
}

// --- States ------------------------------------------------------------------------------------

void MemoryWindows::DoSystemCommand(WindowHandle window, WParam command) {
  switch (command) {
    case kScMinimize: ShowWindow(window, kSwMinimize); break;
    case kScMaximize: ShowWindow(window, kSwMaximize); break;
    case kScRestore: ShowWindow(window, kSwRestore); break;
    case kScClose: SendMessageA(window, kWmClose, 0, 0); break;
    default: break;
  }
}

PixelRect MemoryWindows::RectInState(const Window& window, std::uint32_t state) const {
  if (state == 0) return *window.restored;
  if (state == kWsMaximize) return screen_.AreaOf(*window.restored);
  // Nothing but the frame.
  const FrameWidths frame = frame_.Widths(window.style);
  return PixelRect{0, 0, frame.left + frame.right, frame.top + frame.bottom}.Offset(kMinimizedCorner.x,
                                                                                    kMinimizedCorner.y);
}

// `state` is kWsMinimize, kWsMaximize or 0.
void MemoryWindows::SetState(WindowHandle window, std::uint32_t state) {
  Window* found = tree_.Find(window);
  const std::uint32_t former = found ? found->style & kStates : state;
  if (former == state) return;
  const Before before = Remember(*found);
  if (former == 0) found->restored = found->rect;
  found->maximized_before = state == kWsMinimize && former == kWsMaximize;
  found->rect = RectInState(*found, state);
  found->style = (found->style & ~kStates) | state;
  found->frame = frame_.Widths(found->style);
  if (state == 0) found->restored.reset();
  Rearranged(*found, before, true);
  SendMovedAndSized(window, before);
}

// What ShowWindow does to the state before it shows the window.
void MemoryWindows::TakeState(WindowHandle window, int command) {
  const Window* found = tree_.Find(window);
  if (!found || !tree_.IsTopLevel(*found)) return;
  switch (command) {
    case kSwMinimize:
    case kSwShowMinimized: SetState(window, kWsMinimize); break;
    case kSwMaximize: SetState(window, kWsMaximize); break;
    case kSwShowNormal:
    case kSwShowNoActivate:
    case kSwRestore: SetState(window, found->maximized_before ? kWsMaximize : 0); break;
    default: break;
  }
}

bool MemoryWindows::CanBeMoved(WindowHandle top_level) {
  const Window* found = tree_.Find(top_level);
  return found && !found->Has(kWsMaximize);
}

void MemoryWindows::DoubleClickCaption(WindowHandle top_level) {
  const Window* found = tree_.Find(top_level);
  if (!found || !found->Has(kWsMaximizeBox)) return;
  SendMessageA(top_level, kWmSysCommand, found->Has(kWsMaximize) ? kScRestore : kScMaximize, 0);
}

FramePart MemoryWindows::FrameAt(WindowHandle top_level, PixelPoint screen) {
  const Window* found = tree_.Find(top_level);
  if (!found) return FramePart::kNone;
  return frame_.HitTest(*found, {screen.x - found->rect.left, screen.y - found->rect.top});
}

FrameEdges MemoryWindows::EdgesAt(WindowHandle top_level, PixelPoint screen) {
  const Window* found = tree_.Find(top_level);
  if (!found) return {};
  return frame_.EdgesAt(*found, {screen.x - found->rect.left, screen.y - found->rect.top});
}

// --- Other programs ----------------------------------------------------------------------------

void MemoryWindows::LeaveProgram() {
  if (active_) active_when_left_ = active_;
  Deactivate();
}

void MemoryWindows::EnterProgram() {
  if (active_) return;
  const Window* former = tree_.Find(active_when_left_);
  if (former && former->Shown() && TakesFocus(*former)) {
    Activate(former->handle, false, true);
  } else {
    Activate(NextActive(tree_.Desktop()), false, true);
  }
}

}  // namespace levelwidgets::memory
