// Place, order, parents and visibility of windows.
#include <levelwidgets/platform/memory/memory_windows.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace levelwidgets::memory {

namespace {

PixelPoint ClientCorner(const Window& window) {
  return {window.rect.left + window.frame.left, window.rect.top + window.frame.top};
}

WParam SizeKind(std::uint32_t style) {
  if ((style & kWsMinimize) != 0) return kSizeMinimized;
  return (style & kWsMaximize) != 0 ? kSizeMaximized : kSizeRestored;
}

bool IsSpecialPlace(std::uint32_t insert_after) {
  return insert_after == kHwndTop || insert_after == kHwndBottom || insert_after == kHwndTopMost ||
         insert_after == kHwndNoTopMost;
}

bool HasSizeLimits(std::uint32_t style) {
  return (style & kWsThickFrame) != 0 || (style & (kWsPopup | kWsChild)) == 0;
}

PixelRect PlacedRect(const PixelRect& old, const PixelRect& place, std::uint32_t flags) {
  const bool move = (flags & kSwpNoMove) == 0;
  const bool size = (flags & kSwpNoSize) == 0;
  PixelRect rect;
  rect.left = move ? place.left : old.left;
  rect.top = move ? place.top : old.top;
  rect.right = rect.left + std::max(0, size ? place.width() : old.width());
  rect.bottom = rect.top + std::max(0, size ? place.height() : old.height());
  return rect;
}

}  // namespace

// `rect` with a size that the system allows.
PixelRect MemoryWindows::Fitting(const PixelRect& rect, std::uint32_t style) const {
  PixelSize size{std::max(0, rect.width()), std::max(0, rect.height())};
  if (HasSizeLimits(style)) {
    size.width = std::clamp(size.width, smallest_.width, std::max(smallest_.width, largest_.width));
    size.height = std::clamp(size.height, smallest_.height, std::max(smallest_.height, largest_.height));
  }
  return {rect.left, rect.top, rect.left + size.width, rect.top + size.height};
}

MemoryWindows::Before MemoryWindows::Remember(Window& window) {
  return {tree_.VisibleOuter(window),     window.rect,  ClientCorner(window),
          WindowTree::ClientSize(window), window.style, window.Shown()};
}

// Invalidates what a change has brought to light.
void MemoryWindows::Rearranged(Window& window, const Before& before, bool redraw) {
  tree_.Changed(window);
  if (!redraw) return;
  const Region after = tree_.VisibleOuter(window);
  const bool top_level = tree_.IsTopLevel(window);
  if (!top_level) InvalidateBehind(window, Difference(before.visible, after));
  if (!window.Shown()) return;
  const bool resized = before.client_size != WindowTree::ClientSize(window) ||
                       before.rect.width() != window.rect.width() ||
                       before.rect.height() != window.rect.height();
  if (resized || !before.shown) {
    InvalidateWithChildren(window);
    return;
  }
  Region kept = before.visible;
  if (!top_level && before.rect != window.rect) kept = MovePixels(window, before, after);
  if (Region more = Difference(after, kept); !more.Empty()) {
    const PixelPoint origin = tree_.StoreOrigin(window);
    more.Offset(-origin.x, -origin.y);
    Invalidate(window, std::move(more), true);
    InvalidateFrame(window);
  }
}

// The pixels of a child go with it. Returns where they are now, of what can be seen of it.
Region MemoryWindows::MovePixels(Window& window, const Before& before, const Region& visible) {
  PixelStore* store = tree_.Root(window).store.get();
  if (!store) return {};
  const int dx = window.rect.left - before.rect.left;
  const int dy = window.rect.top - before.rect.top;
  Region kept = before.visible;
  kept.Offset(dx, dy);
  kept.ClipTo(visible);
  std::vector<std::uint32_t> pixels;
  for (const PixelRect& part : kept.Rects()) {
    for (int y = part.top; y < part.bottom; ++y) {
      const std::uint32_t* row = store->Row(y - dy) + (part.left - dx);
      pixels.insert(pixels.end(), row, row + part.width());
    }
  }
  auto from = pixels.cbegin();
  for (const PixelRect& part : kept.Rects()) {
    for (int y = part.top; y < part.bottom; ++y) {
      std::copy_n(from, part.width(), store->Row(y) + part.left);
      from += part.width();
    }
  }
  return kept;
}

void MemoryWindows::SetShown(Window& window, bool shown, bool redraw) {
  if (window.Shown() == shown) return;
  const Before before = Remember(window);
  window.style = shown ? window.style | kWsVisible : window.style & ~kWsVisible;
  if (shown) window.frame = frame_.Widths(window.style);
  Rearranged(window, before, redraw);
}

void MemoryWindows::SendMovedAndSized(WindowHandle window, const Before& before) {
  if (const Window* found = tree_.Find(window)) {
    const PixelPoint corner = ClientCorner(*found);
    if (corner != before.client_corner) SendMessageA(window, kWmMove, 0, LParamOfPoint(corner));
  }
  if (const Window* found = tree_.Find(window)) {
    const PixelSize size = WindowTree::ClientSize(*found);
    if (size != before.client_size || SizeKind(found->style) != SizeKind(before.style)) {
      SendMessageA(window, kWmSize, SizeKind(found->style), LParamOfPoint({size.width, size.height}));
    }
  }
}

// --- Order -----------------------------------------------------------------------------------

void MemoryWindows::PutAt(Window& window, WindowHandle insert_after) {
  if (tree_.IsTopLevel(window)) {
    if (insert_after.value == kHwndTopMost) SetTopMost(window, true);
    if (insert_after.value == kHwndNoTopMost || insert_after.value == kHwndBottom) SetTopMost(window, false);
  }
  switch (insert_after.value) {
    case kHwndTop:
    case kHwndTopMost:
    case kHwndNoTopMost: Raise(window); return;
    case kHwndBottom: tree_.PutBehind(window); return;
    default: break;
  }
  Window* sibling = tree_.Find(insert_after);
  if (sibling && sibling != &window && sibling->parent == window.parent) tree_.PutAfter(window, *sibling);
}

std::vector<Window*> MemoryWindows::OwnedBy(const Window& owner) {
  std::vector<Window*> owned;
  std::ranges::copy_if(tree_.Desktop().children, std::back_inserter(owned),
                       [&](const Window* window) { return window->owner == &owner; });
  return owned;
}

// What a window owns is top-most with it; its owner only ceases to be with it.
void MemoryWindows::SetTopMost(Window& window, bool top_most) {
  if (window.TopMost() == top_most) return;
  window.ex_style = top_most ? window.ex_style | kWsExTopMost : window.ex_style & ~kWsExTopMost;
  for (Window* owned : OwnedBy(window)) SetTopMost(*owned, top_most);
  if (!top_most && window.owner) SetTopMost(*window.owner, false);
}

// In front of its siblings. Windows come to the front with their owner, which is behind them.
void MemoryWindows::Raise(Window& window) {
  if (!tree_.IsTopLevel(window)) {
    tree_.PutInFront(window);
    return;
  }
  Window* first = &window;
  while (first->owner) first = first->owner;
  RaiseWithOwned(*first, window);
}

// `front` or its owner comes last, and so in front of all others that the same window owns.
void MemoryWindows::RaiseWithOwned(Window& window, const Window& front) {
  tree_.PutInFront(window);
  std::vector<Window*> owned = OwnedBy(window);
  const auto holds_front = [&](const Window* other) {
    const Window* at = &front;
    while (at && at != other) at = at->owner;
    return at != nullptr;
  };
  std::stable_partition(owned.begin(), owned.end(), holds_front);
  for (auto other = owned.rbegin(); other != owned.rend(); ++other) RaiseWithOwned(**other, front);
}

bool MemoryWindows::SetWindowPos(WindowHandle window, WindowHandle insert_after, PixelRect place,
                                 std::uint32_t flags) {
  Window* found = tree_.Find(window);
  if (!found) return false;
  const bool ordered = (flags & kSwpNoZOrder) == 0;
  if (ordered && !IsSpecialPlace(insert_after.value) && !tree_.Find(insert_after)) return false;
  const Before before = Remember(*found);
  found->rect = PlacedRect(found->rect, place, flags);
  if ((flags & kSwpNoSize) == 0) found->rect = Fitting(found->rect, found->style);
  if (found->rect != before.rect || (flags & kSwpFrameChanged) != 0) {
    found->frame = frame_.Widths(found->style);
  }
  if (ordered) PutAt(*found, insert_after);
  if ((flags & kSwpShowWindow) != 0) {
    found->style |= kWsVisible;
    found->frame = frame_.Widths(found->style);
  }
  if ((flags & kSwpHideWindow) != 0) found->style &= ~kWsVisible;
  Rearranged(*found, before, (flags & kSwpNoRedraw) == 0);
  if ((flags & kSwpFrameChanged) != 0) InvalidateFrame(*found);

  SendMovedAndSized(window, before);
  if ((flags & kSwpHideWindow) != 0) LeaveHidden(window);
  found = tree_.Find(window);
  const bool activates = (flags & (kSwpNoActivate | kSwpHideWindow)) == 0;
  if (found && activates && CanBePlacedActive(*found)) Activate(window, false, true);
  return true;
}

// --- Parents ---------------------------------------------------------------------------------

WindowHandle MemoryWindows::GetParent(WindowHandle window) {
  const Window* found = tree_.Find(window);
  if (!found) return {};
  if (!tree_.IsTopLevel(*found)) return found->parent->handle;
  return found->owner && (found->style & kWsPopup) != 0 ? found->owner->handle : WindowHandle{};
}

// Hidden, moved over and shown again, its numbers kept: they now mean pixels of the new parent. A window on
// the desktop that does not have the style of a child is placed there as SetWindowPos does it, and becomes
// active.
WindowHandle MemoryWindows::SetParent(WindowHandle window, WindowHandle parent) {
  const bool shown = tree_.Find(window) && tree_.Find(window)->Shown();
  if (shown) ShowWindow(window, kSwHide);
  Window* found = tree_.Find(window);
  Window* target = parent ? tree_.Find(parent) : &tree_.Desktop();
  WindowHandle former;
  if (found && target && !target->destroying && !WindowTree::IsInside(*target, *found)) {
    former = found->parent->handle;
    const Before before = Remember(*found);
    tree_.Reparent(*found, *target);
    found->frame = frame_.Widths(found->style);
    tree_.Changed(*found);
    SendMovedAndSized(window, before);
  }
  if (shown) ShowWindow(window, kSwShow);
  found = tree_.Find(window);
  if (found && CanBePlacedActive(*found)) Activate(window, false, true);
  return former;
}

// --- Rectangles ------------------------------------------------------------------------------

bool MemoryWindows::GetWindowRect(WindowHandle window, PixelRect& rect) {
  const Window* found = tree_.Find(window);
  if (found) rect = WindowTree::OuterRect(*found);
  return found != nullptr;
}

bool MemoryWindows::GetClientRect(WindowHandle window, PixelRect& rect) {
  const Window* found = tree_.Find(window);
  if (!found) return false;
  const PixelSize size = WindowTree::ClientSize(*found);
  rect = {0, 0, size.width, size.height};
  return true;
}

bool MemoryWindows::ClientToScreen(WindowHandle window, PixelPoint& point) {
  const Window* found = tree_.Find(window);
  if (!found) return false;
  const PixelPoint origin = WindowTree::ClientOrigin(*found);
  point = {point.x + origin.x, point.y + origin.y};
  return true;
}

bool MemoryWindows::ScreenToClient(WindowHandle window, PixelPoint& point) {
  const Window* found = tree_.Find(window);
  if (!found) return false;
  const PixelPoint origin = WindowTree::ClientOrigin(*found);
  point = {point.x - origin.x, point.y - origin.y};
  return true;
}

PixelRect MemoryWindows::AdjustWindowRectEx(PixelRect client, std::uint32_t style, std::uint32_t) {
  const FrameWidths frame = frame_.Widths(CompletedStyle(style));
  return {client.left - frame.left, client.top - frame.top, client.right + frame.right,
          client.bottom + frame.bottom};
}

// --- Visibility ------------------------------------------------------------------------------

// The bit that shows a window is one of its styles; what changes with it is invalidated, without a
// message.
void MemoryWindows::StoreStyle(Window& window, std::uint32_t style) {
  const Before before = Remember(window);
  window.style = style;
  Rearranged(window, before, true);
}

// A window with the style of a child is one also on the desktop.
bool MemoryWindows::CanBePlacedActive(const Window& window) const {
  return tree_.IsTopLevel(window) && (window.style & (kWsChild | kWsPopup)) != kWsChild;
}

bool MemoryWindows::ShowWindow(WindowHandle window, int command) {
  Window* found = tree_.Find(window);
  if (!found) return false;
  const bool was_shown = found->Shown();
  const bool show = command != kSwHide;
  if (!show && !was_shown) return false;
  if (show != was_shown) SendMessageA(window, kWmShowWindow, show ? 1 : 0, 0);
  TakeState(window, command);
  found = tree_.Find(window);
  if (!found) return was_shown;
  const Before before = Remember(*found);
  SetShown(*found, show, true);
  SendMovedAndSized(window, before);
  if (!show || command == kSwMinimize) {
    LeaveHidden(window);
  } else if ((found = tree_.Find(window)) && command != kSwShowNoActivate && tree_.IsTopLevel(*found)) {
    Activate(window, false, true);
  }
  found = tree_.Find(window);
  if (show && found && std::exchange(found->needs_first_size, false)) SendFirstSize(window);
  return was_shown;
}

bool MemoryWindows::IsWindowVisible(WindowHandle window) {
  const Window* found = tree_.Find(window);
  return found && WindowTree::IsVisible(*found);
}

}  // namespace levelwidgets::memory
