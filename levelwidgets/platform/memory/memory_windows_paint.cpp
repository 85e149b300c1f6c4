// Invalid areas, paints and drawing contexts of windows.
#include <levelwidgets/platform/memory/memory_windows.h>

#include <cxxabi.h>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <typeinfo>
#include <utility>

#include <levelwidgets/platform/finally.h>

namespace levelwidgets::memory {

namespace {

// As often as a window may answer kWmPaint in a row without BeginPaint.
constexpr int kMostUnanswered = 100;

std::string ClassOf(const Window& window) {
  if (!window.client) return "none";
  const WindowClient& client = *window.client;
  const char* const name = typeid(client).name();
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> readable(
      abi::__cxa_demangle(name, nullptr, nullptr, &status), &std::free);
  return status == 0 ? readable.get() : name;
}

PixelRect ClientArea(const Window& window) {
  const PixelSize size = WindowTree::ClientSize(window);
  return {0, 0, size.width, size.height};
}

}  // namespace

// --- Invalid areas ---------------------------------------------------------------------------

// `area` in client pixels. What is not shown needs no paint: showing invalidates all of it.
void MemoryWindows::Invalidate(Window& window, Region area, bool children) {
  if (!WindowTree::IsVisible(window)) return;
  area.ClipTo(ClientArea(window));
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
  Invalidate(window, Region(ClientArea(window)), false);
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
  return found && InvalidateRect(window, ClientArea(*found));
}

Region MemoryWindows::PendingPaint(WindowHandle window) {
  Window* found = tree_.Find(window);
  if (!found || found->invalid.Empty()) return {};
  return Common(tree_.VisibleWithin(*found, found->invalid.Bounds()), found->invalid);
}

// --- Delivering paints -----------------------------------------------------------------------

// The next one last. A paint may have made other windows wait, which come before the others or between them.
void MemoryWindows::SortPaints() {
  if (sorted_paints_ == to_paint_.size() && order_when_sorted_ == tree_.OrderChanges()) return;
  std::erase_if(to_paint_, [&](WindowHandle window) { return !tree_.Find(window); });
  if (to_paint_.size() > 1) {
    tree_.NumberAll();
    std::ranges::sort(to_paint_, std::greater(), [&](WindowHandle w) { return tree_.Find(w)->number; });
  }
  sorted_paints_ = to_paint_.size();
  order_when_sorted_ = tree_.OrderChanges();
}

PaintTurn MemoryWindows::PaintNext() {
  while (!to_paint_.empty()) {
    SortPaints();
    if (to_paint_.empty()) break;
    const WindowHandle window = to_paint_.back();
    to_paint_.pop_back();
    --sorted_paints_;
    Window* found = tree_.Find(window);
    if (!found) continue;
    found->queued_for_paint = false;
    const bool again = found->painted_turn == paint_turn_;
    if (again) ++paint_turn_;
    found->painted_turn = paint_turn_;
    if (Paint(window)) return again ? PaintTurn::kPaintedAgain : PaintTurn::kPainted;
  }
  ++paint_turn_;
  return PaintTurn::kNothing;
}

// Returns whether there was something to paint.
bool MemoryWindows::Paint(WindowHandle window) {
  Window* found = tree_.Find(window);
  if (!found) return false;
  const bool frame = found->frame_invalid && WindowTree::IsVisible(*found);
  found->frame_invalid = false;
  if (frame) frame_.Draw(tree_, *found, active_ == window);
  if (!tree_.CanSeeAny(*found, found->invalid)) {
    found->invalid.Clear();
    return frame;
  }
  ++found->unanswered_paints;
  const Finally finish([&] {
    EndPaint(window);
    Window* painted = tree_.Find(window);
    if (painted && !painted->invalid.Empty()) QueuePaint(*painted);
  });
  SendMessageA(window, kWmPaint, 0, 0);
  CheckAnswered(window);
  return true;
}

// A window that never begins its paint would be painted for ever.
void MemoryWindows::CheckAnswered(WindowHandle window) {
  Window* painted = tree_.Find(window);
  if (!painted || painted->unanswered_paints < kMostUnanswered) return;
  painted->invalid.Clear();
  painted->unanswered_paints = 0;
  throw std::logic_error("A window of the class " + ClassOf(*painted) +
                         " answers its paint messages without BeginPaint, so that they come again for ever");
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
  found->unanswered_paints = 0;
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
