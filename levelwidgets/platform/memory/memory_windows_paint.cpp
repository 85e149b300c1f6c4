// Invalid areas, paints and drawing contexts of windows.
#include <levelwidgets/platform/memory/memory_windows.h>

#include <algorithm>
#include <utility>

#include <levelwidgets/platform/memory/finally.h>

namespace levelwidgets::memory {

namespace {

Region ClientArea(const Window& window) {
  const PixelSize size = WindowTree::ClientSize(window);
  return Region(PixelRect{0, 0, size.width, size.height});
}

}  // namespace

// --- Invalid areas ---------------------------------------------------------------------------

// `area` in client pixels. What is not shown needs no paint: showing invalidates all of it.
void MemoryWindows::Invalidate(Window& window, Region area, bool children) {
  if (!WindowTree::IsVisible(window)) return;
  area.ClipTo(ClientArea(window).Bounds());
  if (area.Empty()) return;
  window.invalid.Add(area);
  QueuePaint(window);
  if (!children) return;
  InvalidateChildren(window, area, nullptr);
}

// Of all children but `except`, what is in `area` (client pixels of `window`).
void MemoryWindows::InvalidateChildren(Window& window, const Region& area, const Window* except) {
  const PixelRect bounds = area.Bounds();
  for (Window* child : window.children) {
    if (child == except || !child->Shown() || Intersect(child->rect, bounds).empty()) continue;
    Region part = Common(area, Region(child->rect));
    if (part.Empty()) continue;
    part.Offset(-child->rect.left - child->frame.left, -child->rect.top - child->frame.top);
    Invalidate(*child, std::move(part), true);
    InvalidateFrame(*child);
  }
}

void MemoryWindows::InvalidateWithChildren(Window& window) {
  if (!WindowTree::IsVisible(window)) return;
  Invalidate(window, ClientArea(window), false);
  InvalidateFrame(window);
  for (Window* child : window.children) InvalidateWithChildren(*child);
}

// What `window` has uncovered, in store pixels, of its parent and of the siblings behind it.
void MemoryWindows::InvalidateBehind(Window& window, const Region& uncovered) {
  if (uncovered.Empty()) return;
  Region area = uncovered;
  const PixelPoint origin = tree_.StoreOrigin(*window.parent);
  area.Offset(-origin.x, -origin.y);
  InvalidateChildren(*window.parent, area, &window);
  Invalidate(*window.parent, std::move(area), false);
}

void MemoryWindows::InvalidateFrame(Window& window) {
  if (window.frame.None() || !WindowTree::IsVisible(window)) return;
  window.frame_invalid = true;
  QueuePaint(window);
}

void MemoryWindows::QueuePaint(Window& window) {
  if (window.queued_for_paint) return;
  to_paint_.push_back(window.handle);
  window.queued_for_paint = true;
}

bool MemoryWindows::InvalidateRect(WindowHandle window, const PixelRect& area) {
  Window* found = tree_.Find(window);
  if (!found) return false;
  Invalidate(*found, Region(area), !found->Has(kWsClipChildren));
  return true;
}

bool MemoryWindows::InvalidateRect(WindowHandle window) {
  const Window* found = tree_.Find(window);
  return found && InvalidateRect(window, ClientArea(*found).Bounds());
}

Region MemoryWindows::PendingPaint(WindowHandle window) {
  Window* found = tree_.Find(window);
  if (!found || found->invalid.Empty()) return {};
  return Common(tree_.VisibleWithin(*found, found->invalid.Bounds()), found->invalid);
}

// --- Delivering paints -----------------------------------------------------------------------

bool MemoryWindows::PaintPending() {
  std::vector<WindowHandle> windows;
  windows.swap(to_paint_);
  std::erase_if(windows, [&](WindowHandle w) { return !tree_.Find(w); });
  const auto deeper = [&](WindowHandle a, WindowHandle b) {
    return WindowTree::Depth(*tree_.Find(a)) > WindowTree::Depth(*tree_.Find(b));
  };
  std::reverse(windows.begin(), windows.end());
  std::stable_sort(windows.begin(), windows.end(), deeper);
  // A handler that throws leaves the others waiting.
  const Finally keep_rest([&] { to_paint_.insert(to_paint_.end(), windows.rbegin(), windows.rend()); });
  bool painted = false;
  while (!windows.empty()) {
    const WindowHandle window = windows.back();
    windows.pop_back();
    if (Window* found = tree_.Find(window)) {
      found->queued_for_paint = false;
      painted |= Paint(window);
    }
  }
  return painted;
}

// Returns whether there was something to paint.
bool MemoryWindows::Paint(WindowHandle window) {
  Window* found = tree_.Find(window);
  if (!found) return false;
  const bool frame = found->frame_invalid && WindowTree::IsVisible(*found);
  found->frame_invalid = false;
  if (frame) frame_.Draw(tree_, *found, active_ == window);
  if (PendingPaint(window).Empty()) {
    found->invalid.Clear();
    return frame;
  }
  found->paint_unanswered = true;
  const Finally finish([&] {
    EndPaint(window);
    Window* painted = tree_.Find(window);
    if (painted && painted->paint_unanswered) painted->invalid.Clear();
  });
  SendMessageA(window, kWmPaint, 0, 0);
  return true;
}

void MemoryWindows::PaintWithChildren(WindowHandle window) {
  Paint(window);
  const Window* found = tree_.Find(window);
  if (!found) return;
  std::vector<WindowHandle> children;
  for (const Window* child : found->children) children.push_back(child->handle);
  for (const WindowHandle child : children) PaintWithChildren(child);
}

bool MemoryWindows::UpdateWindow(WindowHandle window) {
  if (!tree_.Find(window)) return false;
  PaintWithChildren(window);
  return true;
}

DcHandle MemoryWindows::BeginPaint(WindowHandle window, PixelRect& part) {
  Window* found = tree_.Find(window);
  if (!found) return {};
  found->paint_unanswered = false;
  WindowTree::LimitPaint(*found, std::exchange(found->invalid, {}));
  const PixelPoint origin = tree_.StoreOrigin(*found);
  part = tree_.Clip(*found).Bounds().Offset(-origin.x, -origin.y);
  if (part.empty()) part = {};
  return GetDC(window);
}

bool MemoryWindows::EndPaint(WindowHandle window) {
  Window* found = tree_.Find(window);
  if (!found || !found->paint_limit) return false;
  WindowTree::UnlimitPaint(*found);
  return true;
}

// --- Contexts --------------------------------------------------------------------------------

DcHandle MemoryWindows::GetDC(WindowHandle window) {
  Window* found = tree_.Find(window);
  if (!found) return {};
  if (!found->dc) found->dc = drawing_.CreateWindowDC(found);
  return found->dc;
}

bool MemoryWindows::ReleaseDC(WindowHandle window, DcHandle dc) {
  const Window* found = tree_.Find(window);
  return found && dc && found->dc == dc;
}

}  // namespace levelwidgets::memory
